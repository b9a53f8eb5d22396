#include "sdk/baseui/FileDialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>

#include "sdk/basetools/File.h"
#include "sdk/baseui/DialogOwner.h"

namespace {

BASEUI::FileDialogHandler& Handler() {
    static BASEUI::FileDialogHandler handler;
    return handler;
}

QString& LastFolder() {
    static QString folder = QDir::homePath();
    return folder;
}

/// "*.*" stands for every file, also for those without a dot. Pairs without a pattern are left out.
QStringList NameFilters(const std::wstring& filter) {
    const QStringList parts = QString::fromStdWString(filter).split('|');
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns;
        for (const QString& pattern : parts[i + 1].split(';', Qt::SkipEmptyParts))
            patterns << (pattern.trimmed() == "*.*" ? QStringLiteral("*") : pattern.trimmed());
        if (!patterns.isEmpty())
            filters << QStringLiteral("%1 (%2)").arg(parts[i].trimmed(), patterns.join(' '));
    }
    return filters;
}

}  // namespace

namespace BASEUI {

void SetFileDialogHandler(FileDialogHandler handler) {
    Handler() = std::move(handler);
}

}  // namespace BASEUI

CFileDialog::CFileDialog(bool isForOpening, std::wstring defaultExtension, std::wstring fileName, std::uint32_t flags,
                         std::wstring filter, QWidget* owner, Style style)
    : m_isForOpening(isForOpening),
      m_defaultExtension(std::move(defaultExtension)),
      m_fileName(std::move(fileName)),
      m_flags(flags),
      m_filter(std::move(filter)),
      m_owner(owner),
      m_style(style) {}

CFileDialog::Result CFileDialog::DoModal() {
    m_path = Handler() ? Handler()(*this).value_or(std::wstring()) : ask();
    return m_path.empty() ? Result::Cancel : Result::Ok;
}

std::wstring CFileDialog::GetFileName() const {
    return BASETOOLS::GetFileName(m_path);
}

std::wstring CFileDialog::ask() const {
    QFileDialog dialog(BASEUI::DialogOwner(m_owner));
    dialog.setAcceptMode(m_isForOpening ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(m_isForOpening ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setWindowTitle(m_isForOpening ? QApplication::translate("BASEUI", "打开")
                                         : QApplication::translate("BASEUI", "另存为"));
    dialog.setOption(QFileDialog::DontUseNativeDialog, m_style == Style::Classic);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, (m_flags & kOverwritePrompt) == 0);
    dialog.setOption(QFileDialog::ReadOnly, m_isForOpening);  // choosing a file is no place to delete others
    dialog.setDefaultSuffix(QString::fromStdWString(m_defaultExtension));
    if (const QStringList filters = NameFilters(m_filter); !filters.isEmpty())
        dialog.setNameFilters(filters);
    dialog.setDirectory(LastFolder());
    if (!m_fileName.empty())
        dialog.selectFile(QString::fromStdWString(m_fileName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    LastFolder() = dialog.directory().absolutePath();
    return QDir::toNativeSeparators(dialog.selectedFiles().constFirst()).toStdWString();
}
