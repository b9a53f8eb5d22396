#include "service/domain/Passwords.h"

#include <array>
#include <sodium.h>
#include <stdexcept>

namespace disclosure {

namespace {

std::string hex(const unsigned char* bytes, std::size_t count) {
    std::string text(count * 2 + 1, '\0');
    sodium_bin2hex(text.data(), text.size(), bytes, count);
    text.pop_back();
    return text;
}

}  // namespace

Passwords::Passwords(Cost cost) : m_cost(cost) {
    if (sodium_init() < 0)
        throw std::runtime_error("the cryptography library does not start");
    m_nobody = hash(newSecret());
}

std::string Passwords::hash(const std::string& password) const {
    const bool lowest = m_cost == Cost::Lowest;
    std::array<char, crypto_pwhash_STRBYTES> text{};
    if (crypto_pwhash_str(text.data(), password.data(), password.size(),
                          lowest ? crypto_pwhash_OPSLIMIT_MIN : crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          lowest ? crypto_pwhash_MEMLIMIT_MIN : crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        throw std::runtime_error("not enough memory to hash a password");
    return text.data();
}

bool Passwords::matches(const std::string& password, const std::string& hash) const {
    const std::string& against = hash.empty() ? m_nobody : hash;
    return crypto_pwhash_str_verify(against.c_str(), password.data(), password.size()) == 0 && !hash.empty();
}

std::string newSecret() {
    std::array<unsigned char, 32> bytes{};
    randombytes_buf(bytes.data(), bytes.size());
    return hex(bytes.data(), bytes.size());
}

std::string digestOf(const std::string& secret) {
    std::array<unsigned char, 32> bytes{};
    crypto_generichash(bytes.data(), bytes.size(), reinterpret_cast<const unsigned char*>(secret.data()), secret.size(),
                       nullptr, 0);
    return hex(bytes.data(), bytes.size());
}

}  // namespace disclosure
