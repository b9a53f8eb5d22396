#include "client/api/DisclosureCatalogControllerApi.h"
#include "plugin/service/CDisclosureManageMgr.h"
#include "plugin/service/Perform.h"

namespace DISCLOSUREPACKAGE {

using namespace io::swagger::client::model;
using CatalogApi = io::swagger::client::api::DisclosureCatalogControllerApi;

bool CDisclosureManageMgr::SaveCatalog(const CatalogRecord& catalog) {
    return Perform<CatalogApi>(*this, &IDisclosureManageMgr::SaveCatalog, std::tie(catalog),
                               [&](const CatalogApi& api) {
                                   const auto request = std::make_shared<DisclosureCatalogSaveRequest>();
                                   request->setId(ToService(catalog.id));
                                   request->setDeptId(ToService(GetCurDeptId()));
                                   request->setName(ToService(catalog.name));
                                   request->setParentId(ToService(catalog.parentId));
                                   return Await(api.saveDisclosureCatalog(request)) != nullptr;
                               });
}

bool CDisclosureManageMgr::ListCatalogs(std::vector<CatalogRecord>& catalogs, const std::wstring& deptId) {
    const std::wstring dept = deptId.empty() ? GetCurDeptId() : deptId;
    if (dept.empty())
        return false;
    return Perform<CatalogApi>(
        *this, &IDisclosureManageMgr::ListCatalogs, std::tie(catalogs, dept), [&](const CatalogApi& api) {
            const auto answer = AwaitRead(api, api.listDisclosureCatalogByDeptId(ToService(dept)));
            if (!answer)
                return false;
            catalogs.reserve(catalogs.size() + answer->getResult().size());
            for (const auto& item : answer->getResult())
                if (item)
                    catalogs.push_back({FromService(item->getId()), FromService(item->getName()),
                                        FromService(item->getParentId()), item->getTaskNumber(), item->getSort()});
            return true;
        });
}

bool CDisclosureManageMgr::DeleteCatalog(const std::wstring& id) {
    if (id.empty())
        return false;
    return Perform<CatalogApi>(*this, &IDisclosureManageMgr::DeleteCatalog, std::tie(id), [&](const CatalogApi& api) {
        const auto request = std::make_shared<DisclosureCatalogDelRequest>();
        request->setId(ToService(id));
        request->setIsContainsTask(1);
        return Await(api.deleteDisclosureCatalog(request)) != nullptr;
    });
}

bool CDisclosureManageMgr::MoveCatalog(const std::wstring& id, int32_t offset) {
    if (id.empty())
        return false;
    return Perform<CatalogApi>(*this, &IDisclosureManageMgr::MoveCatalog, std::tie(id, offset),
                               [&](const CatalogApi& api) {
                                   const auto request = std::make_shared<DisclosureCatalogMoveRequest>();
                                   request->setId(ToService(id));
                                   request->setOffset(offset);
                                   return Await(api.moveDisclosureCatalog(request)) != nullptr;
                               });
}

bool CDisclosureManageMgr::UpdateCatalog(const CatalogRecord& catalog) {
    return Perform<CatalogApi>(*this, &IDisclosureManageMgr::UpdateCatalog, std::tie(catalog),
                               [&](const CatalogApi& api) {
                                   const auto request = std::make_shared<DisclosureCatalogUpdateRequest>();
                                   request->setId(ToService(catalog.id));
                                   request->setName(ToService(catalog.name));
                                   return Await(api.updateDisclosureCatalog(request)) != nullptr;
                               });
}

}  // namespace DISCLOSUREPACKAGE
