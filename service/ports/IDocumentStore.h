#pragma once

#include <optional>
#include <string>
#include <vector>

#include "service/ports/DocumentRecords.h"
#include "service/ports/Records.h"

namespace disclosure {

/// The departments' documents and their folders. How many documents there are of a kind, and which tags are in use, is
/// kept by itself.
class IDocumentStore {
public:
    /// Parents first, siblings by name.
    virtual std::vector<DocumentFolder> folders(const std::string& deptId) = 0;
    virtual std::optional<DocumentFolder> folder(const std::string& deptId, const std::string& id) = 0;
    virtual bool hasFolderNamed(const std::string& deptId, const std::string& parentId, const std::string& name) = 0;
    virtual std::int64_t folderCount(const std::string& deptId) = 0;
    /// Whether there are folders in it or documents that are not deleted.
    virtual bool isFolderUsed(const std::string& deptId, const std::string& id) = 0;
    /// Whether the folder is `other` or somewhere in it.
    virtual bool isFolderWithin(const std::string& deptId, const std::string& id, const std::string& other) = 0;
    /// How many levels there are below it.
    virtual std::int32_t levelsBelow(const std::string& deptId, const std::string& id) = 0;
    virtual void addFolder(const DocumentFolder& folder) = 0;
    /// Stores its name and its place; what is in it comes along.
    virtual void putFolder(const DocumentFolder& folder) = 0;
    virtual void removeFolder(const std::string& deptId, const std::string& id) = 0;

    virtual DocumentPage pageDocuments(const DocumentFilter& filter) = 0;
    /// Those of these ids that are known, deleted ones too, in no order.
    virtual std::vector<Document> documents(const std::string& deptId, const std::vector<std::string>& ids) = 0;
    /// The newest first.
    virtual std::vector<DocumentContent> contentsOf(const Document& document) = 0;
    /// Who has updated documents of the folder last, each once, by shown name.
    virtual std::vector<Person> updatersIn(const std::string& deptId, const std::string& folderId) = 0;
    /// The tags of documents that are not deleted, by name.
    virtual std::vector<DocumentTag> tags(const std::string& deptId) = 0;
    virtual std::optional<DocumentTag> tagNamed(const std::string& deptId, const std::string& name) = 0;
    virtual std::int64_t tagCount(const std::string& deptId) = 0;
    /// A tag is there as long as a document has it.
    virtual void addTag(const std::string& deptId, const DocumentTag& tag) = 0;
    /// Adds it with its first content; returns its number.
    virtual std::int64_t addDocument(const Document& document) = 0;
    /// Stores what has changed; a new `uuid` is one content more. One that becomes deleted is loose from `updatedAt`
    /// on.
    virtual void putDocument(const Document& document, const Document& before) = 0;
    virtual DocumentLinks linksTo(const std::string& deptId, const std::vector<std::string>& ids) = 0;

    /// The deleted ones that are loose since `time` at the latest, so many at most.
    virtual std::vector<Document> looseDocuments(std::int64_t time, std::size_t most) = 0;
    /// A task links it, so it stays until that ends.
    virtual void holdDocument(const Document& document) = 0;
    virtual void removeDocument(const Document& document) = 0;

protected:
    ~IDocumentStore() = default;
};

}  // namespace disclosure
