#include "service/files/Sweep.h"

#include <string>
#include <vector>

#include "service/ports/Changing.h"

namespace disclosure {

namespace {

/// A client that sends nothing is cut off long before.
constexpr std::chrono::milliseconds Dead = std::chrono::hours(1);
/// An upload has its file from the beginning, and its row becomes that of a stored file moments after the end.
constexpr std::chrono::milliseconds Gone = std::chrono::minutes(5);
constexpr std::size_t AtOnce = 100;  // so that others get to write in between

/// The row first: a crash in between leaves a content that no row knows, never a row without its content.
bool removeLoose(IStore& store, const FileFolder& files, std::int64_t before, std::int64_t now, const GoOn& goOn) {
    std::vector<LooseFile> found;
    do {
        std::vector<std::string> removed;
        changing(store, [&] {
            removed.clear();
            found = store.looseFiles(before, AtOnce);
            for (const LooseFile& file : found) {
                if (store.isReferredTo(file.key)) {
                    store.setLoose(file.key, LooseFile::Held);
                } else if (file.since == LooseFile::JustReleased) {
                    store.setLoose(file.key, now);
                } else {
                    store.removeFile(file.key);
                    removed.push_back(file.key.uuid);
                }
            }
        });
        for (const std::string& uuid : removed)
            files.remove(uuid);
        if (!goOn())
            return false;
    } while (found.size() == AtOnce);
    return true;
}

bool removeDeadUploads(IStore& store, const FileFolder& files, std::int64_t before, const GoOn& goOn) {
    for (const FileKey& key : store.uploadsBegunBefore(before)) {
        if (files.silenceOf(key.uuid) <= Dead)
            continue;
        changing(store, [&] { store.removeUpload(key); });
        if (!goOn())
            return false;
    }
    files.eachIncomingOlder(Dead, [&](const std::string& uuid) { files.removeIncoming(uuid); });
    return goOn();
}

/// A file has its row moments after its last byte, so an old one without it never will.
void removeUnknown(IStore& store, const FileFolder& files, std::chrono::milliseconds age, const GoOn& goOn) {
    std::size_t looked = 0;
    bool goesOn = true;
    files.eachOlder(age, [&](const std::string& uuid) {
        if (!goesOn)
            return;
        if (!store.knowsFile(uuid))
            files.remove(uuid);
        if (++looked % AtOnce == 0)
            goesOn = goOn();
    });
}

}  // namespace

void sweepFiles(IStore& store, const FileFolder& files, std::chrono::milliseconds keep, std::int64_t now,
                const GoOn& goOn) {
    if (removeLoose(store, files, now - keep.count(), now, goOn) &&
        removeDeadUploads(store, files, now - Gone.count(), goOn))
        removeUnknown(store, files, keep, goOn);
}

}  // namespace disclosure
