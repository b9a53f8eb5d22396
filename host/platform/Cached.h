#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>

namespace workbench {

/// What the service answered last, by key. After a failure the service is not asked for that key again for a while, so
/// that a dead service does not hold up every caller in turn.
template <class Value>
class Cached {
public:
    using Clock = std::chrono::steady_clock;

    explicit Cached(Clock::duration pause = std::chrono::seconds(10)) : m_pause(pause) {}

    /// Null when `load`, which returns std::optional<Value>, has nothing. Valid until `forget`.
    template <class Load>
    const Value* get(const std::wstring& key, Load load) {
        const auto found = m_entries.find(key);
        if (found != m_entries.end() && found->second.value)
            return &*found->second.value;
        if (found != m_entries.end() && Clock::now() < found->second.notBefore)
            return nullptr;
        std::optional<Value> value = load();  // may come back here, and may forget
        Entry& entry = m_entries[key];
        entry.value = std::move(value);
        entry.notBefore = Clock::now() + m_pause;
        return entry.value ? &*entry.value : nullptr;
    }
    void forget() { m_entries.clear(); }

private:
    struct Entry {
        std::optional<Value> value;
        Clock::time_point notBefore;
    };
    Clock::duration m_pause;
    std::map<std::wstring, Entry> m_entries;
};

}  // namespace workbench
