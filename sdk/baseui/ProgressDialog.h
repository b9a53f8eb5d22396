#pragma once

#include <cstdint>
#include <string>

#include "sdk/Export.h"

class QWidget;

namespace BIMScrollBar {

/// The host's progress dialog. One at a time; showing it again changes its texts.
class HOSTSDK_API KnSbInterface {
public:
    virtual void ShowProgressDialog(const std::wstring& title, const std::wstring& text) = 0;
    virtual void CloseProgressDialog() = 0;

    // What a wait needs of the dialog; see sdk/baseui/Waiting.h.
    /// Null while it is not shown.
    virtual QWidget* GetWindow() const { return nullptr; }
    /// Shows how many bytes are done, where `total` is above 0, and a button to cancel, where `canCancel`; called every
    /// few milliseconds, and before the dialog is shown for it. False once the user has cancelled.
    virtual bool ShowWaiting(bool /*canCancel*/, int64_t /*done*/, int64_t /*total*/) { return true; }
    /// Takes back what `ShowWaiting` has shown.
    virtual void EndWaiting() {}

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
