#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "sdk/Export.h"

class QWidget;

/// Lets the user choose one file by a modal dialog, which begins in the folder that was chosen from last.
class HOSTSDK_API CFileDialog {
public:
    enum class Result { Ok = 1, Cancel = 2 };
    enum class Style { Classic, New };  // New is the desktop's own dialog where it has one

    /// The dialog has no box for opening a file without writing to it anyway.
    static constexpr std::uint32_t kHideReadOnly = 0x4;
    /// Asks before an existing file is chosen for saving.
    static constexpr std::uint32_t kOverwritePrompt = 0x2;

    /// `defaultExtension`, without its dot, completes a name that has none. `filter` lists "text|pattern" pairs, all
    /// parted by "|", with "||" at the end; a pattern may be several parted by ";". `owner` may be null.
    CFileDialog(bool isForOpening, std::wstring defaultExtension, std::wstring fileName, std::uint32_t flags,
                std::wstring filter, QWidget* owner = nullptr, Style style = Style::New);

    Result DoModal();

    /// With its folder and native separators; empty until a file has been chosen.
    const std::wstring& GetPathName() const { return m_path; }
    /// Without its folder.
    std::wstring GetFileName() const;

    bool IsForOpening() const { return m_isForOpening; }
    const std::wstring& GetFilter() const { return m_filter; }

private:
    std::wstring ask() const;

    bool m_isForOpening;
    std::wstring m_defaultExtension;
    std::wstring m_fileName;
    std::uint32_t m_flags;
    std::wstring m_filter;
    QWidget* m_owner;
    Style m_style;
    std::wstring m_path;
};

namespace BASEUI {

/// Answers file dialogs in place of the built-in one: the path chosen, or nothing when the user gives up.
using FileDialogHandler = std::function<std::optional<std::wstring>(const CFileDialog&)>;
/// Process-wide; an empty handler restores the built-in dialog.
HOSTSDK_API void SetFileDialogHandler(FileDialogHandler handler);

}  // namespace BASEUI
