#pragma once

#include <functional>
#include <string>

#include "service/ports/IStore.h"

namespace disclosure {

/// Puts the content on the disk as the file of that uuid; returns its MD5.
using KeepContent = std::function<std::string(const std::string& uuid, const std::string& content)>;

/// Files tasks in the new catalogs of the demonstration, as a site would have them around the time `now`: plans,
/// published ones, some confirmed, some overdue; each with a document.
void seedDemoTasks(IStore& store, std::int64_t now, const KeepContent& keep);

}  // namespace disclosure
