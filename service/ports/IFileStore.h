#pragma once

#include <optional>
#include <string>
#include <vector>

#include "service/ports/FileRecords.h"

namespace disclosure {

/// What is known of the departments' files; their contents are elsewhere. A file that a task gives up is
/// `LooseFile::JustReleased` by itself.
class IFileStore {
public:
    virtual std::optional<StoredFile> file(const FileKey& key) = 0;
    /// The file, if the person may read it: as a member, as who has uploaded it, or with a task they may see.
    virtual std::optional<StoredFile> fileOfPerson(const std::string& username, const FileKey& key) = 0;
    virtual bool knowsFile(const std::string& uuid) = 0;
    /// Those known from `first` to `last`, both included, in their order.
    virtual std::vector<std::string> knownFiles(const std::string& first, const std::string& last) = 0;
    virtual bool holdsFiles() = 0;
    /// The database's id, by which it knows the folder of its files.
    virtual std::string folderId() = 0;
    /// The bytes of the department's files, those on their way included.
    virtual std::int64_t bytesOf(const std::string& deptId) = 0;
    /// The file is loose from `storedAt` on.
    virtual void addFile(const StoredFile& file) = 0;
    virtual void removeFile(const FileKey& key) = 0;

    virtual void addUpload(const PendingFile& file) = 0;
    virtual void removeUpload(const FileKey& key) = 0;
    virtual std::vector<FileKey> uploadsBegunBefore(std::int64_t time) = 0;

    virtual bool isReferredTo(const FileKey& key) = 0;
    /// Those loose since `time` at the latest, so many at most.
    virtual std::vector<LooseFile> looseFiles(std::int64_t time, std::size_t most) = 0;
    virtual void setLoose(const FileKey& key, std::int64_t since) = 0;

protected:
    ~IFileStore() = default;
};

}  // namespace disclosure
