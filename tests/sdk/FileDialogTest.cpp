#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTimer>

#include "sdk/baseui/FileDialog.h"

namespace {

/// Runs the dialog and does `steps` in it.
CFileDialog::Result run(CFileDialog& dialog, const std::function<void(QFileDialog&)>& steps) {
    QTimer::singleShot(0, qApp, [&steps] {
        auto* shown = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(shown, nullptr);
        steps(*shown);
        shown->close();
    });
    return dialog.DoModal();
}

TEST(FileDialog, GivesTheChosenFileAndBeginsThereTheNextTime) {
    const QTemporaryDir folder(QDir::tempPath() + "/图纸");
    const QString path = folder.filePath("平面图 1.dwg");
    ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
    CFileDialog dialog(true, L"", L"", CFileDialog::kHideReadOnly, L"全部文件 | *.*||");
    const auto choose = [&](QFileDialog& shown) {
        EXPECT_EQ(shown.nameFilters(), QStringList{"全部文件 (*)"});
        EXPECT_EQ(shown.fileMode(), QFileDialog::ExistingFile);
        shown.setDirectory(folder.path());
        shown.selectFile(path);
        static_cast<QDialog&>(shown).accept();
    };
    EXPECT_EQ(run(dialog, choose), CFileDialog::Result::Ok);
    EXPECT_EQ(dialog.GetPathName(), path.toStdWString());
    EXPECT_EQ(dialog.GetFileName(), L"平面图 1.dwg");

    EXPECT_EQ(run(dialog, [&](QFileDialog& shown) { EXPECT_EQ(shown.directory().path(), folder.path()); }),
              CFileDialog::Result::Cancel);
    EXPECT_EQ(dialog.GetPathName() + dialog.GetFileName(), L"") << "the choice of before is gone";
}

TEST(FileDialog, ReadsFiltersAndSavesUnderAnExtension) {
    const std::pair<const wchar_t*, QStringList> filters[] = {
        {L"图片|*.png;*.jpg|全部 | *.* ||", {"图片 (*.png *.jpg)", "全部 (*)"}},
        {L"图纸|*.dwg", {"图纸 (*.dwg)"}},
        {L"图纸||", {}},
        {L"||", {}}};
    for (const auto& [text, expected] : filters) {
        CFileDialog dialog(true, L"", L"", CFileDialog::kHideReadOnly, text);
        run(dialog, [&expected = expected](QFileDialog& shown) {
            EXPECT_EQ(shown.nameFilters(), expected.isEmpty() ? QFileDialog().nameFilters() : expected);
        });
    }
    const QTemporaryDir folder;
    CFileDialog dialog(false, L"xlsx", (folder.path() + "/台账").toStdWString(), 0, L"表格|*.xlsx||");
    run(dialog, [](QFileDialog& shown) { static_cast<QDialog&>(shown).accept(); });
    EXPECT_EQ(dialog.GetPathName(), (folder.path() + "/台账.xlsx").toStdWString());
}

}  // namespace
