#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "service/files/Posix.h"

struct evp_md_ctx_st;

namespace disclosure {

/// A file on its way in. It is removed with the object unless `finish` has been called. One thread at a time.
class FileWriter {
public:
    FileWriter(std::filesystem::path incoming, std::filesystem::path place);
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    /// Throws `DiskFull` or std::system_error.
    void write(std::string_view piece);
    /// Puts the file in its place, where it survives a crash. Returns the MD5 of its content in hexadecimal. Throws as
    /// `write` does.
    std::string finish();

private:
    struct EndDigest {
        void operator()(evp_md_ctx_st* digest) const;
    };

    std::string digestOfAll();

    std::filesystem::path m_incoming;
    std::filesystem::path m_place;
    Descriptor m_file;
    std::size_t m_unsynced = 0;  // bytes written since the last sync
    std::unique_ptr<evp_md_ctx_st, EndDigest> m_digest;
    bool m_finished = false;
};

/// A stored file's content, readable even after the file has been removed. One thread at a time.
class FileReader {
public:
    explicit FileReader(Descriptor file) : m_file(std::move(file)) {}
    /// Reads on. Returns how many bytes it were, 0 at the end. Throws std::system_error.
    std::size_t read(std::span<char> piece);

private:
    Descriptor m_file;
};

}  // namespace disclosure
