#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "sdk/basecore/ManagerNames.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"
#include "sdk/packages/disclosure/LastFailure.h"

namespace support {

/// A disclosure manager whose service is a list in memory. Notes every call on a catalog, and refuses on demand.
class FakeDisclosureMgr : public DISCLOSUREPACKAGE::IDisclosureManageMgr, public BASECORE::FRAME::CMgrObject {
public:
    FakeDisclosureMgr() : CMgrObject(BASECORE::NAMES::kDisclosure) {}

    std::vector<DISCLOSUREPACKAGE::CatalogRecord> catalogs;
    std::vector<std::wstring> calls;  // "save 名称 in parent", "delete id", ...
    std::wstring refused;             // the calls that begin so fail
    std::wstring unsaid;              // why they do where the host has not shown it; empty for a refusal
    QWidget* parent = nullptr;

    bool SaveCatalog(const DISCLOSUREPACKAGE::CatalogRecord& catalog) override {
        if (!accepts(L"save " + catalog.name + L" in " + catalog.parentId))
            return false;
        catalogs.push_back(catalog);
        if (catalog.id.empty())
            catalogs.back().id = L"given";
        return true;
    }
    bool ListCatalogs(std::vector<DISCLOSUREPACKAGE::CatalogRecord>& list, const std::wstring& deptId) override {
        if (!accepts(L"list" + deptId))
            return false;
        list.insert(list.end(), catalogs.begin(), catalogs.end());
        return true;
    }
    bool DeleteCatalog(const std::wstring& id) override {
        if (!accepts(L"delete " + id))
            return false;
        std::erase_if(catalogs, [&](const auto& catalog) { return catalog.id == id; });
        return true;
    }
    bool MoveCatalog(const std::wstring& id, int32_t offset) override {
        return accepts(L"move " + id + L" " + std::to_wstring(offset));
    }
    bool UpdateCatalog(const DISCLOSUREPACKAGE::CatalogRecord& catalog) override {
        return accepts(L"rename " + catalog.id + L" to " + catalog.name);
    }

    void SetParentWidget(QWidget* widget) override { parent = widget; }
    QWidget* GetParentWidget() override { return parent; }
    int WriteFunctionLog(const std::wstring& title, const std::wstring& path) override {
        calls.push_back(L"log " + title + L" " + path);
        return 0;
    }
    std::wstring GetCurDeptId() override { return L"dept"; }
    std::wstring GetCurDeptName() override { return L"一项目部"; }

    bool SaveTask(const DISCLOSUREPACKAGE::TaskRecord&) override { return false; }
    bool UpdateTask(const DISCLOSUREPACKAGE::TaskRecord&) override { return false; }
    bool MoveTaskToCatalog(const std::wstring&, const std::wstring&) override { return false; }
    bool BatchDeleteTasks(const std::vector<std::wstring>&) override { return false; }
    bool PageTasks(const DISCLOSUREPACKAGE::TaskQuery&, std::vector<DISCLOSUREPACKAGE::TaskRecord>&,
                   int32_t&) override {
        return false;
    }
    bool QueryPushConfig(const std::wstring&, DISCLOSUREPACKAGE::PushConfig&) override { return false; }
    bool SavePushConfig(const DISCLOSUREPACKAGE::PushConfig&) override { return false; }
    bool UpdatePushConfig(const DISCLOSUREPACKAGE::PushConfig&) override { return false; }
    bool ExportTasksToExcel(const std::vector<DISCLOSUREPACKAGE::TaskRecord>&, const std::wstring&) override {
        return false;
    }
    std::wstring GetLinkThumbnail(const DISCLOSUREPACKAGE::LinkRecord&) override { return {}; }
    bool FindCachedTask(const std::wstring&, DISCLOSUREPACKAGE::TaskRecord&) override { return false; }
    bool UploadLocalFiles(std::vector<DISCLOSUREPACKAGE::UploadedFileRecord>&) override { return false; }
    bool QueryTaskById(const std::wstring&, DISCLOSUREPACKAGE::TaskRecord&) override { return false; }

    /// A site's catalogs: 全部(2) / 土建(3) / 基础(4), 主体(0) and 全部 / 机电(5).
    void fill() {
        catalogs = {{L"all", L"全部", L"", 2, 0},
                    {L"civil", L"土建", L"all", 3, 0},
                    {L"mep", L"机电", L"all", 5, 1},
                    {L"base", L"基础", L"civil", 4, 0},
                    {L"frame", L"主体", L"civil", 0, 1}};
    }

protected:
    bool accepts(const std::wstring& call) {
        calls.push_back(call);
        return isAnswered(call);
    }
    bool isAnswered(const std::wstring& call) const {
        const bool fails = !refused.empty() && call.rfind(refused, 0) == 0;
        DISCLOSUREPACKAGE::SetLastFailure(!fails ? L"" : unsaid.empty() ? L"没有权限" : unsaid, unsaid.empty());
        return !fails;
    }
};

}  // namespace support
