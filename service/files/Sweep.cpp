#include "service/files/Sweep.h"

#include <algorithm>
#include <iterator>
#include <spdlog/spdlog.h>

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
            files.setAside(uuid);
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
    files.removeIncomingOlder(Dead);
    return goOn();
}

}  // namespace

void sweepFiles(IStore& store, const FileFolder& files, std::chrono::milliseconds keep, std::int64_t now,
                const GoOn& goOn) {
    if (removeLoose(store, files, now - keep.count(), now, goOn))
        removeDeadUploads(store, files, now - Gone.count(), goOn);
}

void sortFolder(IStore& store, const FileFolder& files, std::chrono::milliseconds keep, std::chrono::milliseconds aside,
                const GoOn& goOn) {
    using Where = FileFolder::Where;
    for (const std::string& shelf : files.shelves(Where::Kept)) {
        // A file has its row moments after its last byte, so an old one without it never will.
        for (const std::string& uuid : unknownOf(store, files.contents(Where::Kept, shelf)))
            if (files.age(Where::Kept, uuid) > keep) {
                spdlog::warn("the file {} is unknown to the database and is set aside", uuid);
                files.setAside(uuid);
            }
        if (!goOn())
            return;
    }
    for (const std::string& shelf : files.shelves(Where::Aside)) {
        const auto all = files.contents(Where::Aside, shelf);
        const auto unknown = unknownOf(store, all);
        for (const std::string& uuid : all)
            if (!std::binary_search(unknown.begin(), unknown.end(), uuid))
                files.putBack(uuid);
            else if (files.age(Where::Aside, uuid) > aside)
                files.removeAside(uuid);
        if (!goOn())
            return;
    }
}

std::vector<std::string> unknownOf(IFileStore& store, const std::vector<std::string>& uuids) {
    if (uuids.empty())
        return {};
    const auto known = store.knownFiles(uuids.front(), uuids.back());
    std::vector<std::string> unknown;
    std::set_difference(uuids.begin(), uuids.end(), known.begin(), known.end(), std::back_inserter(unknown));
    return unknown;
}

}  // namespace disclosure
