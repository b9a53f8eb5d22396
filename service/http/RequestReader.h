#pragma once

#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <chrono>
#include <cstdint>

#include "service/http/Line.h"

namespace disclosure {

/// What reading a request may cost.
struct RequestLimits {
    std::uint32_t header = 16 * 1024;
    std::uint64_t body = 1024ULL * 1024;
    std::uint64_t strangersBody = 8ULL * 1024;     // before it is known whose request it is
    std::chrono::milliseconds headerTime{10'000};  // from a request's first byte to the end of its header
};

/// Reads one request off the line, first its header and then, when the header is found to be good enough for that, its
/// body. What cannot be read as a request is thrown as `HttpError`; the line is of no use for another one then.
class RequestReader {
public:
    RequestReader(Line& line, const RequestLimits& limits);

    boost::asio::awaitable<void> readHeader();
    /// The request without its body; not after `readBody`.
    Request header() const { return Request(m_header.get().base()); }
    /// Whether the answer may have no body.
    bool isHeadOnly() const { return m_headOnly; }
    /// Whether the header says that no more than so many bytes follow.
    bool isWithin(std::uint64_t bytes) const;
    /// What the header says; 0 where it says nothing.
    std::uint64_t length() const;

    /// Gives leave to a client that waits for it. To be called before what follows the header is read.
    boost::asio::awaitable<void> allowBody();
    /// The whole request.
    boost::asio::awaitable<Request> readBody(std::uint64_t most);

    /// Whether what comes next on the line, as far as it has been read, would be another request.
    bool keepsAlive() const { return m_keepsAlive; }
    /// The body has been read by somebody else, whole.
    void bodyIsRead() { m_keepsAlive = m_wantsMore; }

private:
    using HeaderParser = boost::beast::http::request_parser<boost::beast::http::empty_body>;
    using BodyParser = boost::beast::http::request_parser<boost::beast::http::string_body>;

    Line& m_line;
    const RequestLimits& m_limits;
    HeaderParser m_header;
    bool m_headOnly = false;
    bool m_wantsMore = false;  // the client, after this request
    bool m_keepsAlive = false;
};

}  // namespace disclosure
