#include "service/domain/SessionUses.h"

#include <spdlog/spdlog.h>
#include <vector>

#include "service/ports/Changing.h"

namespace disclosure {

namespace {

constexpr std::size_t AtOnce = 500;  // so that no transaction is long

}  // namespace

void SessionUses::note(const std::string& hash, std::int64_t time) {
    const std::lock_guard lock(m_mutex);
    if (m_uses.size() >= MostSessions && !m_uses.contains(hash))
        return;
    m_uses[hash] = time;
    m_isAnyNew = true;
}

std::int64_t SessionUses::lastOf(const std::string& hash) const {
    const std::lock_guard lock(m_mutex);
    const auto use = m_uses.find(hash);
    return use == m_uses.end() ? 0 : use->second;
}

bool SessionUses::claim() {
    const std::lock_guard lock(m_mutex);
    if (m_isClaimed || !m_isAnyNew)
        return false;
    m_isAnyNew = false;
    m_isClaimed = true;
    return true;
}

void SessionUses::write(IStore& store) noexcept {
    try {
        for (;;) {
            std::vector<std::pair<std::string, std::int64_t>> some;
            {
                const std::lock_guard lock(m_mutex);
                for (auto use = m_uses.begin(); use != m_uses.end() && some.size() < AtOnce; ++use)
                    some.push_back(*use);
                if (some.empty())
                    break;
            }
            changing(store, [&] {
                for (const auto& [hash, time] : some)
                    store.touchSession(hash, time);
            });
            const std::lock_guard lock(m_mutex);
            // Known here until then, so that no moment sees the session unused; what was noted meanwhile is to come.
            for (const auto& use : some) {
                const auto known = m_uses.find(use.first);
                if (known != m_uses.end() && known->second == use.second)
                    m_uses.erase(known);
            }
        }
    } catch (const std::exception& error) {
        spdlog::warn("uses of sessions: {}", logTextOf(error));
    }
    const std::lock_guard lock(m_mutex);
    m_isClaimed = false;
}

}  // namespace disclosure
