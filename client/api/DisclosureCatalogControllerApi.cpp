#include "client/api/DisclosureCatalogControllerApi.h"

namespace io::swagger::client::api {
namespace {
constexpr utility::char_t kCatalogController[] = _XPLATSTR("DisclosureCatalogControllerApi");
}

using namespace model;
using web::http::methods;

pplx::task<std::shared_ptr<ResponseEntityResultState>> DisclosureCatalogControllerApi::deleteDisclosureCatalog(
    const std::shared_ptr<DisclosureCatalogDelRequest>& disclosureCatalogDelRequest) const {
    return call<ResponseEntityResultState>(
        {kCatalogController, _XPLATSTR("deleteDisclosureCatalog"), methods::DEL,
         _XPLATSTR("/disclosure/catalog/delete")},
        Arguments().body(_XPLATSTR("disclosureCatalogDelRequest"), disclosureCatalogDelRequest));
}

pplx::task<std::shared_ptr<ResponseEntityListDisclosureCatalogResponse>>
DisclosureCatalogControllerApi::listDisclosureCatalogByDeptId(const utility::string_t& deptId) const {
    return call<ResponseEntityListDisclosureCatalogResponse>(
        {kCatalogController, _XPLATSTR("listDisclosureCatalogByDeptId"), methods::GET,
         _XPLATSTR("/disclosure/catalog/list_disclosure_catalog_by_deptid")},
        Arguments().query(_XPLATSTR("deptId"), deptId));
}

pplx::task<std::shared_ptr<ResponseEntityResultState>> DisclosureCatalogControllerApi::moveDisclosureCatalog(
    const std::shared_ptr<DisclosureCatalogMoveRequest>& disclosureCatalogMoveRequest) const {
    return call<ResponseEntityResultState>(
        {kCatalogController, _XPLATSTR("moveDisclosureCatalog"), methods::POST, _XPLATSTR("/disclosure/catalog/move")},
        Arguments().body(_XPLATSTR("disclosureCatalogMoveRequest"), disclosureCatalogMoveRequest));
}

pplx::task<std::shared_ptr<ResponseEntityResultState>> DisclosureCatalogControllerApi::saveDisclosureCatalog(
    const std::shared_ptr<DisclosureCatalogSaveRequest>& disclosureCatalogSaveRequest) const {
    return call<ResponseEntityResultState>(
        {kCatalogController, _XPLATSTR("saveDisclosureCatalog"), methods::POST, _XPLATSTR("/disclosure/catalog/save")},
        Arguments().body(_XPLATSTR("disclosureCatalogSaveRequest"), disclosureCatalogSaveRequest));
}

pplx::task<std::shared_ptr<ResponseEntityResultState>> DisclosureCatalogControllerApi::updateDisclosureCatalog(
    const std::shared_ptr<DisclosureCatalogUpdateRequest>& disclosureCatalogUpdateRequest) const {
    return call<ResponseEntityResultState>(
        {kCatalogController, _XPLATSTR("updateDisclosureCatalog"), methods::POST,
         _XPLATSTR("/disclosure/catalog/update")},
        Arguments().body(_XPLATSTR("disclosureCatalogUpdateRequest"), disclosureCatalogUpdateRequest));
}

}  // namespace io::swagger::client::api
