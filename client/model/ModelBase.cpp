#include "client/model/ModelBase.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace io::swagger::client::model {
namespace {

using utility::string_t;

constexpr utility::char_t kContentDisposition[] = _XPLATSTR("ContentDisposition");
constexpr utility::char_t kContentType[] = _XPLATSTR("ContentType");
constexpr utility::char_t kFileName[] = _XPLATSTR("FileName");
constexpr utility::char_t kInputStream[] = _XPLATSTR("InputStream");
constexpr utility::char_t kBase64[] = _XPLATSTR("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");

std::string bytesOf(const HttpContent& content) {
    std::ostringstream bytes;
    content.writeTo(bytes);
    return bytes.str();
}

/// `text` as a whole read by one of the std::sto... functions.
template <class Read>
auto readNumber(const string_t& text, Read read) {
    std::size_t end = 0;
    const auto number = read(text, &end);
    if (end != text.size())
        throw std::invalid_argument("not a number");
    return number;
}

/// `val` as the whole number it is, whether written as 200 or as 2e2.
template <class Int>
Int wholeNumber(const web::json::value& val) {
    if (val.is_null())
        return 0;
    const auto& number = val.as_number();
    if (number.is_int64() && std::in_range<Int>(number.to_int64()))
        return static_cast<Int>(number.to_int64());
    const double real = number.to_double();
    // The greatest number itself may have no double; the one behind it always has.
    constexpr auto kLowest = static_cast<double>(std::numeric_limits<Int>::min());
    if (!number.is_integral() && real >= kLowest && real < -kLowest && real == std::trunc(real))
        return static_cast<Int>(real);
    throw web::json::json_exception("not a whole number in range");
}

string_t memberText(const web::json::value& object, const string_t& key) {
    return object.has_field(key) ? ModelBase::stringFromJson(object.at(key)) : string_t();
}

}  // namespace

web::json::value ModelBase::toJson(const utility::datetime& value) {
    return web::json::value::string(value.to_string(utility::datetime::ISO_8601));
}

web::json::value ModelBase::toJson(const std::shared_ptr<HttpContent>& value) {
    if (!value)
        return web::json::value::null();
    auto object = web::json::value::object(true);
    object[kContentDisposition] = toJson(value->getContentDisposition());
    object[kContentType] = toJson(value->getContentType());
    object[kFileName] = toJson(value->getFileName());
    object[kInputStream] = web::json::value::string(toBase64(bytesOf(*value)));
    return object;
}

string_t ModelBase::stringFromJson(const web::json::value& val) {
    return val.is_null() ? string_t() : val.as_string();
}

utility::datetime ModelBase::dateFromJson(const web::json::value& val) {
    return val.is_null() ? utility::datetime()
                         : utility::datetime::from_string(val.as_string(), utility::datetime::ISO_8601);
}

int32_t ModelBase::int32FromJson(const web::json::value& val) {
    return wholeNumber<int32_t>(val);
}

int64_t ModelBase::int64FromJson(const web::json::value& val) {
    return wholeNumber<int64_t>(val);
}

std::shared_ptr<HttpContent> ModelBase::httpContentFromJson(const web::json::value& val) {
    auto content = std::make_shared<HttpContent>();
    if (val.is_null())
        return content;
    content->setContentDisposition(memberText(val, kContentDisposition));
    content->setContentType(memberText(val, kContentType));
    content->setFileName(memberText(val, kFileName));
    content->setData(std::make_shared<std::istringstream>(fromBase64(memberText(val, kInputStream))));
    return content;
}

ModelBase::Content ModelBase::toHttpContent(const string_t& name, const string_t& value, const string_t& contentType) {
    auto content = std::make_shared<HttpContent>();
    content->setName(name);
    content->setContentDisposition(_XPLATSTR("form-data"));
    content->setContentType(contentType);
    content->setData(std::make_shared<std::istringstream>(utility::conversions::to_utf8string(value)));
    return content;
}

ModelBase::Content ModelBase::toHttpContent(const string_t& name, const utility::datetime& value,
                                            const string_t& contentType) {
    return toHttpContent(name, value.to_string(utility::datetime::ISO_8601), contentType);
}

ModelBase::Content ModelBase::toHttpContent(const string_t& name, int32_t value, const string_t& contentType) {
    return toHttpContent(name, toJson(value).serialize(), contentType);
}

ModelBase::Content ModelBase::toHttpContent(const string_t& name, int64_t value, const string_t& contentType) {
    return toHttpContent(name, toJson(value).serialize(), contentType);
}

ModelBase::Content ModelBase::toHttpContent(const string_t& name, double value, const string_t& contentType) {
    return toHttpContent(name, toJson(value).serialize(), contentType);
}

ModelBase::Content ModelBase::toHttpContent(const string_t& name, bool value, const string_t& contentType) {
    return toHttpContent(name, toJson(value).serialize(), contentType);
}

ModelBase::Content ModelBase::toHttpContent(const string_t& name, const Content& value, const string_t& contentType) {
    auto content = std::make_shared<HttpContent>(*value);
    content->setName(name);
    content->setContentDisposition(_XPLATSTR("form-data"));
    if (!contentType.empty())
        content->setContentType(contentType);
    return content;
}

string_t ModelBase::stringFromHttpContent(const Content& val) {
    return utility::conversions::to_string_t(bytesOf(*val));
}

utility::datetime ModelBase::dateFromHttpContent(const Content& val) {
    return utility::datetime::from_string(stringFromHttpContent(val), utility::datetime::ISO_8601);
}

int32_t ModelBase::int32FromHttpContent(const Content& val) {
    return readNumber(stringFromHttpContent(val),
                      [](const string_t& text, std::size_t* end) -> int32_t { return std::stoi(text, end); });
}

int64_t ModelBase::int64FromHttpContent(const Content& val) {
    return readNumber(stringFromHttpContent(val),
                      [](const string_t& text, std::size_t* end) -> int64_t { return std::stoll(text, end); });
}

double ModelBase::doubleFromHttpContent(const Content& val) {
    return readNumber(stringFromHttpContent(val),
                      [](const string_t& text, std::size_t* end) { return std::stod(text, end); });
}

bool ModelBase::boolFromHttpContent(const Content& val) {
    const string_t text = stringFromHttpContent(val);
    if (text != _XPLATSTR("true") && text != _XPLATSTR("false"))
        throw std::invalid_argument("neither true nor false");
    return text == _XPLATSTR("true");
}

string_t ModelBase::toBase64(const std::string& bytes) {
    return utility::conversions::to_base64(std::vector<unsigned char>(bytes.begin(), bytes.end()));
}

std::string ModelBase::fromBase64(const string_t& text) {
    const std::size_t end = std::min(text.find('='), text.size());
    const std::size_t padding = text.size() - end;
    if (text.size() % 4 != 0 || padding > 2 || text.find_first_not_of('=', end) != string_t::npos)
        throw std::runtime_error("Invalid Padding in Base 64!");
    if (text.find_first_not_of(kBase64) < end)
        throw std::runtime_error("Non-Valid Character in Base 64!");
    // Each padding sign leaves two bits of the last character unused; the library refuses them in words of its own.
    if (padding > 0 && string_t(kBase64).find(text[end - 1]) % (std::size_t{1} << 2 * padding) != 0)
        throw std::runtime_error("Invalid Padding in Base 64!");
    const auto bytes = utility::conversions::from_base64(text);
    return std::string(bytes.begin(), bytes.end());
}

}  // namespace io::swagger::client::model
