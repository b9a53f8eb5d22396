#include "service/http/RequestReader.h"

#include <boost/asio/redirect_error.hpp>
#include <boost/beast/core/string.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/read.hpp>
#include <iterator>
#include <limits>

namespace disclosure {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;

using Error = boost::system::error_code;

namespace {

/// Whether everybody agrees on where the body ends. The parser passes over codings it does not know, also where others
/// read them as chunked, and over a length that is said twice.
bool hasPlainFraming(const http::request_parser<http::empty_body>& parser) {
    const auto& header = parser.get();
    const auto codings = header.count(http::field::transfer_encoding);
    const auto lengths = header.count(http::field::content_length);
    if (header.count(http::field::trailer) > 0)
        return false;
    if (codings == 0)
        return lengths == 0 ||
               (lengths == 1 && header[http::field::content_length].find(',') == beast::string_view::npos);
    return codings == 1 && lengths == 0 && header.version() >= 11 && parser.chunked() &&
           beast::iequals(header[http::field::transfer_encoding], "chunked");
}

std::size_t fieldsOf(const http::fields& fields) {
    return static_cast<std::size_t>(std::distance(fields.begin(), fields.end()));
}

/// Throws what the client is told of it, or the error itself where there is nobody left to hear.
[[noreturn]] void refuse(const Error& error) {
    if (error == http::error::header_limit)
        throw HttpError(http::status::request_header_fields_too_large, "请求头过大");
    if (error == http::error::body_limit)
        throw HttpError(http::status::payload_too_large, "请求内容过大");
    if (error.category() == http::make_error_code(http::error::bad_method).category() &&
        error != http::error::end_of_stream && error != http::error::partial_message)
        throw HttpError(http::status::bad_request, "请求无效");
    throw boost::system::system_error(error);
}

}  // namespace

RequestReader::RequestReader(Line& line, const RequestLimits& limits) : m_line(line), m_limits(limits) {
    m_header.header_limit(m_limits.header);
    // How long the body may be depends on what is asked for, which the header says.
    m_header.body_limit(std::numeric_limits<std::uint64_t>::max());
}

asio::awaitable<void> RequestReader::readHeader() {
    Error error;
    m_line.stream().expires_after(m_limits.headerTime);
    co_await http::async_read_header(m_line.stream(), m_line.buffer(), m_header,
                                     asio::redirect_error(asio::use_awaitable, error));
    m_headOnly = m_header.get().method() == http::verb::head;
    if (!error && !hasPlainFraming(m_header))
        error = http::error::bad_transfer_encoding;
    if (error)
        refuse(error);
    m_wantsMore = m_header.keep_alive();
    m_keepsAlive = m_wantsMore && isWithin(0);
}

std::uint64_t RequestReader::length() const {
    return m_header.content_length().value_or(0);
}

bool RequestReader::isWithin(std::uint64_t bytes) const {
    return !m_header.chunked() && length() <= bytes;
}

asio::awaitable<void> RequestReader::allowBody() {
    if (beast::iequals(m_header.get()[http::field::expect], "100-continue"))
        co_await m_line.writeContinue();
}

asio::awaitable<Request> RequestReader::readBody(std::uint64_t most) {
    if (!m_header.chunked() && length() > most)
        refuse(http::error::body_limit);
    co_await allowBody();
    const std::size_t fields = fieldsOf(m_header.get());
    BodyParser body(std::move(m_header));
    body.body_limit(most);
    body.eager(true);
    // Nobody needs them, and what they carry would be counted by nothing.
    auto noExtensions = [](std::uint64_t, beast::string_view extensions, Error& error) {
        if (!extensions.empty())
            error = http::error::bad_chunk_extension;
    };
    body.on_chunk_header(noExtensions);
    Pace pace = m_line.pace();
    while (!body.is_done()) {
        Error error;
        const std::size_t count = co_await http::async_read_some(m_line.stream(), m_line.buffer(), body,
                                                                 asio::redirect_error(asio::use_awaitable, error));
        pace.moved(count);
        if (error)
            refuse(error);
    }
    // Behind the body they would change a header that has been judged already.
    if (fieldsOf(body.get()) != fields)
        refuse(http::error::bad_field);
    m_keepsAlive = m_wantsMore;
    co_return body.release();
}

}  // namespace disclosure
