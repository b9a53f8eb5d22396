#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "service/http/Connection.h"

namespace disclosure {

/// Listens, accepts, and ends in good order.
class Server {
public:
    struct Settings {
        std::string host = "127.0.0.1";
        std::uint16_t port = 0;  // 0 takes a free one
        std::size_t ioThreads = 2;
        std::size_t mostConnections = 2000;
        std::size_t connectionsOfOne = 200;  // client; those of a proxy are not counted
        std::vector<std::string> proxies;    // whose word on where a request comes from is believed; see `Clients`
        ConnectionLimits limits;
        std::chrono::milliseconds drainTime{15'000};  // for requests in hand when it ends
    };

    /// Listens from now on. Throws when the address cannot be had.
    Server(Dispatcher& dispatcher, const Settings& settings);

    std::uint16_t port() const { return m_port; }
    /// SIGINT and SIGTERM stop it from now on, also before it runs.
    void stopAtSignals();
    /// Serves until `stop`.
    void run();
    /// Takes no more requests and lets `run` return when those in hand are answered, or have had the time they are
    /// given. From any thread.
    void stop();

private:
    void accept();
    void acceptLater();
    void onAccepted(boost::system::error_code error, boost::asio::ip::tcp::socket socket);
    void take(boost::asio::ip::tcp::socket socket);
    void serve();
    void drain();
    void awaitDrained();

    Settings m_settings;
    Clients m_clients;
    Shares m_connectionsOfOne;
    Dispatcher& m_dispatcher;
    boost::asio::io_context m_io;
    boost::asio::ip::tcp::acceptor m_acceptor;
    boost::asio::signal_set m_signals;
    boost::asio::steady_timer m_timer;
    std::uint16_t m_port = 0;
    bool m_accepting = false;  // this and what follows is touched on the acceptor's strand only
    bool m_draining = false;
    std::chrono::steady_clock::time_point m_deadline;
    std::vector<std::weak_ptr<Connection>> m_connections;
};

}  // namespace disclosure
