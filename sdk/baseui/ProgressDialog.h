#pragma once

#include <string>

#include "sdk/Export.h"

namespace BIMScrollBar {

/// The host's progress dialog. One at a time; showing it again changes its texts.
class HOSTSDK_API KnSbInterface {
public:
    virtual void ShowProgressDialog(const std::wstring& title, const std::wstring& text) = 0;
    virtual void CloseProgressDialog() = 0;

    /// The process-wide dialog; null where the host offers none.
    static KnSbInterface* Instance();
    /// Set by the host at start, reset to null at its end; borrowed.
    static void Install(KnSbInterface* dialog);

protected:
    ~KnSbInterface() = default;
};

/// Shows the progress dialog for the life of the object.
class HOSTSDK_API ProgressScope {
public:
    ProgressScope(const std::wstring& title, const std::wstring& text);
    ~ProgressScope();
    ProgressScope(const ProgressScope&) = delete;
    ProgressScope& operator=(const ProgressScope&) = delete;

    /// False where the host offers no progress dialog.
    explicit operator bool() const { return m_dialog != nullptr; }

private:
    KnSbInterface* m_dialog;
};

}  // namespace BIMScrollBar
