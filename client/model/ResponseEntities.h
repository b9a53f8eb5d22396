#pragma once

#include <exception>

#include "client/model/CatalogModels.h"
#include "client/model/CommonModels.h"
#include "client/model/TaskResponseModels.h"

namespace io::swagger::client::model {

/// What the service wraps every answer in; `code` 200 means success. Whatever `result` is, the code can be judged.
template <class Result>
class ResponseEntity : public Model {
    MODEL_FIELD(int32_t, code, Code)
    MODEL_FIELD(bool, success, Success)
    MODEL_FIELD(utility::string_t, msg, Msg)
    MODEL_FIELD(Result, result, Result)

public:
    /// Throws a `web::json::json_exception` where a result came that is not a `Result`.
    void checkResult() const {
        if (m_fault)
            std::rethrow_exception(m_fault);
    }

private:
    void read(FieldBase& field, web::json::value& val) override {
        if (&field != &m_result)
            return Model::read(field, val);
        m_fault = nullptr;
        try {
            m_result.fromJson(val);
        } catch (const web::json::json_exception&) {
            m_result.unset();
            m_fault = std::current_exception();
        }
    }

    std::exception_ptr m_fault;
};

using ResponseEntityBoolean = ResponseEntity<bool>;
using ResponseEntityResultState = ResponseEntity<std::shared_ptr<ResultState>>;
using ResponseEntityListDisclosureCatalogResponse = ResponseEntity<ListOf<DisclosureCatalogResponse>>;
using ResponseEntityDisclosureTaskResponse = ResponseEntity<std::shared_ptr<DisclosureTaskResponse>>;
using ResponseEntityDisclosureTaskPushConfigResponse =
    ResponseEntity<std::shared_ptr<DisclosureTaskPushConfigResponse>>;
using ResponseEntityListDisclosureTaskOperationLogResponse = ResponseEntity<ListOf<DisclosureTaskOperationLogResponse>>;
using ResponseEntityQueryCondition4DisclosureTaskResponse =
    ResponseEntity<std::shared_ptr<QueryCondition4DisclosureTaskResponse>>;
using ResponseEntityQueryCondition4DisclosureTaskRsponse =  // spelled so
    ResponseEntity<std::shared_ptr<QueryCondition4DisclosureTaskRsponse>>;
using ResponseEntityQueryResultDisclosureTask4StatusResponse =
    ResponseEntity<std::shared_ptr<QueryResultDisclosureTask4StatusResponse>>;
using ResponseEntityQueryResultDisclosureTaskResponse =
    ResponseEntity<std::shared_ptr<QueryResultDisclosureTaskResponse>>;

}  // namespace io::swagger::client::model
