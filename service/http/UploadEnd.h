#pragma once

#include <string>

#include "service/files/FileFolder.h"
#include "service/http/Messages.h"
#include "service/ports/IStore.h"
#include "service/ports/Records.h"

namespace disclosure {

/// How an upload ends whose request was answered with leave to send it. Any threads.
class UploadEnd {
public:
    /// `files` must outlive it.
    UploadEnd(Clock clock, const FileFolder& files) : m_clock(std::move(clock)), m_files(files) {}

    /// It has come whole and is on the disk.
    Response keep(const PendingFile& pending, const std::string& md5, IStore& store) const noexcept;
    /// It does not come.
    void giveUp(const PendingFile& pending, IStore& store) const noexcept;

private:
    void removeUnknown(const std::string& uuid, IStore& store) const noexcept;

    Clock m_clock;
    const FileFolder& m_files;
};

}  // namespace disclosure
