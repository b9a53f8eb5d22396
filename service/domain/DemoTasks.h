#pragma once

#include <vector>

#include "service/domain/Demo.h"

namespace disclosure {

/// Files tasks in the new catalogs of the demonstration, as a site would have them around the time `now`: plans,
/// published ones, some confirmed, some overdue; each with an upload and one or two of the documents.
void seedDemoTasks(IStore& store, std::int64_t now, const std::vector<Document>& documents, const KeepContent& keep);

}  // namespace disclosure
