#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>

#include "service/ports/IStore.h"

namespace disclosure {

/// The latest uses of sessions on their way to the store, so that who reads never waits for a writer. Used by any
/// number of threads. What a crash loses ends a session early, never late.
class SessionUses {
public:
    /// Without room for another session the use is not noted.
    void note(const std::string& hash, std::int64_t time);
    /// The latest use that is not in the store yet; 0 without one.
    std::int64_t lastOf(const std::string& hash) const;
    /// Whether something was noted that nobody has taken on to write; the caller then has, and calls `write`.
    bool claim();
    /// Writes what there is. What cannot be written stays and is tried again with a later use. Does not throw.
    void write(IStore& store) noexcept;

private:
    static constexpr std::size_t MostSessions = 100'000;

    mutable std::mutex m_mutex;
    std::map<std::string, std::int64_t> m_uses;
    bool m_isAnyNew = false;
    bool m_isClaimed = false;
};

}  // namespace disclosure
