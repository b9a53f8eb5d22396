#pragma once

#include "sdk/basecore/IMgrObject.h"

namespace BASECORE::FRAME {

class IBaseCoreData;

/// Base of every manager: keeps the registered name and reaches the host core.
class HOSTSDK_API CMgrObject : public IMgrObject {
public:
    explicit CMgrObject(std::wstring name);
    ~CMgrObject() override;
    CMgrObject(const CMgrObject&) = delete;
    CMgrObject& operator=(const CMgrObject&) = delete;

    std::wstring GetName() const override;
    void Init() override;
    void Startup() override;
    void Shutdown() override;

protected:
    /// The process-wide core; null before the host has set it.
    static IBaseCoreData* GetBaseCoreData();

private:
    std::wstring m_name;
};

}  // namespace BASECORE::FRAME
