#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "service/files/FileContent.h"

namespace disclosure {

/// The folder that holds the files' contents: `incoming/<uuid>` while they come, then `<first two digits>/<uuid>`, and
/// `unknown/<first two digits>/<uuid>` for what has been set aside. What they are called and whose they are stands in
/// the database. Any threads, any processes.
class FileFolder {
public:
    /// Makes the folder, for its owner only; one that is there becomes so.
    explicit FileFolder(const std::filesystem::path& path);
    /// Whether a folder of this kind is there already.
    static bool isAt(const std::filesystem::path& path);
    const std::filesystem::path& path() const { return m_path; }

    /// The id of the database whose files these are, from the file `database`; empty while there is none.
    std::string owner() const;
    /// Writes it unless somebody else has meanwhile. Throws as a `FileWriter`.
    void setOwner(const std::string& id) const;

    /// `uuid` is 32 hexadecimal digits in small letters, here and below; anything else throws std::invalid_argument.
    std::unique_ptr<FileWriter> create(const std::string& uuid) const;
    /// Null when there is none. One that was set aside comes back by this.
    std::shared_ptr<FileReader> open(const std::string& uuid) const;
    void remove(const std::string& uuid) const;

    /// How long ago something was last written to the incoming file; the longest time when there is none.
    std::chrono::milliseconds silenceOf(const std::string& uuid) const;
    /// Removes those that were last written to longer ago than `age`.
    void removeIncomingOlder(std::chrono::milliseconds age) const;

    enum class Where { Kept, Aside };
    /// The two digits of which there is a folder.
    std::vector<std::string> shelves(Where where) const;
    /// The uuids in that folder, in their order.
    std::vector<std::string> contents(Where where, const std::string& shelf) const;
    /// How long ago it was written, or set aside; none when it is gone.
    std::chrono::milliseconds age(Where where, const std::string& uuid) const;
    void setAside(const std::string& uuid) const;
    /// Returns whether it had been set aside.
    bool putBack(const std::string& uuid) const;
    void removeAside(const std::string& uuid) const;

private:
    std::filesystem::path placeOf(const std::string& uuid, Where where = Where::Kept) const;
    std::filesystem::path incomingOf(const std::string& uuid) const;
    std::filesystem::path rootOf(Where where) const;

    std::filesystem::path m_path;
};

}  // namespace disclosure
