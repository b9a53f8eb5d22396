#include "service/files/FileFolder.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <spdlog/spdlog.h>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace disclosure {

namespace fs = std::filesystem;

namespace {

constexpr auto Incoming = "incoming";
constexpr auto Unknown = "unknown";
constexpr auto Owner = "database";
constexpr std::size_t FanOut = 2;  // digits of the folder's name

bool isHex(std::string_view text, std::size_t digits) {
    return text.size() == digits && text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

bool isUuid(std::string_view text) {
    return isHex(text, 32);
}

void checkUuid(const std::string& text) {
    if (!isUuid(text))
        throw std::invalid_argument("not the id of a file");
}

/// The path without a separator at its end, behind which there is no name.
fs::path folderAt(const fs::path& path) {
    const fs::path whole = fs::absolute(path).lexically_normal();
    return whole.has_filename() ? whole : whole.parent_path();
}

std::chrono::milliseconds ageOf(const fs::path& file, std::error_code& error) {
    const auto written = fs::last_write_time(file, error);
    return std::chrono::duration_cast<std::chrono::milliseconds>(fs::file_time_type::clock::now() - written);
}

/// The names that `is` accepts, in their order; none where there is no folder.
template <class Is>
std::vector<std::string> namesIn(const fs::path& folder, Is&& is) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (std::string name = entry->path().filename().string(); is(name))
            names.push_back(std::move(name));
    }
    if (error && error != std::errc::no_such_file_or_directory)
        throw std::system_error(error, folder.string());
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

FileFolder::FileFolder(const fs::path& path) : m_path(folderAt(path)) {
    fs::create_directories(m_path.parent_path());
    makeFolder(m_path);
    if (::chmod(m_path.c_str(), 0700) != 0)
        failAt(m_path);
    makeFolder(m_path / Incoming);
}

bool FileFolder::isAt(const fs::path& path) {
    return fs::is_directory(path / Incoming);
}

std::string FileFolder::owner() const {
    std::ifstream file(m_path / Owner);
    std::string id;
    std::getline(file, id);
    return id;
}

void FileFolder::setOwner(const std::string& id) const {
    const fs::path draft = m_path / (std::string(Owner) + "." + id + "." + std::to_string(::getpid()));
    {
        const Descriptor file(::open(draft.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
        const std::string line = id + "\n";
        if (*file < 0 || ::write(*file, line.data(), line.size()) != std::ssize(line) || ::fsync(*file) != 0)
            failAt(draft);
    }
    // A link is made whole and takes nobody's place.
    const bool made = ::link(draft.c_str(), (m_path / Owner).c_str()) == 0 || errno == EEXIST;
    const int reason = errno;
    removeFile(draft);
    errno = reason;
    if (!made)
        failAt(m_path / Owner);
    syncFolder(m_path);
}

std::unique_ptr<FileWriter> FileFolder::create(const std::string& uuid) const {
    return std::make_unique<FileWriter>(incomingOf(uuid), placeOf(uuid));
}

std::shared_ptr<FileReader> FileFolder::open(const std::string& uuid) const {
    const fs::path place = placeOf(uuid);
    Descriptor file(::open(place.c_str(), O_RDONLY | O_CLOEXEC));
    if (*file < 0 && errno == ENOENT && putBack(uuid))
        file = Descriptor(::open(place.c_str(), O_RDONLY | O_CLOEXEC));
    if (*file < 0 && errno == ENOENT)
        return nullptr;
    if (*file < 0)
        failAt(place);
    return std::make_shared<FileReader>(std::move(file));
}

void FileFolder::remove(const std::string& uuid) const {
    if (isUuid(uuid))
        removeFile(placeOf(uuid));
}

std::chrono::milliseconds FileFolder::silenceOf(const std::string& uuid) const {
    std::error_code error;
    const auto age = ageOf(incomingOf(uuid), error);
    return error ? std::chrono::milliseconds::max() : age;
}

void FileFolder::removeIncomingOlder(std::chrono::milliseconds age) const {
    for (const std::string& uuid : namesIn(m_path / Incoming, isUuid)) {
        std::error_code gone;
        if (ageOf(incomingOf(uuid), gone) > age && !gone)
            removeFile(incomingOf(uuid));
    }
}

std::vector<std::string> FileFolder::shelves(Where where) const {
    return namesIn(rootOf(where), [](const std::string& name) { return isHex(name, FanOut); });
}

std::vector<std::string> FileFolder::contents(Where where, const std::string& shelf) const {
    return namesIn(rootOf(where) / shelf,
                   [&](const std::string& name) { return isUuid(name) && name.starts_with(shelf); });
}

std::chrono::milliseconds FileFolder::age(Where where, const std::string& uuid) const {
    std::error_code error;
    const auto age = ageOf(placeOf(uuid, where), error);
    return error ? std::chrono::milliseconds::min() : age;
}

void FileFolder::setAside(const std::string& uuid) const {
    const fs::path place = placeOf(uuid);
    const fs::path aside = placeOf(uuid, Where::Aside);
    // Its time is from now on when it was set aside.
    if (::utimensat(AT_FDCWD, place.c_str(), nullptr, 0) != 0 && errno == ENOENT)
        return;
    if (::rename(place.c_str(), aside.c_str()) == 0)
        return;
    makeFolder(rootOf(Where::Aside));
    makeFolder(aside.parent_path());
    if (::rename(place.c_str(), aside.c_str()) != 0 && errno != ENOENT)
        failAt(place);
}

bool FileFolder::putBack(const std::string& uuid) const {
    const fs::path place = placeOf(uuid);
    const fs::path aside = placeOf(uuid, Where::Aside);
    if (::access(aside.c_str(), F_OK) != 0)
        return false;
    makeFolder(place.parent_path());
    if (::rename(aside.c_str(), place.c_str()) != 0 && errno != ENOENT)
        failAt(place);
    spdlog::info("the file {} that had been set aside is back", uuid);
    return true;
}

void FileFolder::removeAside(const std::string& uuid) const {
    removeFile(placeOf(uuid, Where::Aside));
}

fs::path FileFolder::placeOf(const std::string& uuid, Where where) const {
    checkUuid(uuid);
    return rootOf(where) / uuid.substr(0, FanOut) / uuid;
}

fs::path FileFolder::incomingOf(const std::string& uuid) const {
    checkUuid(uuid);
    return m_path / Incoming / uuid;
}

fs::path FileFolder::rootOf(Where where) const {
    return where == Where::Kept ? m_path : m_path / Unknown;
}

}  // namespace disclosure
