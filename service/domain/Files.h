#pragma once

#include <string>
#include <string_view>

#include "service/ports/FileRecords.h"
#include "service/ports/IStore.h"

namespace disclosure {

/// The rules of the departments' files. Every operation expects to run within one transaction of its caller, who has
/// made sure that the person may see the department and holds the right; a broken rule throws `Refusal`.
class Files {
public:
    static constexpr std::int64_t TooLarge = 525'336'576;  // whole MiB are compared with 500, so the 501st counts

    /// `username` is who acts.
    Files(IStore& store, std::string username, std::int64_t now)
        : m_store(store), m_username(std::move(username)), m_now(now) {}

    /// Lets a file of `size` bytes come and holds room for it; `quota` is what the department may have in all.
    PendingFile expect(const std::string& deptId, const std::string& name, std::int64_t size, std::int64_t quota);
    /// The file has come whole.
    StoredFile keep(const PendingFile& pending, const std::string& md5);
    /// The file does not come.
    void giveUp(const PendingFile& pending) { m_store.removeUpload(pending.key); }

    /// The file, if the person may read it.
    StoredFile readable(const FileKey& key);
    /// Removes one's own upload that no task refers to. Returns whether there was one.
    bool takeBack(const FileKey& key);

private:
    IStore& m_store;
    std::string m_username;
    std::int64_t m_now;
};

/// A new uuid of a file.
std::string newFileUuid();

/// Throws `Refusal` when the file that begins like this is recognisably a program.
void checkBeginning(std::string_view content);

}  // namespace disclosure
