#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QCryptographicHash>
#include <QHostAddress>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>

namespace support {

/// A HTTP server on loopback that answers what a test scripts. It runs on a thread of its own, so that a test may block
/// in the client. Each connection serves one request.
class ScriptedServer {
public:
    struct Request {
        std::string method;
        std::string target;                          // path and query
        std::map<std::string, std::string> headers;  // names in lower case
        std::string body;                            // of a long one the beginning
        qint64 received = 0;                         // bytes of the body
        std::string md5;                             // of the whole body, in hexadecimal
    };

    enum class Fault { None, NeverAnswers, HalfBody, ClosesAtOnce };

    struct Reply {
        int status = 200;
        std::string body = {};
        std::string contentType = "application/json; charset=utf-8";
        std::vector<std::string> headers = {};  // "Name: value"
        int delayMs = 0;
        Fault fault = Fault::None;
        std::string raw = {};  // sent instead of everything above
    };

    using Handler = std::function<Reply(const Request&)>;
    /// Called whenever more of a body has come; a reply is sent before the rest is read.
    using EarlyHandler = std::function<std::optional<Reply>(const Request&)>;

    explicit ScriptedServer(Handler handler) : m_handler(std::move(handler)) { start(0); }
    ~ScriptedServer() { stop(); }
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;

    /// "127.0.0.1:port"; stays the same over `stop` and `restart`.
    QString address() const { return QString("127.0.0.1:%1").arg(m_port); }

    void setHandler(Handler handler) {
        const std::lock_guard lock(m_mutex);
        m_handler = std::move(handler);
    }
    void setEarlyHandler(EarlyHandler handler) {
        const std::lock_guard lock(m_mutex);
        m_earlyHandler = std::move(handler);
    }
    /// Those that were answered.
    std::vector<Request> requests() const {
        const std::lock_guard lock(m_mutex);
        return m_requests;
    }

    void stop() {
        m_thread.quit();
        m_thread.wait();
    }
    void restart() { start(m_port); }

private:
    static constexpr qint64 kReadAtOnce = 256LL * 1024;
    static constexpr qint64 kKept = 1024LL * 1024;

    void start(quint16 port) {
        auto* server = new QTcpServer;
        server->listen(QHostAddress::LocalHost, port);
        m_port = server->serverPort();
        server->moveToThread(&m_thread);
        QObject::connect(&m_thread, &QThread::finished, server, &QObject::deleteLater);
        QObject::connect(server, &QTcpServer::newConnection, server, [this, server] {
            while (QTcpSocket* socket = server->nextPendingConnection()) {
                QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
                socket->setReadBufferSize(kReadAtOnce);  // who is not read from cannot go on sending
                QObject::connect(
                    socket, &QTcpSocket::readyRead, socket,
                    [this, socket, connection = std::make_shared<Connection>()] { read(*socket, *connection); });
            }
        });
        m_thread.start();
    }

    struct Connection {
        Request request;
        QByteArray head;
        bool hasHead = false;
        qint64 length = 0;
        QCryptographicHash hash{QCryptographicHash::Md5};
        bool isAnswered = false;
        bool isStuck = false;
        // Those at its beginning: what is left of a request that its client gave up is none of the next handler's.
        Handler handler;
        EarlyHandler earlyHandler;
    };

    void read(QTcpSocket& socket, Connection& connection) {
        Request& request = connection.request;
        while (socket.bytesAvailable() > 0 && !connection.isStuck) {
            QByteArray bytes = socket.readAll();
            if (!connection.hasHead) {
                connection.head += bytes;
                const int headEnd = connection.head.indexOf("\r\n\r\n");
                if (headEnd < 0)
                    continue;
                bytes = connection.head.mid(headEnd + 4);
                readHead(connection, connection.head.left(headEnd));
            }
            request.received += bytes.size();
            connection.hash.addData(bytes);
            request.body.append(bytes.constData(),
                                static_cast<std::size_t>(std::clamp<qint64>(
                                    kKept - static_cast<qint64>(request.body.size()), 0, bytes.size())));
            decide(socket, connection);
        }
    }

    void readHead(Connection& connection, const QByteArray& head) {
        {
            const std::lock_guard lock(m_mutex);
            connection.handler = m_handler;
            connection.earlyHandler = m_earlyHandler;
        }
        Request& request = connection.request;
        const QList<QByteArray> lines = head.split('\n');
        const QList<QByteArray> first = lines.first().split(' ');
        request.method = first.value(0).toStdString();
        request.target = first.value(1).toStdString();
        for (const QByteArray& line : lines.mid(1)) {
            const int colon = line.indexOf(':');
            request.headers[line.left(colon).toLower().toStdString()] = line.mid(colon + 1).trimmed().toStdString();
        }
        connection.length = QByteArray::fromStdString(request.headers["content-length"]).toLongLong();
        connection.hasHead = true;
    }

    /// Answers once the request is whole, or earlier where the test wants that.
    void decide(QTcpSocket& socket, Connection& connection) {
        if (connection.isAnswered)
            return;
        Request& request = connection.request;
        const bool isWhole = request.received >= connection.length;
        std::optional<Reply> reply = connection.earlyHandler ? connection.earlyHandler(request) : std::nullopt;
        if (!reply && !isWhole)
            return;
        request.md5 = connection.hash.result().toHex().toStdString();
        {
            const std::lock_guard lock(m_mutex);
            m_requests.push_back(request);
        }
        if (!reply)
            reply = connection.handler(request);
        connection.isAnswered = true;
        connection.isStuck = !isWhole && reply->fault == Fault::NeverAnswers;
        // Closing with bytes unread would take the answer back: then it is for the client to close.
        const bool mayClose = isWhole || reply->fault == Fault::ClosesAtOnce;
        QTimer::singleShot(reply->delayMs, &socket, [&socket, reply = *reply, mayClose] {
            answer(socket, reply);
            if (mayClose && reply.fault != Fault::NeverAnswers)
                socket.disconnectFromHost();
        });
    }

    static void answer(QTcpSocket& socket, const Reply& reply) {
        if (reply.fault == Fault::NeverAnswers)
            return;
        if (reply.fault != Fault::ClosesAtOnce) {
            std::string text = reply.raw;
            if (text.empty()) {
                text = "HTTP/1.1 " + std::to_string(reply.status) + " Scripted\r\nConnection: close\r\n";
                for (const std::string& header : reply.headers)
                    text += header + "\r\n";
                if (!reply.contentType.empty())
                    text += "Content-Type: " + reply.contentType + "\r\n";
                text += "Content-Length: " + std::to_string(reply.body.size()) + "\r\n\r\n";
                text += reply.fault == Fault::HalfBody ? reply.body.substr(0, reply.body.size() / 2) : reply.body;
            }
            socket.write(text.data(), static_cast<qint64>(text.size()));
        }
    }

    QThread m_thread;
    quint16 m_port = 0;
    mutable std::mutex m_mutex;
    Handler m_handler;                // guarded by m_mutex
    EarlyHandler m_earlyHandler;      // guarded by m_mutex
    std::vector<Request> m_requests;  // guarded by m_mutex
};

}  // namespace support
