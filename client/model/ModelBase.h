#pragma once

#include <cpprest/asyncrt_utils.h>
#include <cpprest/json.h>
#include <memory>
#include <string>
#include <vector>

#include "client/model/HttpContent.h"

namespace io::swagger::client::model {

class MultipartFormData;

/// A record of the service, and how single values are written and read. Slots are in a fixed order.
class ModelBase {
public:
    virtual ~ModelBase() = default;

    virtual void validate() = 0;
    /// An object of the fields that are set.
    virtual web::json::value toJson() const = 0;
    /// Sets the fields whose keys `val` has; throws a `web::json::json_exception` for a value of another type.
    virtual void fromJson(web::json::value& val) = 0;
    /// Adds one part for each field that is set, named `namePrefix` + "." + key.
    virtual void toMultipart(std::shared_ptr<MultipartFormData> multipart,
                             const utility::string_t& namePrefix) const = 0;
    virtual void fromMultiPart(std::shared_ptr<MultipartFormData> multipart, const utility::string_t& namePrefix) = 0;

    static web::json::value toJson(const utility::string_t& value) { return web::json::value::string(value); }
    static web::json::value toJson(const utility::char_t* value) = delete;  // would be taken for a bool
    static web::json::value toJson(const utility::datetime& value);
    static web::json::value toJson(int32_t value) { return web::json::value::number(value); }
    static web::json::value toJson(int64_t value) { return web::json::value::number(value); }
    static web::json::value toJson(double value) { return web::json::value::number(value); }
    static web::json::value toJson(bool value) { return web::json::value::boolean(value); }
    /// Null is written as JSON null.
    static web::json::value toJson(const std::shared_ptr<HttpContent>& value);

    // Null reads as the type's default; another type, a fraction or a number out of range throws a
    // `web::json::json_exception`.
    static utility::string_t stringFromJson(const web::json::value& val);
    static utility::datetime dateFromJson(const web::json::value& val);
    static int32_t int32FromJson(const web::json::value& val);
    static int64_t int64FromJson(const web::json::value& val);
    static double doubleFromJson(const web::json::value& val) { return val.is_null() ? 0.0 : val.as_double(); }
    static bool boolFromJson(const web::json::value& val) { return !val.is_null() && val.as_bool(); }
    static std::shared_ptr<HttpContent> httpContentFromJson(const web::json::value& val);

    using Content = std::shared_ptr<HttpContent>;
    static Content toHttpContent(const utility::string_t& name, const utility::string_t& value,
                                 const utility::string_t& contentType = {});
    static Content toHttpContent(const utility::string_t& name, const utility::char_t* value,
                                 const utility::string_t& contentType = {}) = delete;  // would be taken for a bool
    static Content toHttpContent(const utility::string_t& name, const utility::datetime& value,
                                 const utility::string_t& contentType = {});
    static Content toHttpContent(const utility::string_t& name, int32_t value,
                                 const utility::string_t& contentType = {});
    static Content toHttpContent(const utility::string_t& name, int64_t value,
                                 const utility::string_t& contentType = {});
    static Content toHttpContent(const utility::string_t& name, double value,
                                 const utility::string_t& contentType = {});
    static Content toHttpContent(const utility::string_t& name, bool value, const utility::string_t& contentType = {});
    /// The same file and data under another name; without a content type it keeps its own.
    static Content toHttpContent(const utility::string_t& name, const Content& value,
                                 const utility::string_t& contentType = {});

    // Throw `std::invalid_argument` or `std::out_of_range` for a text that is no such value.
    static utility::string_t stringFromHttpContent(const Content& val);
    static utility::datetime dateFromHttpContent(const Content& val);
    static int32_t int32FromHttpContent(const Content& val);
    static int64_t int64FromHttpContent(const Content& val);
    static double doubleFromHttpContent(const Content& val);
    static bool boolFromHttpContent(const Content& val);
    static Content httpContentFromHttpContent(const Content& val) { return val; }

    static utility::string_t toBase64(const std::string& bytes);
    /// Throws `std::runtime_error` for a text that is not Base64.
    static std::string fromBase64(const utility::string_t& text);
};

}  // namespace io::swagger::client::model
