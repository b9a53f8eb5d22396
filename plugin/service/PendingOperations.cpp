#include "plugin/service/CDisclosureManageMgr.h"

// The operations that are still to be built; each moves to the file of its group when it is.
namespace DISCLOSUREPACKAGE {
namespace {

bool NotOffered(IDisclosureManageMgr& manager, const std::wstring& action) {
    manager.WriteFunctionLog(action, L"技术→交底管理→" + action + L"：尚未提供");
    return false;
}

}  // namespace

bool CDisclosureManageMgr::ExportTasksToExcel(const std::vector<TaskRecord>&, const std::wstring&) {
    return NotOffered(*this, L"导出交底任务");
}

std::wstring CDisclosureManageMgr::GetLinkThumbnail(const LinkRecord&) {
    NotOffered(*this, L"查看关联缩略图");
    return {};
}

}  // namespace DISCLOSUREPACKAGE
