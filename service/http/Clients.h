#pragma once

#include <boost/asio/ip/address.hpp>
#include <boost/asio/ip/network_v4.hpp>
#include <boost/asio/ip/network_v6.hpp>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace disclosure {

/// Who is at the other end, as far as that can be believed: what a proxy says of its clients counts only where the
/// proxy is one of those known.
class Clients {
public:
    /// Addresses and networks, as "10.0.0.7", "10.0.0.0/8", "fd00::/8". Throws std::invalid_argument on anything else.
    explicit Clients(const std::vector<std::string>& proxies = {});

    bool isProxy(const boost::asio::ip::address& address) const;
    /// The client behind the peer; `forwarded` is what X-Forwarded-For says, the nearest hop last.
    boost::asio::ip::address behind(const boost::asio::ip::address& peer, std::string_view forwarded) const;

    /// What counts as one client: an IPv4 address, or the /64 of an IPv6 one, of which one client has every address.
    static std::string keyOf(const boost::asio::ip::address& address);

private:
    std::vector<std::variant<boost::asio::ip::network_v4, boost::asio::ip::network_v6>> m_proxies;
};

}  // namespace disclosure
