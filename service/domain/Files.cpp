#include "service/domain/Files.h"

#include <algorithm>
#include <array>

#include "service/domain/DocumentTypes.h"
#include "service/domain/Names.h"
#include "service/domain/Passwords.h"
#include "service/domain/Refusal.h"
#include "service/domain/TaskChecks.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

using namespace std::string_view_literals;

// Windows, Linux, scripts, and the Mach-O forms: 32 and 64 bits in either byte order, and several in one file.
constexpr std::array Programs{"MZ"sv,
                              "\x7f"
                              "ELF"sv,
                              "#!"sv,
                              "\xfe\xed\xfa\xce"sv,
                              "\xfe\xed\xfa\xcf"sv,
                              "\xce\xfa\xed\xfe"sv,
                              "\xcf\xfa\xed\xfe"sv,
                              "\xca\xfe\xba\xbe"sv,
                              "\xca\xfe\xba\xbf"sv};

bool isTaken(const std::string& extension) {
    const auto types = documentTypes();
    return std::any_of(types.begin(), types.end(), [&](const DocumentType& type) {
        return std::find(type.extensions.begin(), type.extensions.end(), extension) != type.extensions.end();
    });
}

}  // namespace

PendingFile Files::expect(const std::string& deptId, const std::string& name, std::int64_t size, std::int64_t quota) {
    if (trimmed(name).empty())
        throw Refusal(reasons::FileNameEmpty);
    if (lengthOf(name) > LongestFileName)
        throw Refusal(reasons::FileNameTooLong);
    if (hasControls(name, false) || name.find_first_of("/\\") != std::string::npos)
        throw Refusal(reasons::FileNameForbidden);
    const std::string extension = extensionOf(name);
    if (!isTaken(extension))
        throw Refusal(reasons::FileTypeUnknown);
    if (size >= TooLarge)
        throw Refusal(reasons::FileTooLarge);
    const std::int64_t used = m_store.bytesOf(deptId);
    if (used >= quota || size > quota - used)
        throw Refusal(reasons::QuotaUsed);
    PendingFile pending{{deptId, newFileUuid()}, name, extension, size, m_username, m_now};
    m_store.addUpload(pending);
    return pending;
}

StoredFile Files::keep(const PendingFile& pending, const std::string& md5) {
    StoredFile file{pending.key, pending.name, pending.extension, md5, pending.size, pending.username, m_now};
    m_store.removeUpload(pending.key);
    m_store.addFile(file);
    return file;
}

StoredFile Files::readable(const FileKey& key) {
    auto file = m_store.fileOfPerson(m_username, key);
    if (!file)
        throw Refusal(reasons::NoFile);
    return std::move(*file);
}

bool Files::takeBack(const FileKey& key) {
    const auto file = m_store.file(key);
    if (!file)
        return false;
    if (file->username != m_username)
        throw Refusal(reasons::NotUploader);
    if (m_store.isReferredTo(key))
        throw Refusal(reasons::FileInUse);
    m_store.removeFile(key);
    return true;
}

std::string newFileUuid() {
    return newSecret().substr(0, 32);
}

void checkBeginning(std::string_view content) {
    if (std::any_of(Programs.begin(), Programs.end(),
                    [content](std::string_view mark) { return content.starts_with(mark); }))
        throw Refusal(reasons::FileExecutable);
}

}  // namespace disclosure
