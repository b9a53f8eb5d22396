#include "service/http/Connection.h"

#include <algorithm>
#include <boost/asio/buffer.hpp>
#include <boost/asio/dispatch.hpp>
#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/bind_handler.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/rfc7230.hpp>
#include <boost/beast/http/write.hpp>
#include <limits>

namespace disclosure {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;

namespace {

constexpr std::size_t Chunk = 4096;
constexpr std::size_t Piece = 256UL * 1024;
constexpr std::size_t LingerChunk = 64UL * 1024;
constexpr std::chrono::seconds LingerTime{2};
constexpr std::chrono::seconds LongestLinger{10};

/// Whether everybody agrees on where the body ends. The parser passes over codings it does not know, also where others
/// read them as chunked.
bool hasPlainFraming(const http::request_parser<http::empty_body>& parser) {
    const auto& header = parser.get();
    const auto codings = header.count(http::field::transfer_encoding);
    return codings == 0 ||
           (codings == 1 && beast::iequals(header[http::field::transfer_encoding], "chunked") && parser.chunked() &&
            header.version() >= 11 && header.count(http::field::content_length) == 0);
}

}  // namespace

Connection::Connection(asio::ip::tcp::socket socket, Dispatcher& dispatcher, const ConnectionLimits& limits)
    : m_stream(std::move(socket)), m_dispatcher(dispatcher), m_limits(limits) {
    Error error;
    m_address = m_stream.socket().remote_endpoint(error).address().to_string();
    m_stream.socket().set_option(asio::ip::tcp::no_delay(true), error);
}

void Connection::start() {
    asio::dispatch(m_stream.get_executor(), beast::bind_front_handler(&Connection::awaitRequest, shared_from_this()));
}

void Connection::drain() {
    asio::post(m_stream.get_executor(), [self = shared_from_this()] {
        self->m_draining = true;
        if (self->m_idle)
            self->close();
    });
}

void Connection::awaitRequest() {
    if (m_draining) {
        close();
        return;
    }
    if (m_buffer.size() > 0) {
        readHeader();
        return;
    }
    m_idle = true;
    m_stream.expires_after(m_limits.idle);
    m_stream.async_read_some(m_buffer.prepare(Chunk),
                             beast::bind_front_handler(&Connection::onFirstBytes, shared_from_this()));
}

void Connection::onFirstBytes(Error error, std::size_t count) {
    m_idle = false;
    if (error) {
        close();
        return;
    }
    m_buffer.commit(count);
    readHeader();
}

void Connection::readHeader() {
    m_parser.reset();
    m_header.emplace();
    m_header->header_limit(m_limits.header);
    // How long the body may be depends on what is asked for, which the header says.
    m_header->body_limit(std::numeric_limits<std::uint64_t>::max());
    m_left = 0;
    m_keepAlive = false;
    m_headOnly = false;
    m_stream.expires_after(m_limits.headerTime);
    http::async_read_header(m_stream, m_buffer, *m_header,
                            [self = shared_from_this()](Error error, std::size_t) { self->onHeader(error); });
}

void Connection::onHeader(Error error) {
    if (error) {
        refuse(error);
        return;
    }
    if (!hasPlainFraming(*m_header)) {
        refuse(http::error::bad_transfer_encoding);
        return;
    }
    const auto& header = m_header->get();
    m_expectsContinue = beast::iequals(header[http::field::expect], "100-continue");
    Request request(header.base());
    const auto length = m_header->content_length();
    if (m_dispatcher.isUpload(request)) {
        m_keepAlive = m_header->keep_alive() && !m_header->chunked();
        m_left = length.value_or(0);
        dispatch(std::move(request));
    } else if (length && *length > m_limits.body) {
        refuse(http::error::body_limit);
    } else {
        m_parser.emplace(std::move(*m_header));
        m_parser->body_limit(m_limits.body);
        continueThen(&Connection::readBody);
    }
}

/// Lets a client that waits for leave send its body, and goes on.
void Connection::continueThen(void (Connection::*next)()) {
    if (!m_expectsContinue) {
        (this->*next)();
        return;
    }
    m_empty = EmptyResponse(http::status::continue_, 11);
    m_stream.expires_after(m_limits.writeTime);
    http::async_write(m_stream, m_empty, [self = shared_from_this(), next](Error error, std::size_t) {
        if (error)
            self->close();
        else
            ((*self).*next)();
    });
}

void Connection::readBody() {
    m_stream.expires_after(m_limits.bodyTime);
    http::async_read(m_stream, m_buffer, *m_parser,
                     [self = shared_from_this()](Error error, std::size_t) { self->onRequest(error); });
}

void Connection::onRequest(Error error) {
    if (error) {
        refuse(error);
        return;
    }
    m_keepAlive = m_parser->keep_alive();
    m_headOnly = m_parser->get().method() == http::verb::head;
    dispatch(m_parser->release());
}

template <class Argument>
std::function<void(Argument)> Connection::later(void (Connection::*next)(Argument)) {
    return [self = shared_from_this(), guard = asio::make_work_guard(m_stream.get_executor()),
            next](Argument argument) {
        asio::post(guard.get_executor(),
                   [self, next, argument = std::move(argument)]() mutable { ((*self).*next)(std::move(argument)); });
    };
}

void Connection::dispatch(Request request) {
    m_stream.expires_never();
    m_dispatcher.dispatch(std::move(request), m_address, later(&Connection::onReply));
}

void Connection::onReply(Reply reply) {
    if (reply.file.upload) {
        m_transfer = std::move(reply.file);
        m_piece.resize(Piece);
        continueThen(&Connection::receive);
    } else if (reply.file.content) {
        m_left = reply.file.contentSize;
        m_transfer = std::move(reply.file);
        sendContent(std::move(reply.message));
    } else {
        // What a refused upload's body would hold must not be taken for the next request.
        m_keepAlive = m_keepAlive && m_left == 0;
        respond(std::move(reply.message));
    }
}

/// Begins the next piece of an upload.
void Connection::receive() {
    m_filled = 0;
    m_stream.expires_after(m_limits.pieceTime);
    fillPiece();
}

void Connection::fillPiece() {
    const auto room = static_cast<std::size_t>(std::min<std::uint64_t>(m_piece.size() - m_filled, m_left));
    const std::size_t count = asio::buffer_copy(asio::buffer(m_piece.data() + m_filled, room), m_buffer.data());
    m_buffer.consume(count);
    m_filled += count;
    m_left -= count;
    if (m_left == 0 || m_filled == m_piece.size()) {
        m_stream.expires_never();
        m_dispatcher.write(m_transfer.upload, {m_piece.data(), m_filled}, later(&Connection::onPieceStored));
        return;
    }
    m_stream.async_read_some(asio::buffer(m_piece.data() + m_filled, room - count),
                             [self = shared_from_this()](Error error, std::size_t read) {
                                 self->m_filled += read;
                                 self->m_left -= read;
                                 if (error)
                                     self->close();
                                 else
                                     self->fillPiece();
                             });
}

void Connection::onPieceStored(std::optional<Response> refusal) {
    if (refusal) {
        m_keepAlive = m_keepAlive && m_left == 0;
        m_dispatcher.abandon(std::move(m_transfer.upload));
        respond(std::move(*refusal));
    } else if (m_left > 0) {
        receive();
    } else {
        m_dispatcher.finish(std::move(m_transfer.upload), later(&Connection::onUploaded));
    }
}

void Connection::onUploaded(Response response) {
    respond(std::move(response));
}

void Connection::sendContent(Response message) {
    m_piece.resize(Piece);
    m_keepAlive = m_keepAlive && !m_draining;
    m_empty = EmptyResponse(message.base());
    m_empty.keep_alive(m_keepAlive);
    m_empty.content_length(m_left);
    m_serializer.emplace(m_empty);
    m_stream.expires_after(m_limits.writeTime);
    http::async_write_header(m_stream, *m_serializer, [self = shared_from_this()](Error error, std::size_t) {
        if (error)
            self->close();
        else
            self->readPiece();
    });
}

void Connection::readPiece() {
    if (m_left == 0) {
        onWritten({});
        return;
    }
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(m_piece.size(), m_left));
    m_stream.expires_never();
    m_dispatcher.read(m_transfer.content, {m_piece.data(), count}, later(&Connection::onPieceRead));
}

void Connection::onPieceRead(std::size_t count) {
    // Less than was announced: only the end of the connection can tell the client.
    if (count == 0) {
        close();
        return;
    }
    m_left -= count;
    m_stream.expires_after(m_limits.pieceTime);
    asio::async_write(m_stream, asio::buffer(m_piece.data(), count),
                      [self = shared_from_this()](Error error, std::size_t) {
                          if (error)
                              self->close();
                          else
                              self->readPiece();
                      });
}

/// Answers what could not be read as a request, where there is somebody left to hear it.
void Connection::refuse(Error error) {
    m_keepAlive = false;
    if (error == http::error::header_limit)
        respond(answerTo(HttpError(http::status::request_header_fields_too_large, "请求头过大")));
    else if (error == http::error::body_limit)
        respond(answerTo(HttpError(http::status::payload_too_large, "请求内容过大")));
    else if (error.category() == http::make_error_code(http::error::bad_method).category() &&
             error != http::error::end_of_stream && error != http::error::partial_message)
        respond(answerTo(HttpError(http::status::bad_request, "请求无效")));
    else
        close();
}

void Connection::respond(Response response) {
    m_keepAlive = m_keepAlive && !m_draining;
    m_response = std::move(response);
    m_response.keep_alive(m_keepAlive);
    if (m_headOnly)
        m_response.body().clear();
    m_response.prepare_payload();
    m_stream.expires_after(m_limits.writeTime);
    http::async_write(m_stream, m_response,
                      [self = shared_from_this()](Error error, std::size_t) { self->onWritten(error); });
}

void Connection::onWritten(Error error) {
    m_transfer = {};
    m_piece = {};
    if (error) {
        close();
    } else if (m_keepAlive) {
        awaitRequest();
    } else {
        m_stream.socket().shutdown(asio::ip::tcp::socket::shutdown_send, error);
        m_lingerUntil = std::chrono::steady_clock::now() + LongestLinger;
        linger();
    }
}

/// Reads on for a moment, and a while longer as long as something comes: closing with bytes unread would make the
/// client lose the answer.
void Connection::linger() {
    if (std::chrono::steady_clock::now() > m_lingerUntil) {
        close();
        return;
    }
    m_buffer.clear();
    m_stream.expires_after(LingerTime);
    m_stream.async_read_some(m_buffer.prepare(LingerChunk), [self = shared_from_this()](Error error, std::size_t) {
        if (error)
            self->close();
        else
            self->linger();
    });
}

void Connection::close() {
    if (m_transfer.upload)
        m_dispatcher.abandon(std::move(m_transfer.upload));
    m_transfer = {};
    Error ignored;
    m_stream.socket().shutdown(asio::ip::tcp::socket::shutdown_both, ignored);
    m_stream.close();
}

}  // namespace disclosure
