#include "service/files/Posix.h"

#include <cerrno>
#include <fcntl.h>
#include <spdlog/spdlog.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace disclosure {

namespace fs = std::filesystem;

Descriptor::Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    std::swap(m_number, other.m_number);
    return *this;
}

Descriptor::~Descriptor() {
    if (m_number >= 0)
        ::close(m_number);
}

void failAt(const fs::path& path) {
    const int reason = errno;
    // A limit on the size of files is full as well, as far as whoever stores one is concerned.
    if (reason == ENOSPC || reason == EDQUOT || reason == EFBIG)
        throw DiskFull(path.string() + ": " + std::generic_category().message(reason));
    throw std::system_error(reason, std::generic_category(), path.string());
}

void syncFolder(const fs::path& folder) {
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (*opened < 0 || ::fsync(*opened) != 0)
        failAt(folder);
}

void makeFolder(const fs::path& folder) {
    if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)
        failAt(folder);
    syncFolder(folder.parent_path());
}

void removeFile(const fs::path& file) {
    if (::unlink(file.c_str()) != 0 && errno != ENOENT)
        spdlog::warn("{} cannot be removed: {}", file.string(), std::generic_category().message(errno));
}

}  // namespace disclosure
