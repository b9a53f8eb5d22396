#include "service/http/Server.h"

#include <algorithm>
#include <boost/asio/post.hpp>
#include <boost/asio/strand.hpp>
#include <csignal>
#include <spdlog/spdlog.h>
#include <thread>

namespace disclosure {

namespace asio = boost::asio;
using asio::ip::tcp;

namespace {

constexpr std::chrono::milliseconds AcceptPause{100};
constexpr std::chrono::milliseconds DrainCheck{20};

}  // namespace

Server::Server(Dispatcher& dispatcher, const Settings& settings)
    : m_settings(settings),
      m_clients(settings.proxies),
      m_connectionsOfOne(settings.connectionsOfOne),
      m_dispatcher(dispatcher),
      m_io(static_cast<int>(settings.ioThreads)),
      m_acceptor(asio::make_strand(m_io)),
      m_signals(m_acceptor.get_executor()),
      m_timer(m_acceptor.get_executor()) {
    const tcp::endpoint endpoint =
        tcp::resolver(m_io).resolve(settings.host, std::to_string(settings.port)).begin()->endpoint();
    m_acceptor.open(endpoint.protocol());
    m_acceptor.set_option(tcp::acceptor::reuse_address(true));
    m_acceptor.bind(endpoint);
    m_acceptor.listen();
    m_port = m_acceptor.local_endpoint().port();
}

void Server::stopAtSignals() {
    m_signals.add(SIGINT);
    m_signals.add(SIGTERM);
    m_signals.async_wait([this](boost::system::error_code error, int) {
        if (!error)
            drain();
    });
}

void Server::run() {
    asio::post(m_acceptor.get_executor(), [this] { accept(); });
    std::vector<std::thread> threads;
    for (std::size_t i = 1; i < m_settings.ioThreads; ++i)
        threads.emplace_back([this] { serve(); });
    serve();
    for (std::thread& thread : threads)
        thread.join();
    // What was cut off at the deadline may still be at work, and will look for its connection.
    m_dispatcher.settle(m_deadline);
}

void Server::serve() {
    for (;;) {
        try {
            m_io.run();
            return;
        } catch (const std::exception& error) {
            // One connection's failure, as when memory runs out, must not end the others, nor that new ones come.
            spdlog::error("connection: {}", error.what());
            asio::post(m_acceptor.get_executor(), [this] {
                if (!m_accepting)
                    accept();
            });
        }
    }
}

void Server::stop() {
    asio::post(m_acceptor.get_executor(), [this] { drain(); });
}

void Server::accept() {
    if (m_draining)
        return;
    m_acceptor.async_accept(asio::make_strand(m_io), [this](boost::system::error_code error, tcp::socket socket) {
        m_accepting = false;
        onAccepted(error, std::move(socket));
    });
    m_accepting = true;
}

void Server::acceptLater() {
    m_timer.expires_after(AcceptPause);
    m_timer.async_wait([this](boost::system::error_code) {
        m_accepting = false;
        accept();
    });
    m_accepting = true;
}

void Server::onAccepted(boost::system::error_code error, tcp::socket socket) {
    if (m_draining)
        return;
    if (error) {
        // Out of descriptors, most likely: asking again at once would only burn the processor.
        spdlog::warn("accept: {}", error.message());
        acceptLater();
        return;
    }
    try {
        take(std::move(socket));
    } catch (const std::exception& failure) {
        spdlog::error("accept: {}", failure.what());
    }
    accept();
}

void Server::take(tcp::socket socket) {
    if (m_connections.size() >= m_settings.mostConnections)
        std::erase_if(m_connections, [](const auto& connection) { return connection.expired(); });
    boost::system::error_code error;
    const auto peer = socket.remote_endpoint(error).address();
    if (error || m_connections.size() >= m_settings.mostConnections)
        return;
    std::shared_ptr<void> place;
    if (!m_clients.isProxy(peer)) {
        place = m_connectionsOfOne.take(Clients::keyOf(peer));
        if (!place)
            return;
    }
    const auto connection = std::make_shared<Connection>(std::move(socket), peer, m_dispatcher, m_clients,
                                                         m_settings.limits, std::move(place));
    m_connections.push_back(connection);
    connection->start();
}

void Server::drain() {
    if (m_draining)
        return;
    m_draining = true;
    boost::system::error_code ignored;
    m_signals.cancel(ignored);
    m_acceptor.close(ignored);
    for (const auto& known : m_connections) {
        if (const auto connection = known.lock())
            connection->drain();
    }
    m_deadline = std::chrono::steady_clock::now() + m_settings.drainTime;
    awaitDrained();
}

/// A slow client may not hold up the end for long.
void Server::awaitDrained() {
    std::erase_if(m_connections, [](const auto& connection) { return connection.expired(); });
    if (m_connections.empty())
        return;
    if (std::chrono::steady_clock::now() >= m_deadline) {
        m_io.stop();
        return;
    }
    m_timer.expires_after(DrainCheck);
    m_timer.async_wait([this](boost::system::error_code) { awaitDrained(); });
}

}  // namespace disclosure
