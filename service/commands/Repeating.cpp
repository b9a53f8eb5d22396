#include "service/commands/Repeating.h"

#include <spdlog/spdlog.h>

#include "service/ports/IStore.h"

namespace disclosure {

Repeating::Repeating(std::string name, std::chrono::milliseconds pause, Job job)
    : m_name(std::move(name)), m_pause(pause), m_job(std::move(job)), m_thread([this] { repeat(); }) {}

Repeating::~Repeating() {
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_wake.notify_all();
    m_thread.join();
}

void Repeating::repeat() {
    for (;;) {
        m_begun = std::chrono::steady_clock::now();
        try {
            m_job([this] { return goOn(); });
        } catch (const std::exception& error) {
            spdlog::error("{}: {}", m_name, logTextOf(error));
        }
        std::unique_lock lock(m_mutex);
        if (m_wake.wait_for(lock, m_pause, [this] { return m_ending; }))
            return;
    }
}

/// Rests as long as the last piece of work took, so that it never has the database for more than half of the time. What
/// took next to nothing has not been in anybody's way.
bool Repeating::goOn() {
    const auto took = std::chrono::steady_clock::now() - m_begun;
    std::unique_lock lock(m_mutex);
    if (took >= std::chrono::milliseconds(1))
        m_wake.wait_for(lock, took, [this] { return m_ending; });
    m_begun = std::chrono::steady_clock::now();
    return !m_ending;
}

}  // namespace disclosure
