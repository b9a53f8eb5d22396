#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "service/ports/TaskRecords.h"

namespace disclosure {

/// The id of the top folder of every department, which has no row: it stands for the documents of all folders.
inline constexpr auto TopFolder = "0";

struct DocumentFolder {
    std::string deptId;
    std::string id;
    std::string parentId;
    std::string name;
    std::int32_t depth = 1;           // 1 directly below the top
    std::int64_t documentNumber = 0;  // directly in it; filled by `folders`
};

/// One of the contents that a document has had.
struct DocumentContent {
    std::string uuid;  // of the stored file
    std::string md5;
    std::string name;
    std::string extension;
    std::int64_t size = 0;
    std::string updatedBy;
    std::int64_t updatedAt = 0;
    std::string updatedByName;  // filled when read
};

struct DocumentTag {
    std::string id;
    std::string name;

    bool operator==(const DocumentTag&) const = default;
};

/// A document of a department's store with its newest content.
struct Document : DocumentContent {
    std::int64_t rid = 0;  // its number in the store; 0 before it is stored
    std::string deptId;
    std::string id;
    std::string folderId;
    std::int64_t wovenAt = 0;  // when it was compiled; 0: not known
    std::vector<DocumentTag> tags;
    std::int32_t contentNumber = 1;
    bool isDeleted = false;
};

/// Which documents of a department are wanted, and which part of them; the latest updated come first.
struct DocumentFilter {
    static constexpr auto Untagged = "none";  // of `tagId`: those without one

    std::string deptId;
    std::string folderId = TopFolder;
    std::vector<std::string> extensions;  // none for all
    std::string updatedBy;                // a login name; empty for all, as are the next two
    std::string tagId;
    std::string keyword;
    std::int64_t from = 0;  // of the compiled time, both ends included; 0 includes the documents without one
    std::int64_t to = Never;
    bool deleted = false;  // instead of those that are there
    std::int64_t offset = 0;
    std::int64_t limit = 0;
};

struct DocumentPage {
    std::vector<Document> documents;
    std::int64_t total = 0;
};

/// How many tasks link how many of some documents.
struct DocumentLinks {
    std::int64_t documents = 0;
    std::int64_t tasks = 0;
};

}  // namespace disclosure
