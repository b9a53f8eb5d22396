#include <algorithm>
#include <locale>

#include "plugin/service/CDisclosureManageMgr.h"
#include "plugin/service/ServiceCall.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/basetools/File.h"
#include "sdk/basetools/Uuid.h"
#include "sdk/baseui/FileDialog.h"
#include "sdk/baseui/MessageBox.h"
#include "sdk/baseui/ProgressDialog.h"
#include "sdk/packages/IKpxFileUploadMgr.h"
#include "sdk/packages/disclosure/DocumentLimits.h"

// The operations on files of the local disk.
namespace DISCLOSUREPACKAGE {
namespace {

constexpr int64_t kMiB = 1048576;
constexpr int32_t kFromLocalDisk = 1;

bool IsAllowed(std::wstring extension) {
    const std::locale locale;
    for (wchar_t& character : extension)
        character = std::tolower(character, locale);
    return std::any_of(kDocumentExtensions.begin(), kDocumentExtensions.end(),
                       [&](const wchar_t* allowed) { return extension == allowed; });
}

/// False without a word where the host has no upload manager.
bool Upload(const std::wstring& path, BASEPACKAGE::UploadResult& result) {
    const BIMScrollBar::ProgressScope progress(L"处理状态", L"正在上传资料，请稍后...");
    auto* host = BASECORE::FRAME::LookupManager<BASEPACKAGE::IKpxFileUploadMgr>(BASECORE::NAMES::kFileUpload);
    if (!host)
        return false;
    BASEPACKAGE::UploadRequest request;
    request.path = path;
    host->Upload(request, result, nullptr, 0);
    return true;
}

}  // namespace

bool CDisclosureManageMgr::UploadLocalFiles(std::vector<UploadedFileRecord>& files) {
    return Quietly(false, [&] {
        CFileDialog dialog(true, {}, {}, CFileDialog::kHideReadOnly, L"全部文件 | *.*||");
        if (dialog.DoModal() != CFileDialog::Result::Ok || dialog.GetPathName().empty())
            return false;
        const std::wstring& path = dialog.GetPathName();
        const std::wstring extension = BASETOOLS::GetFileExtion(path);
        if (!IsAllowed(extension)) {
            BASEUI::ShowMessageBox(L"文件格式不支持，请重新选择文件");
            return false;
        }
        if (BASETOOLS::GetFileSize(path) / kMiB > kMostDocumentMiB) {
            BASEUI::ShowMessageBox(L"请上传500M以内的文件");
            return false;
        }
        BASEPACKAGE::UploadResult result;
        if (!Upload(path, result))
            return false;
        if (!result.success) {
            BASEUI::ShowMessageBox(L"文件上传失败:" + result.message);
            return false;
        }
        files.push_back({.ppid = 0,
                         .id = BASETOOLS::GenerateUUID(),
                         .name = dialog.GetFileName(),
                         .uuid = result.uuid,
                         .md5 = result.md5,
                         .size = result.size,
                         .extension = extension,
                         .sourceType = kFromLocalDisk});
        return true;
    });
}

}  // namespace DISCLOSUREPACKAGE
