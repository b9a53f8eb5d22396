#pragma once

#include <QString>

#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/IKpxClientConfigMgr.h"

namespace workbench {

/// Settings in one file of the data folder. Every change is a whole new file put in the old one's place.
class CClientConfigMgr final : public BASECORE::FRAME::CMgrObject, public PROJECTPACKAGE::IKpxClientConfigMgr {
public:
    static constexpr wchar_t kServer[] = L"Workbench/Server";
    static constexpr wchar_t kUser[] = L"Workbench/User";
    static constexpr wchar_t kProject[] = L"Workbench/Project";

    explicit CClientConfigMgr(const QString& dataFolder);

    std::wstring GetValue(const std::wstring& key) const override;
    bool SetValue(const std::wstring& key, const std::wstring& value) override;

private:
    QString m_file;
};

}  // namespace workbench
