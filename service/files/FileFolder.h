#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

struct evp_md_ctx_st;

namespace disclosure {

/// The file system has no room left for this.
class DiskFull : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// An open descriptor of a file, closed with it.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor();
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int operator*() const { return m_number; }

private:
    int m_number;
};

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

/// The folder that holds the files' contents: `incoming/<uuid>` while they come, then `<first two digits>/<uuid>`. What
/// they are called and whose they are stands in the database. Any threads, any processes.
class FileFolder {
public:
    /// Makes the folder, for its owner only; one that is there becomes so.
    explicit FileFolder(const std::filesystem::path& path);

    /// `uuid` is 32 hexadecimal digits in small letters, here and below; anything else throws std::invalid_argument.
    std::unique_ptr<FileWriter> create(const std::string& uuid) const;
    /// Null when there is none.
    std::shared_ptr<FileReader> open(const std::string& uuid) const;
    void remove(const std::string& uuid) const;

    /// How long ago something was last written to the incoming file; the longest time when there is none.
    std::chrono::milliseconds silenceOf(const std::string& uuid) const;
    void removeIncoming(const std::string& uuid) const;

    using Visit = std::function<void(const std::string& uuid)>;
    /// Visits what was last written to longer ago than `age`.
    void eachOlder(std::chrono::milliseconds age, const Visit& visit) const;
    void eachIncomingOlder(std::chrono::milliseconds age, const Visit& visit) const;

private:
    std::filesystem::path placeOf(const std::string& uuid) const;
    std::filesystem::path incomingOf(const std::string& uuid) const;

    std::filesystem::path m_path;
};

}  // namespace disclosure
