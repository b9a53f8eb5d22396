#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "service/ports/IStore.h"

namespace disclosure {

/// A few threads, each with its own connection to the database, and a bounded queue before them.
class Workers {
public:
    using Job = std::function<void(IStore& store)>;

    Workers(IDatabase& database, std::size_t threads, std::size_t longestQueue);
    ~Workers() { stop({}); }
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    /// False when too much is waiting already, or after `stop`. A job must not throw.
    bool submit(Job job);
    /// However much is waiting: for what must follow something that was taken. Not after `stop`.
    void add(Job job);
    /// Finishes what is in hand; what is still waiting then is dropped.
    void stop(std::chrono::steady_clock::time_point until);

private:
    void work(IStore& store);

    std::size_t m_longestQueue;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::condition_variable m_emptied;
    std::deque<Job> m_queue;
    bool m_stopping = false;
    std::vector<std::unique_ptr<IStore>> m_stores;
    std::vector<std::thread> m_threads;
};

}  // namespace disclosure
