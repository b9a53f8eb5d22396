#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "service/domain/Files.h"
#include "service/files/FileFolder.h"

namespace disclosure {

/// An upload that was let in. What has come of it is removed with the object, unless it has been finished.
class Upload {
public:
    Upload(PendingFile pending, std::unique_ptr<FileWriter> writer)
        : m_pending(std::move(pending)), m_writer(std::move(writer)) {}

    const PendingFile& pending() const { return m_pending; }
    /// Throws `Refusal` when this is not a content that may be stored, and as `FileWriter` does. The first piece is
    /// more than a few bytes, or all there is.
    void take(std::string_view piece) {
        if (!std::exchange(m_begun, true))
            checkBeginning(piece);
        m_writer->write(piece);
    }
    /// Returns the MD5 of the content, which is then on the disk to stay.
    std::string finish() { return m_writer->finish(); }

private:
    PendingFile m_pending;
    std::unique_ptr<FileWriter> m_writer;
    bool m_begun = false;
};

}  // namespace disclosure
