#pragma once

#include <arpa/inet.h>
#include <cstdint>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace bench {

/// One kept connection that sends requests as fast as they are answered.
class Client {
public:
    Client(std::uint16_t port, std::string cookie) : m_cookie(std::move(cookie)) {
        m_socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const int on = 1;
        ::setsockopt(m_socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        if (::connect(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
            throw std::runtime_error("cannot connect");
    }
    ~Client() { ::close(m_socket); }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    /// The header and body of the answer.
    const std::string& ask(const std::string& line, const std::string& body = {},
                           const std::string& type = "application/json") {
        const std::string request = line + " HTTP/1.1\r\nHost: localhost\r\nCookie: " + m_cookie + "\r\n" +
                                    (body.empty() ? "" : "Content-Type: " + type + "\r\n") +
                                    "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
        if (::send(m_socket, request.data(), request.size(), MSG_NOSIGNAL) < 0)
            throw std::runtime_error("cannot send");
        m_answer.clear();
        std::size_t whole = std::string::npos;
        while (m_answer.size() < whole) {
            char bytes[65536];
            const auto read = ::recv(m_socket, bytes, sizeof bytes, 0);
            if (read <= 0)
                throw std::runtime_error("no answer");
            m_answer.append(bytes, static_cast<std::size_t>(read));
            const auto end = m_answer.find("\r\n\r\n");
            if (whole == std::string::npos && end != std::string::npos)
                whole = end + 4 + std::stoul(m_answer.substr(m_answer.find("Content-Length: ") + 16));
        }
        return m_answer;
    }

    /// Keeps the session for what follows.
    void login(const std::string& username, const std::string& password) {
        const std::string answer =
            ask("POST /rs/auth/login", R"({"username":")" + username + R"(","password":")" + password + "\"}");
        const auto begin = answer.find("JSESSIONID=");
        m_cookie = answer.substr(begin, answer.find(';', begin) - begin);
    }
    const std::string& cookie() const { return m_cookie; }

private:
    std::string m_cookie;
    int m_socket;
    std::string m_answer;
};

}  // namespace bench
