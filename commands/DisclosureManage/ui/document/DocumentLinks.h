#pragma once

#include <vector>

#include "sdk/packages/disclosure/Records.h"
#include "sdk/packages/documents/IKpxDocFileListMgr.h"

/// The documents that a task is linked with: those of the store, and files uploaded from the local disk.
using DocumentLinks = std::vector<DISCLOSUREPACKAGE::TaskDocRecord>;

/// A new link to a document of the store with the content that it has now. `ppid` is the project's.
DISCLOSUREPACKAGE::TaskDocRecord LinkTo(const DOCUMENTPACKAGE::DocFileRecord& file, int32_t ppid);
/// A new link to a file that was uploaded.
DISCLOSUREPACKAGE::TaskDocRecord LinkTo(const DISCLOSUREPACKAGE::UploadedFileRecord& file);

/// Whether the link leads to a document of the store.
bool IsOfStore(const DISCLOSUREPACKAGE::TaskDocRecord& doc);
/// Whether the link means the content that the document has now.
bool MeansContent(const DISCLOSUREPACKAGE::TaskDocRecord& doc, const DOCUMENTPACKAGE::DocFileRecord& file);

/// Replaces the links to the store by the `chosen` ones. What stays keeps its place and its link, also where another
/// content of the same document was chosen; what is new comes last.
void ReplaceStoreDocuments(DocumentLinks& docs, const DocumentLinks& chosen);
