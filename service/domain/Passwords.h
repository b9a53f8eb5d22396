#pragma once

#include <string>

namespace disclosure {

/// Argon2id hashes of passwords. A hash takes about 0.1 s and 64 MiB at the default cost, so the callers bound how many
/// run at once.
class Passwords {
public:
    enum class Cost { Interactive, Lowest };
    static constexpr std::size_t Longest = 1024;  // bytes; nobody logs in with a longer one

    explicit Passwords(Cost cost = Cost::Interactive);

    std::string hash(const std::string& password) const;
    /// Takes as long for an empty `hash`, that of somebody unknown, and answers false.
    bool matches(const std::string& password, const std::string& hash) const;

private:
    Cost m_cost;
    std::string m_nobody;
};

/// A new secret of 256 bits as 64 hexadecimal digits.
std::string newSecret();
/// What is stored of a secret; it cannot be turned back.
std::string digestOf(const std::string& secret);

}  // namespace disclosure
