#pragma once

#include <chrono>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>

#include "tests/service/TestService.h"

extern char** environ;

namespace disclosure::testing {

inline const std::string Program = BINARY_ROOT "/bin/disclosure-service";

/// A process that tells its port in a file, ended with the object if it has not been before.
class PortProcess {
public:
    /// Its standard output goes to `output`, `variables` ("NAME=VALUE") come before the environment; waits until it has
    /// written the port.
    PortProcess(std::vector<std::string> arguments, const std::string& portFile, const std::string& output,
                std::vector<std::string> variables = {}) {
        std::filesystem::remove(portFile);
        const auto pointers = [](std::vector<std::string>& texts) {
            std::vector<char*> list;
            for (std::string& text : texts)
                list.push_back(text.data());
            list.push_back(nullptr);
            return list;
        };
        for (char** variable = environ; *variable; ++variable)
            variables.emplace_back(*variable);
        const auto argv = pointers(arguments);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        if (posix_spawnp(&m_pid, argv.front(), &actions, nullptr, argv.data(), pointers(variables).data()) != 0)
            throw std::runtime_error("cannot start " + arguments.front());
        posix_spawn_file_actions_destroy(&actions);
        for (int i = 0; i < 2000 && !(std::ifstream(portFile) >> m_port); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ~PortProcess() {
        if (m_pid > 0)
            end(SIGKILL);
    }
    PortProcess(const PortProcess&) = delete;
    PortProcess& operator=(const PortProcess&) = delete;

    std::uint16_t port() const { return m_port; }
    void signal(int number) const { ::kill(m_pid, number); }
    /// From now on no file may grow beyond so many bytes.
    void limitFiles(rlim_t bytes) const {
        const rlimit limit{bytes, RLIM_INFINITY};
        if (::prlimit(m_pid, RLIMIT_FSIZE, &limit, nullptr) != 0)
            throw std::runtime_error("cannot limit the size of files");
    }
    /// The exit code; -1 when it ended by a signal.
    int end(int number) {
        signal(number);
        return wait();
    }
    int wait() {
        int status = 0;
        ::waitpid(m_pid, &status, 0);
        m_pid = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t m_pid = 0;
    std::uint16_t m_port = 0;
};

/// The real program serving; `more` are further arguments, `name` tells several in one folder apart.
class Served : public PortProcess {
public:
    Served(const TempFolder& folder, const std::string& database, const std::vector<std::string>& more = {},
           const std::string& name = "", const std::vector<std::string>& variables = {})
        : PortProcess(argumentsOf(folder.file("port" + name), database, more), folder.file("port" + name),
                      folder.file("out" + name), variables) {}

private:
    static std::vector<std::string> argumentsOf(const std::string& portFile, const std::string& database,
                                                const std::vector<std::string>& more) {
        std::vector<std::string> arguments{Program,    "serve",       "--database",  database,
                                           "--listen", "127.0.0.1:0", "--port-file", portFile};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }
};

/// A real mail server; `more` are further arguments.
class MailServer : public PortProcess {
public:
    explicit MailServer(const TempFolder& folder, const std::vector<std::string>& more = {})
        : PortProcess(argumentsOf(folder, more), folder.file("smtp port"), folder.file("smtp out")) {}
    /// What any of them has been given.
    static std::vector<rapidjson::Document> delivered(const TempFolder& folder) {
        std::vector<rapidjson::Document> mails;
        std::ifstream lines(folder.file("mails"));
        for (std::string line; std::getline(lines, line);)
            mails.emplace_back().Parse(line.c_str());
        return mails;
    }

private:
    static std::vector<std::string> argumentsOf(const TempFolder& folder, const std::vector<std::string>& more) {
        // Debian's own Python, which has the server's module.
        std::vector<std::string> arguments{"/usr/bin/python3",
                                           SOURCE_ROOT "/tests/service/smtp_server.py",
                                           "--port-file",
                                           folder.file("smtp port"),
                                           "--out",
                                           folder.file("mails")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }
};

}  // namespace disclosure::testing
