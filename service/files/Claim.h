#pragma once

#include "service/files/FileFolder.h"
#include "service/ports/IFileStore.h"

namespace disclosure {

/// Whether the folder's files are the database's: it says so, or it says nothing yet and holds some that the database
/// knows.
bool isFolderOf(IFileStore& store, const FileFolder& files);

/// Makes sure that the folder's files are the database's before anything in it is touched. A new folder becomes that
/// of a database without files. Throws std::runtime_error with the reason and the remedy when it is not so.
void claim(IFileStore& store, const FileFolder& files);

}  // namespace disclosure
