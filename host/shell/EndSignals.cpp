#include "host/shell/EndSignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

#include <QCoreApplication>

namespace workbench {
namespace {

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};

// A handler may do next to nothing; it writes a byte into the pipe, and the event loop does the rest.
std::array<int, 2> g_pipe{-1, -1};

void note(int) {
    const int before = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(g_pipe[1], &byte, 1);
    errno = before;
}

int openPipe() {
    if (::pipe2(g_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe");
    return g_pipe[0];
}

}  // namespace

EndSignals::EndSignals() : m_notifier(openPipe(), QSocketNotifier::Read) {
    // The byte stays in the pipe, so that whatever event loop runs next, the application's own included, ends too.
    QObject::connect(&m_notifier, &QSocketNotifier::activated, QCoreApplication::instance(), &QCoreApplication::quit);
    std::signal(SIGXFSZ, SIG_IGN);  // a limit on the size of files is told like a full disk
    for (const int signal : kSignals)
        if (std::signal(signal, note) == SIG_IGN)
            std::signal(signal, SIG_IGN);  // nohup asked for it
}

EndSignals::~EndSignals() {
    for (const int signal : kSignals)
        std::signal(signal, SIG_DFL);
    ::close(g_pipe[0]);
    ::close(g_pipe[1]);
}

}  // namespace workbench
