#include "service/http/Json.h"

#include <set>

#include "service/http/HttpError.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

constexpr int DeepestNesting = 16;

[[noreturn]] void malformed(const char* msg) {
    throw HttpError(boost::beast::http::status::bad_request, msg);
}

/// Looked at before parsing, since what walks the parsed document calls itself once per level.
bool nestsTooDeep(const std::string& text) {
    int depth = 0;
    bool inText = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inText) {
            if (c == '\\')
                ++i;
            else if (c == '"')
                inText = false;
        } else if (c == '"') {
            inText = true;
        } else if ((c == '{' || c == '[') && ++depth > DeepestNesting) {
            return true;
        } else if (c == '}' || c == ']') {
            --depth;
        }
    }
    return false;
}

std::string_view viewOf(const rapidjson::Value& text) {
    return {text.GetString(), text.GetStringLength()};
}

void checkText(const rapidjson::Value& text) {
    if (!isUtf8(viewOf(text)))
        malformed("请求内容不是有效的UTF-8文本");
    if (viewOf(text).find('\0') != std::string_view::npos)
        malformed("请求内容不能包含空字符");
}

void checkTexts(const rapidjson::Value& value) {
    if (value.IsString()) {
        checkText(value);
    } else if (value.IsArray()) {
        for (const auto& element : value.GetArray())
            checkTexts(element);
    } else if (value.IsObject()) {
        std::set<std::string_view> keys;
        for (const auto& member : value.GetObject()) {
            checkText(member.name);
            if (!keys.insert(viewOf(member.name)).second)
                malformed("请求内容有重复的字段");
            checkTexts(member.value);
        }
    }
}

}  // namespace

rapidjson::Document parsedJson(const std::string& body) {
    if (nestsTooDeep(body))
        malformed("请求内容嵌套过深");
    rapidjson::Document document;
    document.Parse<rapidjson::kParseValidateEncodingFlag | rapidjson::kParseFullPrecisionFlag>(body.data(),
                                                                                               body.size());
    if (document.HasParseError())
        malformed("请求内容不是有效的JSON");
    checkTexts(document);
    return document;
}

std::string textOf(const rapidjson::Value& object, const char* key) {
    const auto member = object.FindMember(key);
    return member == object.MemberEnd() ? std::string() : std::string(viewOf(member->value));
}

std::int32_t numberOf(const rapidjson::Value& object, const char* key, std::int32_t otherwise) {
    const auto member = object.FindMember(key);
    return member == object.MemberEnd() ? otherwise : member->value.GetInt();
}

std::optional<std::string> maybeText(const rapidjson::Value& object, const char* key) {
    if (!object.HasMember(key))
        return std::nullopt;
    return textOf(object, key);
}

std::optional<std::int64_t> maybeLong(const rapidjson::Value& object, const char* key) {
    const auto member = object.FindMember(key);
    if (member == object.MemberEnd())
        return std::nullopt;
    return member->value.GetInt64();
}

std::vector<std::string> textsOf(const rapidjson::Value& object, const char* key) {
    std::vector<std::string> texts;
    const auto member = object.FindMember(key);
    if (member != object.MemberEnd())
        for (const auto& text : member->value.GetArray())
            texts.emplace_back(text.GetString(), text.GetStringLength());
    return texts;
}

}  // namespace disclosure
