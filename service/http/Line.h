#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <chrono>
#include <cstdint>
#include <span>

#include "service/http/Awaitable.h"
#include "service/http/Messages.h"

namespace disclosure {

/// Cuts a stream off when less than `Least` bytes move within `time`: who is slow may be slow, who stands still may not
/// stay.
class Pace {
public:
    static constexpr std::size_t Least = 16UL * 1024;

    Pace(boost::beast::tcp_stream& stream, std::chrono::milliseconds time) : m_stream(stream), m_time(time) {
        m_stream.expires_after(m_time);
    }
    /// So much has moved; to be called between two operations.
    void moved(std::size_t bytes) {
        m_moved += bytes;
        if (m_moved < Least)
            return;
        m_moved = 0;
        m_stream.expires_after(m_time);
    }

private:
    boost::beast::tcp_stream& m_stream;
    std::chrono::milliseconds m_time;
    std::size_t m_moved = 0;
};

/// The line to one client: its stream, and what has come and is not used yet, of which there is a bounded amount. Used
/// on the stream's strand. Waiting throws boost::system::system_error once the line is gone or has been cut off.
class Line {
public:
    using Stream = boost::beast::tcp_stream;
    using Buffer = boost::beast::flat_buffer;

    Line(boost::asio::ip::tcp::socket socket, std::size_t mostBuffered, std::chrono::milliseconds stall);

    Stream& stream() { return m_stream; }
    Buffer& buffer() { return m_buffer; }
    Pace pace() { return {m_stream, m_stall}; }

    /// Waits until something has come; false when the client goes, or nothing comes for so long.
    boost::asio::awaitable<bool> awaitBytes(std::chrono::milliseconds patience);
    /// Reads until `into` is full.
    boost::asio::awaitable<void> read(std::span<char> into);

    boost::asio::awaitable<void> write(const Response& response);
    /// Only the header, for a body that follows.
    boost::asio::awaitable<void> writeHeader(const Response& response);
    boost::asio::awaitable<void> write(std::span<const char> bytes);
    /// Lets a client that waits for leave send its body.
    boost::asio::awaitable<void> writeContinue();

    /// Says that no more is written, and reads on for a moment, and a while longer as long as something comes: closing
    /// with bytes unread would make the client lose the answer.
    boost::asio::awaitable<void> linger();
    void close() noexcept;

private:
    Stream m_stream;
    Buffer m_buffer;
    std::chrono::milliseconds m_stall;
};

}  // namespace disclosure
