#include "service/files/Claim.h"

#include <stdexcept>

#include "service/files/Sweep.h"

namespace disclosure {

namespace {

enum class Held { Nothing, Strange, Own };

/// What a folder that says nothing of its database holds. One file that the database knows is enough: their ids are
/// random, and what it does not know is never lost at once.
Held heldOf(IFileStore& store, const FileFolder& files) {
    Held held = Held::Nothing;
    for (const std::string& shelf : files.shelves(FileFolder::Where::Kept)) {
        const auto names = files.contents(FileFolder::Where::Kept, shelf);
        if (unknownOf(store, names).size() < names.size())
            return Held::Own;
        if (!names.empty())
            held = Held::Strange;
    }
    return held;
}

}  // namespace

bool isFolderOf(IFileStore& store, const FileFolder& files) {
    const std::string owner = files.owner();
    return owner.empty() ? heldOf(store, files) == Held::Own : owner == store.folderId();
}

void claim(IFileStore& store, const FileFolder& files) {
    const std::string id = store.folderId();
    const std::string folder = files.path().string();
    if (files.owner().empty()) {
        const Held held = heldOf(store, files);
        if (held == Held::Strange)
            throw std::runtime_error(folder +
                                     " holds files that this database does not know; they may be another's, so give "
                                     "this one a folder of its own as files.folder");
        if (held == Held::Nothing && store.holdsFiles())
            throw std::runtime_error(folder +
                                     " has none of this database's files; bring the folder that has them there or name "
                                     "it as files.folder. Should they be lost, write " +
                                     id + " into " + folder + "/database");
        files.setOwner(id);
    }
    if (files.owner() != id)
        throw std::runtime_error(folder + " holds the files of another database, " + files.owner() + ", and this is " +
                                 id +
                                 "; give this one a folder of its own as files.folder. If they are this one's all the "
                                 "same, restored from before it had an id, remove " +
                                 folder + "/database");
}

}  // namespace disclosure
