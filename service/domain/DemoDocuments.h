#pragma once

#include <vector>

#include "service/domain/Demo.h"

namespace disclosure {

/// Fills the demonstration's store of documents as a site would have it; returns the documents that are there.
std::vector<Document> seedDemoDocuments(IStore& store, std::int64_t now, const KeepContent& keep);

}  // namespace disclosure
