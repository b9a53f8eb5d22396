
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "sdk/baseui/FileDialog.h"
#include "sdk/baseui/MessageBox.h"
#include "sdk/baseui/ProgressDialog.h"
#include "sdk/packages/IKpxFileUploadMgr.h"
#include "tests/plugin/ManagerTest.h"

namespace {

using namespace DISCLOSUREPACKAGE;
using namespace testing;

constexpr qint64 kMiB = 1048576;

/// A host that stores files and notes what it shows; the user chooses `chosen`.
class LocalFilesTest : public support::ManagerTest,
                       public BIMScrollBar::KnSbInterface,
                       public BASEPACKAGE::IKpxFileUploadMgr,
                       public BASECORE::FRAME::CMgrObject {
protected:
    LocalFilesTest() : CMgrObject(BASECORE::NAMES::kFileUpload) {
        host.managers[BASECORE::NAMES::kFileUpload] = this;
        Install(this);
        BASEUI::SetFileDialogHandler([this](const CFileDialog& dialog) {
            shown.push_back(L"choose " + dialog.GetFilter());
            return chosen;
        });
        BASEUI::SetMessageBoxHandler([this](const std::wstring& text, QWidget* owner, BASEUI::MessageButtons) {
            EXPECT_EQ(owner, nullptr);
            shown.push_back(text);
            return BASEUI::MessageResult::Ok;
        });
    }
    ~LocalFilesTest() override {
        BASEUI::SetMessageBoxHandler({});
        BASEUI::SetFileDialogHandler({});
        Install(nullptr);
    }

    void ShowProgressDialog(const std::wstring& title, const std::wstring& text) override {
        shown.push_back(title + L"/" + text);
    }
    void CloseProgressDialog() override { shown.push_back(L"closed"); }
    bool IsUploading() const override { return false; }
    void Upload(const BASEPACKAGE::UploadRequest& request, BASEPACKAGE::UploadResult& stored, QWidget* owner,
                int32_t timeoutSeconds) override {
        EXPECT_EQ(owner, nullptr);
        EXPECT_EQ(timeoutSeconds, 0);
        EXPECT_EQ(request.kind, 1);
        EXPECT_EQ(request.folder, L"0");
        shown.push_back(L"upload " + request.path);
        if (throws)
            throw std::runtime_error("host");
        stored = result;
    }

    /// The user chooses a file of that name and size; true when it was uploaded.
    bool upload(const QString& name, qint64 size = 5) {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(size));
        chosen = file.fileName().toStdWString();
        return upload();
    }
    bool upload() {
        shown.clear();
        return manager.UploadLocalFiles(files);
    }

    std::optional<std::wstring> chosen;
    BASEPACKAGE::UploadResult result{true, L"", 2048, L"uuid-1", L"md5-1"};
    bool throws = false;
    std::vector<std::wstring> shown;
    std::vector<UploadedFileRecord> files{UploadedFileRecord{0, L"before", L"", L"", L"", 0, L"", 0}};

private:
    QTemporaryDir m_folder{QDir::tempPath() + "/本地 资料"};
};

const std::wstring kChoose = L"choose 全部文件 | *.*||";
const std::wstring kProgress = L"处理状态/正在上传资料，请稍后...";

TEST_F(LocalFilesTest, AnUploadedFileIsAppended) {
    ASSERT_TRUE(upload("施工方案.v2.PDF"));
    EXPECT_THAT(shown, ElementsAre(kChoose, kProgress, L"upload " + *chosen, L"closed"));
    ASSERT_THAT(files, SizeIs(2));
    EXPECT_EQ(files[0].id, L"before");
    const UploadedFileRecord file = files[1];
    EXPECT_EQ(file.ppid, 0);
    EXPECT_EQ(file.id.size(), 36U);
    EXPECT_EQ(file.name, L"施工方案.v2.PDF");
    EXPECT_EQ(file.uuid + L" " + file.md5, L"uuid-1 md5-1");
    EXPECT_EQ(file.size, 2048);
    EXPECT_EQ(file.extension, L"PDF");
    EXPECT_EQ(file.sourceType, 1);
    ASSERT_TRUE(upload("施工方案.v2.PDF"));
    EXPECT_NE(files[2].id, file.id);
}

TEST_F(LocalFilesTest, TypesAreToldByTheLastExtensionInAnyCase) {
    for (const char* extension : {"doc", "docx", "xls", "xlsx", "ppt", "pptx", "pdf", "txt", "mp4", "avi", "wmv",
                                  "webm", "jpeg", "png", "bmp", "jpg", "dwg", "DWG", "Jpeg"})
        EXPECT_TRUE(upload(QString("report.") + extension)) << extension;
    const std::size_t accepted = files.size();
    for (const char* name : {"notes.rtf", "report", "pdf", "report.pdf.exe", "report.pdf ", "report.", "a.ｐｄｆ"}) {
        EXPECT_FALSE(upload(name)) << name;
        EXPECT_THAT(shown, ElementsAre(kChoose, L"文件格式不支持，请重新选择文件"));
    }
    EXPECT_THAT(files, SizeIs(accepted));
}

TEST_F(LocalFilesTest, SizesCountInWholeMiB) {
    EXPECT_TRUE(upload("a.mp4", 0));
    EXPECT_TRUE(upload("a.mp4", 500 * kMiB));
    EXPECT_TRUE(upload("a.mp4", 501 * kMiB - 1));
    EXPECT_FALSE(upload("a.mp4", 501 * kMiB));
    EXPECT_THAT(shown, ElementsAre(kChoose, L"请上传500M以内的文件"));
    EXPECT_FALSE(upload("a.rtf", 501 * kMiB));
    EXPECT_THAT(shown, ElementsAre(kChoose, L"文件格式不支持，请重新选择文件"));
}

TEST_F(LocalFilesTest, EveryFailureLeavesTheListAsItWas) {
    for (const auto& none : {std::optional<std::wstring>(), std::optional<std::wstring>(L"")}) {
        chosen = none;
        EXPECT_FALSE(upload());
        EXPECT_THAT(shown, ElementsAre(kChoose));
    }
    result = {false, L"已取消", 7, L"u", L"m"};
    EXPECT_FALSE(upload("a.pdf"));
    EXPECT_THAT(shown, ElementsAre(kChoose, kProgress, L"upload " + *chosen, L"closed", L"文件上传失败:已取消"));
    throws = true;
    EXPECT_FALSE(upload("a.pdf"));
    EXPECT_EQ(shown.back(), L"closed");
    host.managers.erase(BASECORE::NAMES::kFileUpload);
    EXPECT_FALSE(upload("a.pdf"));
    EXPECT_THAT(shown, ElementsAre(kChoose, kProgress, L"closed"));
    host.managers[BASECORE::NAMES::kFileUpload] = &object;  // registered, but not what the name promises
    EXPECT_FALSE(upload("a.pdf"));
    EXPECT_THAT(files, ElementsAre(testing::Field(&UploadedFileRecord::id, L"before")));
    BASEUI::SetFileDialogHandler([](const CFileDialog&) -> std::optional<std::wstring> { throw std::bad_alloc(); });
    EXPECT_FALSE(upload());
    EXPECT_THAT(shown, IsEmpty());
}

}  // namespace
