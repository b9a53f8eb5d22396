#include "service/http/Workers.h"

namespace disclosure {

Workers::Workers(IDatabase& database, std::size_t threads, std::size_t longestQueue) : m_longestQueue(longestQueue) {
    for (std::size_t i = 0; i < threads; ++i)
        m_stores.push_back(database.connect());
    for (const auto& store : m_stores)
        m_threads.emplace_back([this, &store] { work(*store); });
}

void Workers::stop(std::chrono::steady_clock::time_point until) {
    std::deque<Job> dropped;  // destroyed without the lock, since connections may end with them
    {
        std::unique_lock lock(m_mutex);
        m_stopping = true;
        m_wake.notify_all();
        m_emptied.wait_until(lock, until, [this] { return m_queue.empty(); });
        dropped.swap(m_queue);
    }
    for (std::thread& thread : m_threads)
        thread.join();
    m_threads.clear();
}

bool Workers::submit(Job job) {
    {
        const std::lock_guard lock(m_mutex);
        if (m_stopping || m_queue.size() >= m_longestQueue)
            return false;
        m_queue.push_back(std::move(job));
    }
    m_wake.notify_one();
    return true;
}

void Workers::add(Job job) {
    {
        const std::lock_guard lock(m_mutex);
        m_queue.push_back(std::move(job));
    }
    m_wake.notify_one();
}

void Workers::work(IStore& store) {
    for (;;) {
        Job job;
        {
            std::unique_lock lock(m_mutex);
            m_wake.wait(lock, [this] { return m_stopping || !m_queue.empty(); });
            if (m_queue.empty())
                return;
            job = std::move(m_queue.front());
            m_queue.pop_front();
            if (m_queue.empty())
                m_emptied.notify_all();
        }
        job(store);
    }
}

}  // namespace disclosure
