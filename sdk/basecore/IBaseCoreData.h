#pragma once

#include <string>

#include "sdk/basecore/IMgrObject.h"

class QWidget;

namespace BASECORE::FRAME {

/// The host core as plug-ins see it.
class HOSTSDK_API IBaseCoreData {
public:
    /// The host's main window, parent of a plug-in's dialogs; null when there is none.
    virtual QWidget* GetMainWindow() const = 0;
    /// The manager registered under `name`, or null. Owned by the host.
    virtual IMgrObject* LookupManager(const std::wstring& name) const = 0;

protected:
    ~IBaseCoreData() = default;
};

/// The process-wide core; null before the host has set it.
HOSTSDK_API IBaseCoreData* GetMainBaseCore();
/// Set once by the host at start, reset to null at its end; borrowed.
HOSTSDK_API void SetMainBaseCore(IBaseCoreData* core);

/// The manager registered under `name` in `core` as a `Manager`; a missing core, a missing manager and one of another
/// interface are all null.
template <class Manager>
Manager* LookupManager(const std::wstring& name, const IBaseCoreData* core = GetMainBaseCore()) {
    return core ? dynamic_cast<Manager*>(core->LookupManager(name)) : nullptr;
}

}  // namespace BASECORE::FRAME
