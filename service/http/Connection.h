#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/serializer.hpp>
#include <boost/beast/http/string_body.hpp>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "service/http/Dispatcher.h"

namespace disclosure {

/// What one connection may cost.
struct ConnectionLimits {
    std::uint32_t header = 16 * 1024;
    std::uint64_t body = 1024ULL * 1024;
    std::chrono::milliseconds idle{75'000};        // between two requests
    std::chrono::milliseconds headerTime{10'000};  // from a request's first byte to the end of its header
    std::chrono::milliseconds bodyTime{30'000};
    std::chrono::milliseconds writeTime{30'000};
    std::chrono::milliseconds pieceTime{30'000};  // of the content of a file, in either direction
};

/// One client's connection: reads a request, has it answered, writes the answer, and so on. The contents of files pass
/// through it piece by piece, the next once the last is done with. Keeps itself alive while something is under way; all
/// of it runs on the stream's strand.
class Connection : public std::enable_shared_from_this<Connection> {
public:
    Connection(boost::asio::ip::tcp::socket socket, Dispatcher& dispatcher, const ConnectionLimits& limits);

    void start();
    /// Ends the connection after the request in hand, at once when there is none. From any thread.
    void drain();

private:
    using HeaderParser = boost::beast::http::request_parser<boost::beast::http::empty_body>;
    using Parser = boost::beast::http::request_parser<boost::beast::http::string_body>;
    using EmptyResponse = boost::beast::http::response<boost::beast::http::empty_body>;
    using Error = boost::beast::error_code;

    void awaitRequest();
    void onFirstBytes(Error error, std::size_t count);
    void readHeader();
    void onHeader(Error error);
    void continueThen(void (Connection::*next)());
    void readBody();
    void onRequest(Error error);
    void dispatch(Request request);
    void onReply(Reply reply);
    void refuse(Error error);
    void respond(Response response);
    void onWritten(Error error);
    void linger();
    void close();

    void receive();
    void fillPiece();
    void onPieceStored(std::optional<Response> refusal);
    void onUploaded(Response response);
    void sendContent(Response message);
    void readPiece();
    void onPieceRead(std::size_t count);

    /// What calls `next` with its argument on the strand, and keeps the I/O threads running until then.
    template <class Argument>
    std::function<void(Argument)> later(void (Connection::*next)(Argument));

    boost::beast::tcp_stream m_stream;
    Dispatcher& m_dispatcher;
    const ConnectionLimits& m_limits;
    std::string m_address;
    boost::beast::flat_buffer m_buffer;
    std::optional<HeaderParser> m_header;
    std::optional<Parser> m_parser;
    Response m_response;
    EmptyResponse m_empty;  // a 100, or the header before the content of a file
    std::optional<boost::beast::http::response_serializer<boost::beast::http::empty_body>> m_serializer;
    std::chrono::steady_clock::time_point m_lingerUntil;
    bool m_keepAlive = false;
    bool m_headOnly = false;  // the answer may have no body
    bool m_expectsContinue = false;
    bool m_idle = false;
    bool m_draining = false;

    Transfer m_transfer;
    std::uint64_t m_left = 0;  // of its bytes
    std::vector<char> m_piece;
    std::size_t m_filled = 0;
};

}  // namespace disclosure
