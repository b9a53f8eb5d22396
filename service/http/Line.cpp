#include "service/http/Line.h"

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/redirect_error.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/serializer.hpp>
#include <boost/beast/http/write.hpp>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace disclosure {

namespace asio = boost::asio;
namespace http = boost::beast::http;

using Error = boost::system::error_code;

namespace {

constexpr std::size_t Chunk = 4096;
constexpr std::size_t LingerChunk = 16UL * 1024;
constexpr std::chrono::seconds LingerTime{2};
constexpr std::chrono::seconds LongestLinger{10};
// What the system takes of an answer before the client does. It tells of room again when half of that is gone, which is
// what a slow client must take to count as one that still reads.
constexpr int MostUnsent = 2 * static_cast<int>(Pace::Least);

}  // namespace

Line::Line(asio::ip::tcp::socket socket, std::size_t mostBuffered, std::chrono::milliseconds stall)
    : m_stream(std::move(socket)), m_buffer(mostBuffered), m_stall(stall) {
    Error ignored;
    m_stream.socket().set_option(asio::ip::tcp::no_delay(true), ignored);
    ::setsockopt(m_stream.socket().native_handle(), IPPROTO_TCP, TCP_NOTSENT_LOWAT, &MostUnsent, sizeof MostUnsent);
}

asio::awaitable<bool> Line::awaitBytes(std::chrono::milliseconds patience) {
    if (m_buffer.size() > 0)
        co_return true;
    m_stream.expires_after(patience);
    Error error;
    const std::size_t count =
        co_await m_stream.async_read_some(m_buffer.prepare(Chunk), asio::redirect_error(asio::use_awaitable, error));
    m_buffer.commit(count);
    co_return !error;
}

asio::awaitable<void> Line::read(std::span<char> into) {
    Pace pace = this->pace();
    const std::size_t known = asio::buffer_copy(asio::buffer(into.data(), into.size()), m_buffer.data());
    m_buffer.consume(known);
    into = into.subspan(known);
    while (!into.empty()) {
        const std::size_t count =
            co_await m_stream.async_read_some(asio::buffer(into.data(), into.size()), asio::use_awaitable);
        pace.moved(count);
        into = into.subspan(count);
    }
}

asio::awaitable<void> Line::write(const Response& response) {
    http::response_serializer<http::string_body> serializer(response);
    Pace pace = this->pace();
    while (!serializer.is_done())
        pace.moved(co_await http::async_write_some(m_stream, serializer, asio::use_awaitable));
}

asio::awaitable<void> Line::writeHeader(const Response& response) {
    const http::response<http::empty_body> header(response.base());
    http::response_serializer<http::empty_body> serializer(header);
    m_stream.expires_after(m_stall);
    co_await http::async_write_header(m_stream, serializer, asio::use_awaitable);
}

asio::awaitable<void> Line::write(std::span<const char> bytes) {
    Pace pace = this->pace();
    while (!bytes.empty()) {
        const std::size_t count =
            co_await m_stream.async_write_some(asio::buffer(bytes.data(), bytes.size()), asio::use_awaitable);
        pace.moved(count);
        bytes = bytes.subspan(count);
    }
}

asio::awaitable<void> Line::writeContinue() {
    co_await writeHeader(Response(http::status::continue_, 11));
}

asio::awaitable<void> Line::linger() {
    Error error;
    m_stream.socket().shutdown(asio::ip::tcp::socket::shutdown_send, error);
    const auto until = std::chrono::steady_clock::now() + LongestLinger;
    std::array<char, LingerChunk> unread{};
    while (!error && std::chrono::steady_clock::now() < until) {
        m_stream.expires_after(LingerTime);
        co_await m_stream.async_read_some(asio::buffer(unread), asio::redirect_error(asio::use_awaitable, error));
    }
}

void Line::close() noexcept {
    Error ignored;
    m_stream.socket().shutdown(asio::ip::tcp::socket::shutdown_both, ignored);
    m_stream.close();
}

}  // namespace disclosure
