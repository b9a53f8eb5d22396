#pragma once

#include "client/api/ControllerApi.h"
#include "client/model/CatalogModels.h"
#include "client/model/ResponseEntities.h"

namespace io::swagger::client::api {

/// The service's catalogs: listing, saving, renaming, moving, deleting.
class DisclosureCatalogControllerApi : public ControllerApi {
public:
    using ControllerApi::ControllerApi;

    pplx::task<std::shared_ptr<model::ResponseEntityResultState>> deleteDisclosureCatalog(
        const std::shared_ptr<model::DisclosureCatalogDelRequest>& disclosureCatalogDelRequest) const;
    pplx::task<std::shared_ptr<model::ResponseEntityListDisclosureCatalogResponse>> listDisclosureCatalogByDeptId(
        const utility::string_t& deptId) const;
    pplx::task<std::shared_ptr<model::ResponseEntityResultState>> moveDisclosureCatalog(
        const std::shared_ptr<model::DisclosureCatalogMoveRequest>& disclosureCatalogMoveRequest) const;
    pplx::task<std::shared_ptr<model::ResponseEntityResultState>> saveDisclosureCatalog(
        const std::shared_ptr<model::DisclosureCatalogSaveRequest>& disclosureCatalogSaveRequest) const;
    pplx::task<std::shared_ptr<model::ResponseEntityResultState>> updateDisclosureCatalog(
        const std::shared_ptr<model::DisclosureCatalogUpdateRequest>& disclosureCatalogUpdateRequest) const;
};

}  // namespace io::swagger::client::api
