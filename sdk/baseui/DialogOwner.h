#pragma once

#include "sdk/Export.h"

class QWidget;

namespace BASEUI {

/// The window that a dialog belongs to: `named`, else the innermost modal window, else the active one; may be null.
/// Right after a dialog has closed no window is active yet, so the active one alone would not do.
HOSTSDK_API QWidget* DialogOwner(QWidget* named = nullptr);

}  // namespace BASEUI
