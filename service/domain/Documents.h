#pragma once

#include <optional>
#include <string>
#include <vector>

#include "service/ports/GoOn.h"
#include "service/ports/IStore.h"
#include "service/ports/Rights.h"

namespace disclosure {

/// What people write into a document; what is absent stays as it is.
struct DocumentChange {
    std::optional<std::string> name;
    std::optional<std::string> folderId;
    std::optional<std::int64_t> wovenAt;
    std::optional<std::vector<std::string>> tags;  // their names
};

/// The rules of the departments' documents. Every operation expects to run within one transaction of its caller, who
/// has made sure that the person may see the department and holds the right; a broken rule throws `Refusal`.
class Documents {
public:
    static constexpr std::size_t MostChosen = 500;
    static constexpr std::size_t MostTags = 10;          // of a document
    static constexpr std::int64_t MostTagsOfAll = 1000;  // of a department
    static constexpr std::int32_t MostContents = 1000;   // of a document

    /// `username` is who acts.
    Documents(IStore& store, std::string username, std::int64_t now)
        : m_store(store), m_username(std::move(username)), m_now(now) {}

    /// Adds a document with the stored file `uuid` as its content, or, where the id is known, gives that document this
    /// content; then of the change only the compiled time counts. A content that it has had changes nothing.
    void save(const std::string& deptId, std::string id, const std::string& uuid, const DocumentChange& change);
    /// Changes all or none. Takes the right to edit for what is edited, and that to delete for another folder.
    void update(const std::string& deptId, const std::vector<std::string>& ids, const DocumentChange& change,
                const Rights& rights);
    /// Unless `forced`, nothing is deleted if there are tasks that link any of it.
    void remove(const std::string& deptId, const std::vector<std::string>& ids, bool forced);
    void restore(const std::string& deptId, const std::vector<std::string>& ids);

private:
    std::vector<Document> chosen(const std::string& deptId, const std::vector<std::string>& ids);
    std::vector<DocumentTag> tagsNamed(const std::string& deptId, const std::vector<std::string>& names);
    void touch(Document& document) const;

    IStore& m_store;
    std::string m_username;
    std::int64_t m_now;
};

/// Removes the documents deleted before that time that no task links. Their contents are then files that nothing
/// refers to.
void clearDeletedDocuments(IStore& store, std::int64_t before, const GoOn& goOn);

}  // namespace disclosure
