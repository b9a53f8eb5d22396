#pragma once

#include <boost/asio.hpp>
#include <chrono>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace support {

/// An HTTP server on loopback that answers scripted bytes, whatever they are, and keeps what it was asked. Runs on a
/// thread of its own from construction to destruction.
class RawHttpServer {
public:
    struct Request {
        std::string method;
        std::string target;  // path and query as sent
        std::string head;    // the header lines, each ended by CR LF
        std::string body;

        /// The value of the header `name` (any case); empty when there is none.
        std::string header(const std::string& name) const { return headerOf(head, name); }
    };

    struct Answer {
        std::string bytes;   // none at all: the client is left waiting
        bool close = false;  // ends the connection after the bytes
        std::chrono::milliseconds delay{0};
    };

    /// A complete answer with its length; `headers` are further lines, each ended by CR LF.
    static Answer text(const std::string& statusLine, const std::string& headers, const std::string& body) {
        return {"HTTP/1.1 " + statusLine + "\r\n" + headers + "Content-Length: " + std::to_string(body.size()) +
                "\r\n\r\n" + body};
    }
    static Answer json(const std::string& body, const std::string& statusLine = "200 OK") {
        return text(statusLine, "Content-Type: application/json\r\n", body);
    }

    RawHttpServer() : m_acceptor(m_io, {boost::asio::ip::address_v4::loopback(), 0}) {
        accept();
        m_thread = std::thread([this] { m_io.run(); });
    }
    ~RawHttpServer() {
        m_io.stop();
        m_thread.join();
    }
    RawHttpServer(const RawHttpServer&) = delete;
    RawHttpServer& operator=(const RawHttpServer&) = delete;

    /// "127.0.0.1:port".
    std::string address() const { return "127.0.0.1:" + std::to_string(m_acceptor.local_endpoint().port()); }

    /// Queues the answer to one request; the last one queued answers all that follow.
    RawHttpServer& then(Answer answer) {
        const std::lock_guard lock(m_mutex);
        m_answers.push_back(std::make_shared<const Answer>(std::move(answer)));
        return *this;
    }
    /// The requests so far, complete ones only.
    std::vector<Request> requests() const {
        const std::lock_guard lock(m_mutex);
        return m_requests;
    }
    /// Forgets answers and requests.
    void reset() {
        const std::lock_guard lock(m_mutex);
        m_answers.clear();
        m_requests.clear();
    }

private:
    using Socket = boost::asio::ip::tcp::socket;
    using Error = boost::system::error_code;

    static std::string headerOf(const std::string& head, const std::string& name) {
        for (std::size_t at = 0; at < head.size();) {
            const std::size_t end = head.find("\r\n", at);
            const std::string line = head.substr(at, end - at);
            const std::size_t colon = line.find(':');
            const auto same = [](char a, char b) { return std::tolower(a) == std::tolower(b); };
            if (colon == name.size() && std::equal(name.begin(), name.end(), line.begin(), same)) {
                const std::size_t value = line.find_first_not_of(' ', colon + 1);
                return value == std::string::npos ? std::string() : line.substr(value);
            }
            at = end == std::string::npos ? head.size() : end + 2;
        }
        return {};
    }

    struct Connection : std::enable_shared_from_this<Connection> {
        Connection(RawHttpServer& owner, Socket connected)
            : server(owner), socket(std::move(connected)), timer(socket.get_executor()) {}

        void readHead() {
            boost::asio::async_read_until(socket, boost::asio::dynamic_buffer(buffer), "\r\n\r\n",
                                          [self = shared_from_this()](const Error& error, std::size_t size) {
                                              if (!error)
                                                  self->readBody(size);
                                          });
        }
        void readBody(std::size_t headSize) {
            const std::string head = buffer.substr(0, headSize - 2);
            buffer.erase(0, headSize);
            const std::size_t line = head.find("\r\n");
            const std::size_t first = head.find(' ');
            const std::size_t second = head.find(' ', first + 1);
            request = {head.substr(0, first), head.substr(first + 1, second - first - 1), head.substr(line + 2), {}};
            const std::string length = request.header("Content-Length");
            bodySize = length.empty() ? 0 : std::stoul(length);
            const std::size_t missing = bodySize > buffer.size() ? bodySize - buffer.size() : 0;
            boost::asio::async_read(socket, boost::asio::dynamic_buffer(buffer), boost::asio::transfer_exactly(missing),
                                    [self = shared_from_this()](const Error& error, std::size_t) {
                                        if (!error)
                                            self->answer();
                                    });
        }
        void answer() {
            request.body = buffer.substr(0, bodySize);
            buffer.erase(0, bodySize);
            current = server.take(std::move(request));
            if (current->bytes.empty())
                return readHead();
            timer.expires_after(current->delay);
            timer.async_wait([self = shared_from_this()](const Error&) { self->write(); });
        }
        void write() {
            boost::asio::async_write(socket, boost::asio::buffer(current->bytes),
                                     [self = shared_from_this()](const Error& error, std::size_t) {
                                         if (!error && !self->current->close)
                                             self->readHead();
                                     });
        }

        RawHttpServer& server;
        Socket socket;
        boost::asio::steady_timer timer;
        std::string buffer;
        Request request;
        std::size_t bodySize = 0;
        std::shared_ptr<const Answer> current;
    };

    void accept() {
        m_acceptor.async_accept([this](const Error& error, Socket socket) {
            if (error)
                return;
            socket.set_option(boost::asio::ip::tcp::no_delay(true));
            std::make_shared<Connection>(*this, std::move(socket))->readHead();
            accept();
        });
    }

    std::shared_ptr<const Answer> take(Request request) {
        const std::lock_guard lock(m_mutex);
        m_requests.push_back(std::move(request));
        if (m_answers.empty())
            return std::make_shared<const Answer>(text("500 Unscripted", {}, {}));
        auto answer = m_answers.front();
        if (m_answers.size() > 1)
            m_answers.pop_front();
        return answer;
    }

    boost::asio::io_context m_io;
    boost::asio::ip::tcp::acceptor m_acceptor;
    mutable std::mutex m_mutex;
    std::deque<std::shared_ptr<const Answer>> m_answers;
    std::vector<Request> m_requests;
    std::thread m_thread;
};

}  // namespace support
