#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace disclosure {

/// So many may be at it at once. Outlives the places it has given.
class Places {
public:
    explicit Places(std::size_t most) : m_free(most) {}
    /// Null when all are taken. A place is free again when its last owner lets go of it.
    std::shared_ptr<void> take();

private:
    std::atomic<std::size_t> m_free;
};

/// So many may each of several be at at once, so that none of them takes all places.
class Shares {
public:
    explicit Shares(std::size_t most) : m_most(most) {}
    /// As of `Places`.
    std::shared_ptr<void> take(const std::string& who);

private:
    std::size_t m_most;
    std::mutex m_mutex;
    std::map<std::string, std::size_t> m_taken;
};

}  // namespace disclosure
