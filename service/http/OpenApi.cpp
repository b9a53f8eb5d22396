#include "service/http/OpenApi.h"

#include <charconv>
#include <limits>
#include <stdexcept>
#include <yaml-cpp/yaml.h>

namespace disclosure {

namespace {

using Json = rapidjson::Value;
using Allocator = rapidjson::Document::AllocatorType;

constexpr int DeepestReference = 64;

Json text(const std::string& value, Allocator& memory) {
    return {value.data(), static_cast<rapidjson::SizeType>(value.size()), memory};
}

Json scalar(const YAML::Node& node, Allocator& memory) {
    const std::string& value = node.Scalar();
    if (node.Tag() != "?")  // quoted
        return text(value, memory);
    if (value == "true" || value == "false")
        return Json(value == "true");
    if (value == "null")
        return {};
    std::int64_t number = 0;
    const char* end = value.data() + value.size();
    if (!value.empty() && std::from_chars(value.data(), end, number).ptr == end)
        return Json(number);
    return text(value, memory);
}

/// Turns the tree into JSON with every "$ref" replaced by what it points to, since one schema is checked at a time.
class Converter {
public:
    Converter(YAML::Node root, Allocator& memory) : m_root(std::move(root)), m_memory(memory) {}

    Json convert(const YAML::Node& node, int depth = 0) {
        if (depth > DeepestReference)
            throw std::runtime_error("openapi.yaml: a reference leads back to itself");
        if (node.IsScalar())
            return scalar(node, m_memory);
        if (node.IsSequence()) {
            Json array(rapidjson::kArrayType);
            for (const auto& element : node)
                array.PushBack(convert(element, depth + 1), m_memory);
            return array;
        }
        if (!node.IsMap())
            return {};
        if (node["$ref"])
            return convert(target(node["$ref"].Scalar()), depth + 1);
        Json object(rapidjson::kObjectType);
        for (const auto& member : node)
            object.AddMember(text(member.first.Scalar(), m_memory), convert(member.second, depth + 1), m_memory);
        bound(object);
        return object;
    }

private:
    YAML::Node target(std::string reference) {
        YAML::Node node;
        node.reset(m_root);
        reference.erase(0, reference.find('/') + 1);
        while (!reference.empty()) {
            const auto slash = std::min(reference.find('/'), reference.size());
            const YAML::Node next = node[reference.substr(0, slash)];
            if (!next)
                throw std::runtime_error("openapi.yaml: a reference leads nowhere");
            node.reset(next);
            reference.erase(0, slash + 1);
        }
        return node;
    }

    /// The validator knows no formats, and a number that does not fit must not get past it.
    void bound(Json& schema) {
        const auto format = schema.FindMember("format");
        if (format == schema.MemberEnd() || !format->value.IsString())
            return;
        const bool wide = format->value == "int64";
        if (!wide && format->value != "int32")
            return;
        const auto put = [&](const char* key, std::int64_t value) {
            if (!schema.HasMember(key))
                schema.AddMember(Json(key, m_memory), Json(value), m_memory);
        };
        put("minimum", wide ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int32_t>::min());
        put("maximum", wide ? std::numeric_limits<std::int64_t>::max() : std::numeric_limits<std::int32_t>::max());
    }

    YAML::Node m_root;
    Allocator& m_memory;
};

const Json* member(const Json* object, const char* key) {
    if (!object || !object->IsObject())
        return nullptr;
    const auto found = object->FindMember(key);
    return found == object->MemberEnd() ? nullptr : &found->value;
}

std::unique_ptr<rapidjson::SchemaDocument> jsonSchemaOf(const Json* message) {
    const Json* schema = member(member(member(message, "content"), "application/json"), "schema");
    return schema ? std::make_unique<rapidjson::SchemaDocument>(*schema) : nullptr;
}

}  // namespace

OpenApi::OpenApi(std::string_view yaml) {
    const YAML::Node root = YAML::Load(std::string(yaml));
    Converter converter(root, m_document.GetAllocator());
    static_cast<Json&>(m_document) = converter.convert(root);
}

const Json* OpenApi::operation(const std::string& path, const std::string& method) const {
    return member(member(member(&m_document, "paths"), path.c_str()), method.c_str());
}

std::unique_ptr<rapidjson::SchemaDocument> OpenApi::bodySchema(const std::string& path,
                                                               const std::string& method) const {
    return jsonSchemaOf(member(operation(path, method), "requestBody"));
}

std::unique_ptr<rapidjson::SchemaDocument> OpenApi::answerSchema(const std::string& path, const std::string& method,
                                                                 const std::string& status) const {
    return jsonSchemaOf(member(member(operation(path, method), "responses"), status.c_str()));
}

}  // namespace disclosure
