#pragma once

#include <memory>
#include <rapidjson/document.h>
#include <rapidjson/schema.h>
#include <string>
#include <string_view>

namespace disclosure {

/// The text of docs/openapi.yaml, compiled in.
std::string_view openApiText();

/// The service's own description as JSON, so that what requests are checked against is what is published.
class OpenApi {
public:
    explicit OpenApi(std::string_view yaml = openApiText());

    const rapidjson::Document& document() const { return m_document; }
    /// The description of one operation; null when there is none. The method is in lower case.
    const rapidjson::Value* operation(const std::string& path, const std::string& method) const;
    /// The schema of the operation's body; null when it takes none.
    std::unique_ptr<rapidjson::SchemaDocument> bodySchema(const std::string& path, const std::string& method) const;
    /// The schema of the operation's answer under this status; null when none is described.
    std::unique_ptr<rapidjson::SchemaDocument> answerSchema(const std::string& path, const std::string& method,
                                                            const std::string& status) const;

private:
    rapidjson::Document m_document;
};

}  // namespace disclosure
