#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "service/ports/GoOn.h"

namespace disclosure {

/// Repeats a job on a thread of its own, at once and then after each pause, until it is destroyed. A job that throws is
/// logged and has its next turn.
class Repeating {
public:
    using Job = std::function<void(const GoOn& goOn)>;

    /// `name` is the job's in the log.
    Repeating(std::string name, std::chrono::milliseconds pause, Job job);
    /// Waits for the piece of work in hand.
    ~Repeating();
    Repeating(const Repeating&) = delete;
    Repeating& operator=(const Repeating&) = delete;

private:
    void repeat();
    bool goOn();

    std::string m_name;
    std::chrono::milliseconds m_pause;
    Job m_job;
    std::chrono::steady_clock::time_point m_begun;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_ending = false;
    std::thread m_thread;
};

}  // namespace disclosure
