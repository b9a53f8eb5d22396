#pragma once

#include <cpprest/json.h>
#include <memory>
#include <vector>

#include "client/api/ApiClient.h"
#include "client/model/ModelBase.h"

namespace io::swagger::client::api {

/// One operation of the service: what is called, and which types of content it takes and gives.
struct Operation {
    utility::string_t controller;  // the class that offers it, for messages
    utility::string_t name;
    web::http::method method;
    utility::string_t path;  // with "{name}" for each path parameter
    std::vector<utility::string_t> consumes{media::kJson};
    std::vector<utility::string_t> produces{media::kJson};
};

/// What one call gives to its operation.
class Arguments {
public:
    template <class T>
    Arguments& path(const utility::string_t& name, const T& value) {
        m_path[name] = ApiClient::parameterToString(value);
        return *this;
    }
    template <class T>
    Arguments& query(const utility::string_t& name, const T& value) {
        m_query[name] = ApiClient::parameterToString(value);
        return *this;
    }
    /// A required body; null makes the call fail.
    Arguments& body(const utility::string_t& name, std::shared_ptr<const model::ModelBase> value);

private:
    friend class ControllerApi;

    ApiClient::Texts m_path;
    ApiClient::Texts m_query;
    utility::string_t m_bodyName;  // empty when the operation takes no body
    std::shared_ptr<const model::ModelBase> m_body;
};

/// Base of the controllers: how any operation of the service is called.
class ControllerApi {
public:
    explicit ControllerApi(std::shared_ptr<ApiClient> apiClient) : m_apiClient(std::move(apiClient)) {}

    /// Gives up what was called under the client's configuration.
    void cancelCalls() const { m_apiClient->getConfiguration()->cancelCalls(); }

protected:
    ~ControllerApi() = default;

    /// Calls the service and reads its answer as a `Result`. A call that cannot be made throws an `ApiException` at
    /// once, everything later comes out of the task: an answer that is no JSON of a `Result` as a
    /// `web::json::json_exception`.
    template <class Result>
    pplx::task<std::shared_ptr<Result>> call(const Operation& operation, const Arguments& arguments) const {
        return send(operation, arguments).then([](const utility::string_t& text) {
            auto answer = web::json::value::parse(text);
            auto result = std::make_shared<Result>();
            result->fromJson(answer);
            return result;
        });
    }

private:
    pplx::task<utility::string_t> send(const Operation& operation, const Arguments& arguments) const;

    std::shared_ptr<ApiClient> m_apiClient;
};

}  // namespace io::swagger::client::api
