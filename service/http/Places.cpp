#include "service/http/Places.h"

namespace disclosure {

std::shared_ptr<void> Places::take() {
    for (std::size_t free = m_free; free > 0;) {
        if (m_free.compare_exchange_weak(free, free - 1))
            return {this, [](Places* places) { ++places->m_free; }};
    }
    return nullptr;
}

std::shared_ptr<void> Shares::take(const std::string& who) {
    const std::lock_guard lock(m_mutex);
    std::size_t& taken = m_taken[who];
    if (taken == m_most)
        return nullptr;
    ++taken;
    return {this, [who](Shares* shares) {
                const std::lock_guard guard(shares->m_mutex);
                const auto own = shares->m_taken.find(who);
                if (--own->second == 0)
                    shares->m_taken.erase(own);
            }};
}

}  // namespace disclosure
