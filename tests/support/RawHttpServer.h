#pragma once

#include <chrono>
#include <deque>

#include "tests/support/ScriptedServer.h"

namespace support {

/// A scripted server that answers a queue of bytes, whatever they are.
class RawHttpServer {
public:
    struct Request : ScriptedServer::Request {
        /// The value of the header `name` (any case); empty when there is none.
        std::string header(const std::string& name) const {
            const auto found = headers.find(QString::fromStdString(name).toLower().toStdString());
            return found == headers.end() ? std::string() : found->second;
        }
    };

    struct Answer {
        std::string bytes;  // none at all: the client is left waiting
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

    /// "127.0.0.1:port".
    std::string address() const { return m_server.address().toStdString(); }

    /// Queues the answer to one request; the last one queued answers all that follow.
    RawHttpServer& then(Answer answer) {
        const std::lock_guard lock(m_mutex);
        m_answers.push_back(std::move(answer));
        return *this;
    }
    /// The requests since the last `reset`.
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
    ScriptedServer::Reply take(const ScriptedServer::Request& request) {
        const std::lock_guard lock(m_mutex);
        m_requests.push_back({request});
        const Answer answer = m_answers.empty() ? text("500 Unscripted", {}, {}) : m_answers.front();
        if (m_answers.size() > 1)
            m_answers.pop_front();
        ScriptedServer::Reply reply;
        reply.raw = answer.bytes;
        reply.delayMs = static_cast<int>(answer.delay.count());
        reply.fault = answer.bytes.empty() ? ScriptedServer::Fault::NeverAnswers : ScriptedServer::Fault::None;
        return reply;
    }

    mutable std::mutex m_mutex;
    std::deque<Answer> m_answers;                                                    // guarded by m_mutex
    std::vector<Request> m_requests;                                                 // guarded by m_mutex
    ScriptedServer m_server{[this](const auto& request) { return take(request); }};  // its thread uses the above
};

}  // namespace support
