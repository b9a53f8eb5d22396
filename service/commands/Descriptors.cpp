#include "service/commands/Descriptors.h"

#include <algorithm>
#include <spdlog/spdlog.h>
#include <stdexcept>
#include <sys/resource.h>

namespace disclosure::commands {

namespace {

constexpr std::size_t OfDatabase = 3;  // of each connection to it: the file, its log, and the log's index
constexpr std::size_t Background = 4;  // connections of the sweep, the reminders and the mails, and one to spare
constexpr std::size_t Otherwise = 64;  // libraries, standard streams, folders being synchronised

}  // namespace

std::size_t raiseDescriptors(const Settings& settings) {
    const auto& workers = settings.dispatcher;
    const std::size_t besides = (workers.readers + workers.loginWorkers + 1 + Background) * OfDatabase +
                                workers.uploads + workers.downloads + Otherwise;
    const rlim_t wanted = besides + settings.server.mostConnections;
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return settings.server.mostConnections;
    if (limit.rlim_cur < wanted) {
        limit.rlim_cur = std::min(wanted, limit.rlim_max);
        ::setrlimit(RLIMIT_NOFILE, &limit);
        ::getrlimit(RLIMIT_NOFILE, &limit);
    }
    if (limit.rlim_cur >= wanted)
        return settings.server.mostConnections;
    if (limit.rlim_cur <= besides)
        throw std::runtime_error("the system allows this process " + std::to_string(limit.rlim_cur) +
                                 " descriptors; it needs more than " + std::to_string(besides));
    const std::size_t connections = limit.rlim_cur - besides;
    spdlog::warn("the system allows {} descriptors: at most {} connections instead of {}", limit.rlim_cur, connections,
                 settings.server.mostConnections);
    return connections;
}

}  // namespace disclosure::commands
