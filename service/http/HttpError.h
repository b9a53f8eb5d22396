#pragma once

#include <boost/beast/http/status.hpp>
#include <exception>
#include <ostream>
#include <string>

namespace disclosure {

/// A request that is refused with an HTTP status of its own: malformed, unauthorised, or not to be answered now.
class HttpError : public std::exception {
public:
    /// `msg` is for the user; a status without a body (302) leaves it empty.
    HttpError(boost::beast::http::status status, std::string msg) : m_status(status), m_msg(std::move(msg)) {}
    /// With one more header of the answer, for example which methods are allowed.
    HttpError(boost::beast::http::status status, std::string msg, std::string header, std::string value)
        : m_status(status), m_msg(std::move(msg)), m_header(std::move(header)), m_value(std::move(value)) {}

    boost::beast::http::status status() const { return m_status; }
    const std::string& msg() const { return m_msg; }
    const std::string& header() const { return m_header; }
    const std::string& value() const { return m_value; }
    const char* what() const noexcept override { return m_msg.c_str(); }

private:
    boost::beast::http::status m_status;
    std::string m_msg;
    std::string m_header;
    std::string m_value;
};

}  // namespace disclosure
