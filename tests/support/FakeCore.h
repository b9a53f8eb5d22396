#pragma once

#include <map>
#include <string>

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/MgrObject.h"

namespace support {

/// A host core that holds whatever managers a test puts in; process-wide while it lives.
class FakeCore : public BASECORE::FRAME::IBaseCoreData {
public:
    FakeCore() { BASECORE::FRAME::SetMainBaseCore(this); }
    virtual ~FakeCore() { BASECORE::FRAME::SetMainBaseCore(nullptr); }
    FakeCore(const FakeCore&) = delete;
    FakeCore& operator=(const FakeCore&) = delete;

    QWidget* GetMainWindow() const override { return mainWindow; }
    BASECORE::FRAME::IMgrObject* LookupManager(const std::wstring& name) const override {
        const auto found = managers.find(name);
        return found == managers.end() ? nullptr : found->second;
    }

    QWidget* mainWindow = nullptr;
    std::map<std::wstring, BASECORE::FRAME::IMgrObject*> managers;
};

}  // namespace support
