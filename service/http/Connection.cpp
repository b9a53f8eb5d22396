#include "service/http/Connection.h"

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/post.hpp>
#include <optional>
#include <spdlog/spdlog.h>

#include "service/http/CalledBack.h"
#include "service/http/Transfers.h"

namespace disclosure {

namespace asio = boost::asio;

namespace {

constexpr std::size_t BesidesHeader = 4096;  // what is read of a body with its header
constexpr auto ForwardedFor = "X-Forwarded-For";

}  // namespace

Connection::Connection(asio::ip::tcp::socket socket, Peer peer, Dispatcher& dispatcher, const Clients& clients,
                       const ConnectionLimits& limits, std::shared_ptr<void> place)
    : m_line(std::move(socket), limits.header + BesidesHeader, limits.stall),
      m_peer(std::move(peer)),
      m_dispatcher(dispatcher),
      m_clients(clients),
      m_limits(limits),
      m_place(std::move(place)) {}

void Connection::start() {
    asio::co_spawn(m_line.stream().get_executor(), serve(), [self = shared_from_this()](std::exception_ptr failure) {
        self->m_line.close();
        try {
            if (failure)
                std::rethrow_exception(failure);
        } catch (const boost::system::system_error&) {
            // The client has gone, or was too slow.
        } catch (const std::exception& error) {
            spdlog::error("connection: {}", error.what());
        }
    });
}

void Connection::drain() {
    asio::post(m_line.stream().get_executor(), [self = shared_from_this()] {
        self->m_draining = true;
        if (self->m_idle)
            self->m_line.close();
    });
}

asio::awaitable<void> Connection::serve() {
    for (;;) {
        if (m_draining)
            co_return;
        m_idle = true;
        const bool isAsked = co_await m_line.awaitBytes(m_limits.idle);
        m_idle = false;
        if (!isAsked)
            co_return;
        if (!co_await serveOne())
            break;
    }
    co_await m_line.linger();
}

/// Whether the connection is good for another one.
asio::awaitable<bool> Connection::serveOne() {
    RequestReader reader(m_line, m_limits);
    std::optional<Reply> reply;
    try {
        co_await reader.readHeader();
        reply.emplace(co_await replyTo(reader));
    } catch (const HttpError& error) {
        reply.emplace(Reply{answerTo(error)});
    }
    m_line.stream().expires_never();
    if (reply->file.upload) {
        // On a line of its own: what braces make around a co_await GCC 12 destroys twice.
        Response answer = co_await receiveUpload(m_line, reader, m_dispatcher, std::move(reply->file));
        reply.emplace(Reply{std::move(answer)});
    }
    const bool goesOn = reader.keepsAlive() && !m_draining;
    Response& message = reply->message;
    message.keep_alive(goesOn);
    if (reply->file.content) {
        co_await sendContent(m_line, m_dispatcher, std::move(message), std::move(reply->file));
        co_return goesOn;
    }
    if (reader.isHeadOnly())
        message.body().clear();
    message.prepare_payload();
    co_await m_line.write(message);
    co_return goesOn;
}

asio::awaitable<Reply> Connection::replyTo(RequestReader& reader) {
    Request header = reader.header();
    std::string client = clientOf(header);
    std::uint64_t most = m_limits.strangersBody;
    switch (m_dispatcher.bodyOf(header)) {
        case Dispatcher::Body::Apart:
            co_return co_await dispatched(std::move(header), std::move(client));
        case Dispatcher::Body::OfStranger:
            break;
        case Dispatcher::Body::OfSession:
            if (!reader.isWithin(most)) {
                auto admit = [&](std::function<void(std::optional<Response>)> done) {
                    m_dispatcher.admit(header, std::move(done));
                };
                if (auto refusal = co_await calledBack<std::optional<Response>>(admit))
                    co_return Reply{std::move(*refusal)};
            }
            most = m_limits.body;
            break;
    }
    Request request = co_await reader.readBody(most);
    co_return co_await dispatched(std::move(request), std::move(client));
}

asio::awaitable<Reply> Connection::dispatched(Request request, std::string client) {
    m_line.stream().expires_never();
    auto dispatch = [&](std::function<void(Reply)> done) {
        m_dispatcher.dispatch(std::move(request), std::move(client), std::move(done));
    };
    co_return co_await calledBack<Reply>(dispatch);
}

std::string Connection::clientOf(const Request& request) const {
    std::string hops;
    const auto [first, last] = request.equal_range(ForwardedFor);
    for (auto field = first; field != last; ++field)
        (hops += hops.empty() ? "" : ",").append(field->value().data(), field->value().size());
    return Clients::keyOf(m_clients.behind(m_peer, hops));
}

}  // namespace disclosure
