#pragma once

#include <filesystem>
#include <stdexcept>

/// What the room needs of the file system beyond the standard library.
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

/// Throws what errno says of the path, `DiskFull` or std::system_error.
[[noreturn]] void failAt(const std::filesystem::path& path);

/// Sees to it that what the folder lists survives a crash. Throws as `failAt`.
void syncFolder(const std::filesystem::path& folder);
/// Makes the folder for its owner only, and sees to it that it is still there after a crash, which may have come just
/// after somebody else has made it. Throws as `failAt`.
void makeFolder(const std::filesystem::path& folder);
/// Logs what cannot be removed; what is not there is fine.
void removeFile(const std::filesystem::path& file);

}  // namespace disclosure
