#pragma once

#include <chrono>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

/// The real service as a process beside a bench program.
namespace bench {

/// Starts the program of this build with these arguments; its output is thrown away.
inline pid_t start(const std::string& program, std::vector<std::string> words) {
    const auto build = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path();
    words.insert(words.begin(), (build / "bin" / program).string());
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    const int failed = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failed)
        throw std::runtime_error("cannot start " + words[0]);
    return pid;
}

/// A memory figure of a process in MB: "VmHWM:" its peak, "VmRSS:" what it has now.
inline double memory(pid_t pid, const std::string& figure) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    for (std::string word; status >> word;) {
        double kilobytes = 0;
        if (word == figure && status >> kilobytes)
            return kilobytes / 1024;
    }
    return 0;
}

/// Lets a process's peak begin anew with what it has now, which is returned, in MB.
inline double restartPeak(pid_t pid) {
    std::ofstream("/proc/" + std::to_string(pid) + "/clear_refs") << 5;
    return memory(pid, "VmRSS:");
}

/// Serves a database as long as the object lives.
class Served {
public:
    explicit Served(const std::string& database) {
        const std::string portFile = database + ".port";
        std::filesystem::remove(portFile);
        m_pid = start("disclosure-service", {"serve", "--database", "sqlite:" + database, "--listen", "127.0.0.1:0",
                                             "--port-file", portFile});
        for (int i = 0; i < 2000 && !(std::ifstream(portFile) >> m_port); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ~Served() {
        ::kill(m_pid, SIGTERM);
        ::waitpid(m_pid, nullptr, 0);
    }
    Served(const Served&) = delete;
    Served& operator=(const Served&) = delete;

    std::uint16_t port() const { return m_port; }
    pid_t pid() const { return m_pid; }

private:
    pid_t m_pid = 0;
    std::uint16_t m_port = 0;
};

}  // namespace bench
