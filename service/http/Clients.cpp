#include "service/http/Clients.h"

#include <algorithm>
#include <stdexcept>

namespace disclosure {

namespace ip = boost::asio::ip;

namespace {

constexpr unsigned short ClientBits = 64;

/// An IPv4 address as such, also where the socket gives it as an IPv6 one.
ip::address plain(const ip::address& address) {
    if (address.is_v6() && address.to_v6().is_v4_mapped())
        return ip::make_address_v4(ip::v4_mapped, address.to_v6());
    return address;
}

bool holds(const ip::network_v4& network, const ip::address& address) {
    return address.is_v4() && ip::make_network_v4(address.to_v4(), network.prefix_length()).canonical() == network;
}

bool holds(const ip::network_v6& network, const ip::address& address) {
    return address.is_v6() && ip::network_v6(address.to_v6(), network.prefix_length()).canonical() == network;
}

}  // namespace

Clients::Clients(const std::vector<std::string>& proxies) {
    for (const std::string& text : proxies) {
        const bool isSix = text.find(':') != std::string::npos;
        const std::string whole = text.find('/') == std::string::npos ? text + (isSix ? "/128" : "/32") : text;
        try {
            if (isSix)
                m_proxies.emplace_back(ip::make_network_v6(whole).canonical());
            else
                m_proxies.emplace_back(ip::make_network_v4(whole).canonical());
        } catch (const boost::system::system_error&) {
            throw std::invalid_argument("\"" + text + "\" is neither an address nor a network");
        }
    }
}

bool Clients::isProxy(const ip::address& address) const {
    const ip::address asked = plain(address);
    return std::any_of(m_proxies.begin(), m_proxies.end(), [&](const auto& network) {
        return std::visit([&](const auto& known) { return holds(known, asked); }, network);
    });
}

ip::address Clients::behind(const ip::address& peer, std::string_view forwarded) const {
    ip::address client = plain(peer);
    while (isProxy(client) && !forwarded.empty()) {
        const auto comma = forwarded.rfind(',');
        auto hop = forwarded.substr(comma == std::string_view::npos ? 0 : comma + 1);
        forwarded = forwarded.substr(0, comma == std::string_view::npos ? 0 : comma);
        hop.remove_prefix(std::min(hop.find_first_not_of(" \t"), hop.size()));
        hop = hop.substr(0, hop.find_last_not_of(" \t") + 1);
        boost::system::error_code error;
        const ip::address next = ip::make_address(std::string(hop), error);
        if (error)
            break;  // what lies behind words that are no address is not to be believed
        client = plain(next);
    }
    return client;
}

std::string Clients::keyOf(const ip::address& address) {
    const ip::address client = plain(address);
    if (client.is_v4())
        return client.to_string();
    ip::address_v6 six = client.to_v6();
    six.scope_id(0);
    return ip::network_v6(six, ClientBits).canonical().to_string();
}

}  // namespace disclosure
