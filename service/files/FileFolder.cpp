#include "service/files/FileFolder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <openssl/evp.h>
#include <spdlog/spdlog.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace disclosure {

namespace fs = std::filesystem;

namespace {

constexpr auto Incoming = "incoming";
constexpr std::size_t FanOut = 2;  // digits of the folder's name
// So that little is left for the end, while which the client hears nothing.
constexpr std::size_t SyncEvery = 16UL * 1024 * 1024;

[[noreturn]] void fail(const fs::path& path) {
    const int reason = errno;
    // A limit on the size of files is full as well, as far as whoever stores one is concerned.
    if (reason == ENOSPC || reason == EDQUOT || reason == EFBIG)
        throw DiskFull(path.string() + ": " + std::generic_category().message(reason));
    throw std::system_error(reason, std::generic_category(), path.string());
}

bool isUuid(std::string_view text) {
    return text.size() == 32 && std::all_of(text.begin(), text.end(),
                                            [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); });
}

void sync(const fs::path& folder) {
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (*opened < 0 || ::fsync(*opened) != 0)
        fail(folder);
}

/// Makes the folder for its owner only, and sees to it that it is still there after a crash, which may have come just
/// after somebody else has made it.
void makeFolder(const fs::path& folder) {
    if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)
        fail(folder);
    sync(folder.parent_path());
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

void visitOlder(const fs::path& folder, std::chrono::milliseconds age, const FileFolder::Visit& visit) {
    std::vector<std::string> old;  // first, since a visit may remove the file
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code gone;
        const std::string name = entry->path().filename().string();
        if (isUuid(name) && ageOf(entry->path(), gone) > age && !gone)
            old.push_back(name);
    }
    std::for_each(old.begin(), old.end(), visit);
}

void unlinked(const fs::path& file) {
    if (::unlink(file.c_str()) != 0 && errno != ENOENT)
        spdlog::warn("{} cannot be removed: {}", file.string(), std::generic_category().message(errno));
}

}  // namespace

Descriptor::Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    std::swap(m_number, other.m_number);
    return *this;
}

Descriptor::~Descriptor() {
    if (m_number >= 0)
        ::close(m_number);
}

void FileWriter::EndDigest::operator()(evp_md_ctx_st* digest) const {
    EVP_MD_CTX_free(digest);
}

FileWriter::FileWriter(fs::path incoming, fs::path place)
    : m_incoming(std::move(incoming)), m_place(std::move(place)), m_digest(EVP_MD_CTX_new()) {
    if (!m_digest || EVP_DigestInit_ex(m_digest.get(), EVP_md5(), nullptr) != 1)
        throw std::runtime_error("the cryptography library has no MD5");
    m_file = Descriptor(::open(m_incoming.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (*m_file < 0)
        fail(m_incoming);
}

FileWriter::~FileWriter() {
    if (!m_finished)
        unlinked(m_incoming);
}

void FileWriter::write(std::string_view piece) {
    EVP_DigestUpdate(m_digest.get(), piece.data(), piece.size());
    while (!piece.empty()) {
        const auto written = ::write(*m_file, piece.data(), piece.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            fail(m_incoming);
        piece.remove_prefix(static_cast<std::size_t>(written));
        m_unsynced += static_cast<std::size_t>(written);
    }
    if (m_unsynced >= SyncEvery) {
        m_unsynced = 0;
        if (::fdatasync(*m_file) != 0)
            fail(m_incoming);
    }
}

std::string FileWriter::finish() {
    std::string md5 = digestOfAll();
    if (::fsync(*m_file) != 0)
        fail(m_incoming);
    makeFolder(m_place.parent_path());
    if (::rename(m_incoming.c_str(), m_place.c_str()) != 0)
        fail(m_place);
    try {
        sync(m_place.parent_path());
    } catch (...) {
        unlinked(m_place);
        throw;
    }
    m_finished = true;
    return md5;
}

std::string FileWriter::digestOfAll() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
    unsigned count = 0;
    EVP_DigestFinal_ex(m_digest.get(), bytes.data(), &count);
    constexpr std::string_view Digits = "0123456789abcdef";
    std::string text;
    for (unsigned i = 0; i < count; ++i) {
        text += Digits[bytes[i] / 16U];
        text += Digits[bytes[i] % 16U];
    }
    return text;
}

std::size_t FileReader::read(std::span<char> piece) {
    for (;;) {
        const auto count = ::read(*m_file, piece.data(), piece.size());
        if (count >= 0)
            return static_cast<std::size_t>(count);
        if (errno != EINTR)
            throw std::system_error(errno, std::generic_category(), "a stored file");
    }
}

FileFolder::FileFolder(const fs::path& path) : m_path(folderAt(path)) {
    fs::create_directories(m_path.parent_path());
    makeFolder(m_path);
    if (::chmod(m_path.c_str(), 0700) != 0)
        fail(m_path);
    makeFolder(m_path / Incoming);
}

std::unique_ptr<FileWriter> FileFolder::create(const std::string& uuid) const {
    return std::make_unique<FileWriter>(incomingOf(uuid), placeOf(uuid));
}

std::shared_ptr<FileReader> FileFolder::open(const std::string& uuid) const {
    const fs::path place = placeOf(uuid);
    Descriptor file(::open(place.c_str(), O_RDONLY | O_CLOEXEC));
    if (*file < 0 && errno == ENOENT)
        return nullptr;
    if (*file < 0)
        fail(place);
    return std::make_shared<FileReader>(std::move(file));
}

void FileFolder::remove(const std::string& uuid) const {
    if (isUuid(uuid))
        unlinked(placeOf(uuid));
}

std::chrono::milliseconds FileFolder::silenceOf(const std::string& uuid) const {
    std::error_code error;
    const auto age = ageOf(incomingOf(uuid), error);
    return error ? std::chrono::milliseconds::max() : age;
}

void FileFolder::removeIncoming(const std::string& uuid) const {
    if (isUuid(uuid))
        unlinked(incomingOf(uuid));
}

void FileFolder::eachOlder(std::chrono::milliseconds age, const Visit& visit) const {
    std::error_code error;
    for (fs::directory_iterator entry(m_path, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->path().filename().native().size() == FanOut)
            visitOlder(entry->path(), age, visit);
    }
}

void FileFolder::eachIncomingOlder(std::chrono::milliseconds age, const Visit& visit) const {
    visitOlder(m_path / Incoming, age, visit);
}

fs::path FileFolder::placeOf(const std::string& uuid) const {
    if (!isUuid(uuid))
        throw std::invalid_argument("not the id of a file");
    return m_path / uuid.substr(0, FanOut) / uuid;
}

fs::path FileFolder::incomingOf(const std::string& uuid) const {
    if (!isUuid(uuid))
        throw std::invalid_argument("not the id of a file");
    return m_path / Incoming / uuid;
}

}  // namespace disclosure
