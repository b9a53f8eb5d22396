#include <cpprest/http_client.h>
#include <gtest/gtest.h>
#include <sstream>

#include "client/api/ApiClient.h"
#include "client/api/ApiException.h"
#include "client/model/JsonBody.h"
#include "client/model/ModelBase.h"
#include "tests/support/RawHttpServer.h"

namespace {

using namespace io::swagger::client::api;
using namespace io::swagger::client::model;
using support::RawHttpServer;
using Texts = ApiClient::Texts;

class ApiClientTest : public testing::Test {
protected:
    ApiClientTest() : configuration(std::make_shared<ApiConfiguration>()), client(configuration) {
        configuration->setBaseUrl("http://" + server.address() + "/rs");
        server.then(RawHttpServer::text("204 No Content", {}, {}));
    }

    RawHttpServer::Request send(const std::string& method, const Texts& query, std::shared_ptr<IHttpBody> body,
                                const Texts& headers, const Texts& form, const ApiClient::Files& files,
                                const std::string& type) {
        client.callApi("/a/b", method, query, body, headers, form, files, type).get();
        return server.requests().back();
    }

    std::string refusal(std::shared_ptr<IHttpBody> body, const Texts& form, const ApiClient::Files& files,
                        const std::string& type) {
        try {
            send("POST", {}, std::move(body), {}, form, files, type);
        } catch (const ApiException& failure) {
            return std::to_string(failure.error_code().value()) + " " + failure.what();
        }
        return "sent";
    }

    RawHttpServer server;
    std::shared_ptr<ApiConfiguration> configuration;
    ApiClient client;
    const Texts fields{{"a", "1"}, {"名", "x&y=z"}};
};

TEST_F(ApiClientTest, RefusesContradictingArguments) {
    const auto body = std::make_shared<JsonBody>(web::json::value::object());
    const ApiClient::Files files{{"f", ModelBase::toHttpContent("f", std::string("data"))}};
    EXPECT_EQ(refusal(body, fields, {}, media::kJson), "400 Cannot have body and form params");
    EXPECT_EQ(refusal(body, fields, files, media::kMultipart), "400 Cannot have body and form params");
    EXPECT_EQ(refusal(body, {}, files, media::kMultipart), "400 Cannot have body and file params");
    EXPECT_EQ(refusal(nullptr, fields, files, media::kForm),
              "400 Operations with file parameters must be called with multipart/form-data");
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(ApiClientTest, SendsHeadersAndQueryInMapOrder) {
    configuration->getDefaultHeaders()["Cookie"] = "JSESSIONID=";
    const auto request =
        send("GET", {{"b", ""}, {"a", "1 &=+%/?#二"}}, nullptr, {{"Accept", "text/x"}}, {}, {}, media::kJson);
    EXPECT_EQ(request.target, "/rs/a/b?a=1%20%26%3D%2B%25/?%23%E4%BA%8C&b=");
    EXPECT_EQ(request.header("Cookie"), "JSESSIONID=");
    EXPECT_EQ(request.header("Accept"), "text/x");
    EXPECT_EQ(request.body, "");
    EXPECT_EQ(request.header("Content-Type"), "");
}

TEST_F(ApiClientTest, MakesTheBodyThatTheTypeAsksFor) {
    auto request = send("POST", {}, nullptr, {}, fields, {}, media::kJson);
    EXPECT_EQ(request.body, R"({"a":"1","名":"x&y=z"})");
    EXPECT_EQ(request.header("Content-Type"), "application/json");
    EXPECT_EQ(send("POST", {}, nullptr, {}, {}, {}, media::kJson).body, "{}");

    request = send("POST", {}, nullptr, {}, fields, {}, media::kForm);
    EXPECT_EQ(request.body, "a=1&%E5%90%8D=x%26y%3Dz");
    EXPECT_EQ(request.header("Content-Type"), "application/x-www-form-urlencoded; charset=utf-8");

    request = send("POST", {}, nullptr, {}, {{"a", "1"}},
                   {{"f", ModelBase::toHttpContent("x", std::string("\0\xff", 2), "image/png")}, {"none", nullptr}},
                   media::kMultipart);
    const std::string type = request.header("Content-Type");
    ASSERT_EQ(type.rfind("multipart/form-data; boundary=", 0), 0u) << type;
    const std::string line = "\r\n--" + type.substr(30);
    EXPECT_EQ(request.body, line + "\r\nContent-Disposition: form-data; name=\"a\"\r\n\r\n1" + line +
                                "\r\nContent-Disposition: form-data; name=\"f\"\r\nContent-Type: image/png\r\n\r\n" +
                                std::string("\0\xff", 2) + line + "--\r\n");
}

}  // namespace
