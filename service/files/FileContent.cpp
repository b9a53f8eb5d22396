#include "service/files/FileContent.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <openssl/evp.h>
#include <sodium.h>
#include <system_error>
#include <unistd.h>

namespace disclosure {

namespace fs = std::filesystem;

namespace {

// So that little is left for the end, while which the client hears nothing.
constexpr std::size_t SyncEvery = 16UL * 1024 * 1024;

}  // namespace

void FileWriter::EndDigest::operator()(evp_md_ctx_st* digest) const {
    EVP_MD_CTX_free(digest);
}

FileWriter::FileWriter(fs::path incoming, fs::path place)
    : m_incoming(std::move(incoming)), m_place(std::move(place)), m_digest(EVP_MD_CTX_new()) {
    if (!m_digest || EVP_DigestInit_ex(m_digest.get(), EVP_md5(), nullptr) != 1)
        throw std::runtime_error("the cryptography library has no MD5");
    m_file = Descriptor(::open(m_incoming.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (*m_file < 0)
        failAt(m_incoming);
}

FileWriter::~FileWriter() {
    if (!m_finished)
        removeFile(m_incoming);
}

void FileWriter::write(std::string_view piece) {
    EVP_DigestUpdate(m_digest.get(), piece.data(), piece.size());
    while (!piece.empty()) {
        const auto written = ::write(*m_file, piece.data(), piece.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            failAt(m_incoming);
        piece.remove_prefix(static_cast<std::size_t>(written));
        m_unsynced += static_cast<std::size_t>(written);
    }
    if (m_unsynced >= SyncEvery) {
        m_unsynced = 0;
        if (::fdatasync(*m_file) != 0)
            failAt(m_incoming);
    }
}

std::string FileWriter::finish() {
    std::string md5 = digestOfAll();
    if (::fsync(*m_file) != 0)
        failAt(m_incoming);
    makeFolder(m_place.parent_path());
    if (::rename(m_incoming.c_str(), m_place.c_str()) != 0)
        failAt(m_place);
    try {
        syncFolder(m_place.parent_path());
    } catch (...) {
        removeFile(m_place);
        throw;
    }
    m_finished = true;
    return md5;
}

std::string FileWriter::digestOfAll() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
    unsigned count = 0;
    EVP_DigestFinal_ex(m_digest.get(), bytes.data(), &count);
    std::array<char, 2 * EVP_MAX_MD_SIZE + 1> text{};
    return sodium_bin2hex(text.data(), text.size(), bytes.data(), count);
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

}  // namespace disclosure
