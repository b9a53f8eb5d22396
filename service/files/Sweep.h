#pragma once

#include <chrono>
#include <cstdint>

#include "service/files/FileFolder.h"
#include "service/ports/GoOn.h"
#include "service/ports/IStore.h"

namespace disclosure {

/// Removes the files that no task has referred to for as long as `keep`, and what interrupted uploads and crashes have
/// left behind: room held for an upload that does not grow, and contents that no row knows. Any number of processes
/// may do so at once, and while files come and tasks are saved. `now` is the time of the rows.
void sweepFiles(IStore& store, const FileFolder& files, std::chrono::milliseconds keep, std::int64_t now,
                const GoOn& goOn);

}  // namespace disclosure
