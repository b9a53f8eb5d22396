#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include "tests/service/Described.h"

namespace disclosure::testing {
namespace {

TEST(OpenApiDocument, DescribesExactlyTheRoutes) {
    const OpenApi description;
    std::set<std::string> described;
    for (const auto& path : description.document()["paths"].GetObject()) {
        for (const auto& operation : path.value.GetObject())
            described.insert(std::string(operation.name.GetString()) + " " + path.name.GetString());
    }
    std::set<std::string> served;
    for (const Route& route : routes())
        served.insert(lower(std::string(boost::beast::http::to_string(route.method))) + " " + std::string(route.path));
    EXPECT_EQ(described, served);
}

TEST(OpenApiDocument, IsServedAsItStands) {
    std::ifstream file(SOURCE_ROOT "/docs/openapi.yaml");
    std::stringstream text;
    text << file.rdbuf();
    TestService service;
    EXPECT_EQ(service.client().get("/openapi.yaml").body, text.str());
}

/// Those who ask for nothing; the others are in the table of rights.
TEST(OpenApiDocument, AnswersWithoutASessionAreAsDescribed) {
    TestService service;
    Client client = service.client();
    for (const char* path : {"/healthz", "/readyz"})
        expectDescribed("GET", path, client.get(path));
    const std::string path = "/rs/auth/login";
    for (const auto& [body, status] : {std::pair{object({{"username", "demo"}, {"password", "no"}}), 401},
                                       {object({{"username", "demo"}}), 400},
                                       {object({{"username", "demo"}, {"password", "demo"}}), 200}}) {
        const Answer answer = client.post(path, body);
        EXPECT_EQ(answer.status, status);
        expectDescribed("POST", path, answer);
    }
}

}  // namespace
}  // namespace disclosure::testing
