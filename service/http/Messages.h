#pragma once

#include <boost/beast/http/message.hpp>
#include <boost/beast/http/string_body.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "service/domain/Refusal.h"
#include "service/http/HttpError.h"
#include "service/http/Json.h"

namespace disclosure {

using Request = boost::beast::http::request<boost::beast::http::string_body>;
using Response = boost::beast::http::response<boost::beast::http::string_body>;

/// Beast's views are of a kind of their own.
inline std::string_view viewOf(boost::beast::string_view text) {
    return {text.data(), text.size()};
}

class FileReader;
class Upload;

/// A file on its way, in one of both directions; none when both are null.
struct Transfer {
    std::shared_ptr<FileReader> content = {};  // the answer's body
    std::uint64_t contentSize = 0;
    std::shared_ptr<Upload> upload = {};  // leave to send the body, instead of an answer
    std::string username = {};            // whose it is
    std::shared_ptr<void> place = {};     // among the transfers under way; given back with the last copy
};

/// What a request comes to: an answer, whose body may be the content of a file; or first leave to send an upload's
/// body.
struct Reply {
    Response message;
    Transfer file = {};
};

/// An answer with these bytes and the headers every answer has.
Response answerWith(boost::beast::http::status status, const char* contentType, std::string body);

/// The one form of everything that is not a success: {code, success: false, msg, result}, where the result is null
/// but for a refusal with numbers.
Response answerTo(const HttpError& error);
Response answerTo(const Refusal& refusal);
/// To be called while an exception is being handled: the one place that turns a failure into an answer. `what` is for
/// the log.
Response answerToFailure(std::string_view what) noexcept;
/// Too much is waiting or under way, here or in the database.
Response answerBusy();

/// Wraps what `writeResult` writes, exactly one JSON value, as a success.
template <class WriteResult>
std::string wrapped(WriteResult&& writeResult) {
    JsonBuffer buffer;
    JsonWriter writer(buffer);
    writer.StartObject();
    write(writer, "code", 200);
    write(writer, "success", true);
    write(writer, "msg", "");
    writer.Key("result");
    std::forward<WriteResult>(writeResult)(writer);
    writer.EndObject();
    return {buffer.GetString(), buffer.GetSize()};
}

}  // namespace disclosure
