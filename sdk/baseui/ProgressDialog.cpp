#include "sdk/baseui/ProgressDialog.h"

namespace BIMScrollBar {
namespace {
KnSbInterface* g_dialog = nullptr;
}

KnSbInterface* KnSbInterface::Instance() {
    return g_dialog;
}
void KnSbInterface::Install(KnSbInterface* dialog) {
    g_dialog = dialog;
}

ProgressScope::ProgressScope(const std::wstring& title, const std::wstring& text)
    : m_dialog(KnSbInterface::Instance()) {
    if (m_dialog)
        m_dialog->ShowProgressDialog(title, text);
}

ProgressScope::~ProgressScope() {
    if (m_dialog)
        m_dialog->CloseProgressDialog();
}

}  // namespace BIMScrollBar
