#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <chrono>
#include <memory>

#include "service/http/Awaitable.h"
#include "service/http/Clients.h"
#include "service/http/Dispatcher.h"
#include "service/http/Line.h"
#include "service/http/RequestReader.h"

namespace disclosure {

/// What one connection may cost.
struct ConnectionLimits : RequestLimits {
    std::chrono::milliseconds idle{75'000};   // between two requests
    std::chrono::milliseconds stall{30'000};  // while less than `Pace::Least` of a body or an answer moves
};

/// One client's connection: reads a request, has it answered, writes the answer, and so on. Keeps itself alive while
/// something is under way; all of it runs on the socket's strand.
class Connection : public std::enable_shared_from_this<Connection> {
public:
    using Peer = boost::asio::ip::address;

    /// The references must outlive the connection, which holds `place` as long as it lives.
    Connection(boost::asio::ip::tcp::socket socket, Peer peer, Dispatcher& dispatcher, const Clients& clients,
               const ConnectionLimits& limits, std::shared_ptr<void> place);

    void start();
    /// Ends the connection after the request in hand, at once when there is none. From any thread.
    void drain();

private:
    boost::asio::awaitable<void> serve();
    boost::asio::awaitable<bool> serveOne();
    boost::asio::awaitable<Reply> replyTo(RequestReader& reader);
    boost::asio::awaitable<Reply> dispatched(Request request, std::string client);
    std::string clientOf(const Request& request) const;

    Line m_line;
    Peer m_peer;
    Dispatcher& m_dispatcher;
    const Clients& m_clients;
    const ConnectionLimits& m_limits;
    std::shared_ptr<void> m_place;
    bool m_idle = false;
    bool m_draining = false;
};

}  // namespace disclosure
