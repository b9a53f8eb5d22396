#pragma once

#include <algorithm>
#include <cctype>

#include "service/http/OpenApi.h"
#include "service/http/Route.h"
#include "tests/service/TestService.h"

namespace disclosure::testing {

inline std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

/// A real answer has the form that the description has for its operation and status, which is not any form.
inline void expectDescribed(const std::string& method, const std::string& target, const Answer& answer) {
    static const OpenApi description;
    std::string path = target.substr(0, target.find('?'));
    for (const Route& route : routes()) {
        if (route.path.back() == '}' && route.matches(path) && to_string(route.method) == method)
            path = route.path;
    }
    const auto schema = description.answerSchema(path, lower(method), std::to_string(answer.status));
    ASSERT_TRUE(schema) << path << " " << answer.status;
    rapidjson::SchemaValidator validator(*schema);
    EXPECT_TRUE(answer.json().Accept(validator)) << path << " " << answer.body;
    validator.Reset();
    rapidjson::Document wrong;
    wrong.Parse(R"({"code":200,"success":true,"msg":"","result":7})");
    EXPECT_FALSE(wrong.Accept(validator)) << path << ": the schema lets anything pass";
}

}  // namespace disclosure::testing
