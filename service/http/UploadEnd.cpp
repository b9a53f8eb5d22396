#include "service/http/UploadEnd.h"

#include <spdlog/spdlog.h>

#include "service/domain/Files.h"
#include "service/http/FileHandlers.h"
#include "service/ports/Changing.h"

namespace disclosure {

Response UploadEnd::keep(const PendingFile& pending, const std::string& md5, IStore& store) const noexcept {
    try {
        return uploaded(changing(store, [&] { return Files(store, pending.username, m_clock()).keep(pending, md5); }));
    } catch (...) {
        Response answer = answerToFailure("upload");
        removeUnknown(pending.key.uuid, store);
        giveUp(pending, store);
        return answer;
    }
}

/// A commit that failed may have been carried out all the same; then the row needs its content.
void UploadEnd::removeUnknown(const std::string& uuid, IStore& store) const noexcept {
    try {
        if (!store.knowsFile(uuid))
            m_files.remove(uuid);
    } catch (const std::exception& error) {
        spdlog::warn("an upload's content is left to the sweep: {}", logTextOf(error));
    }
}

void UploadEnd::giveUp(const PendingFile& pending, IStore& store) const noexcept {
    try {
        changing(store, [&] { Files(store, pending.username, m_clock()).giveUp(pending); });
    } catch (const std::exception& error) {
        spdlog::warn("an upload's room is left to the sweep: {}", logTextOf(error));
    }
}

}  // namespace disclosure
