#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "service/files/FileFolder.h"
#include "service/ports/GoOn.h"
#include "service/ports/IStore.h"

/// Any number of processes may do these at once, and while files come and tasks are saved.
namespace disclosure {

/// Forgets the files that no task has referred to for as long as `keep`, whose contents are set aside, and what
/// interrupted uploads have left behind. `now` is the time of the rows. What it costs grows with these alone.
void sweepFiles(IStore& store, const FileFolder& files, std::chrono::milliseconds keep, std::int64_t now,
                const GoOn& goOn);

/// Goes through the whole folder: contents that no row knows are set aside once they are older than `keep`; those set
/// aside come back where a row knows them again, and are removed after `aside`. A listing and one query for each of
/// the folder's 256 parts.
void sortFolder(IStore& store, const FileFolder& files, std::chrono::milliseconds keep, std::chrono::milliseconds aside,
                const GoOn& goOn);

/// Those of the uuids, which are in their order, that no row knows.
std::vector<std::string> unknownOf(IFileStore& store, const std::vector<std::string>& uuids);

}  // namespace disclosure
