#include "host/documents/DocumentCache.h"

#include <filesystem>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include "host/platform/Aside.h"

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr char kUnfinished[] = ".new";
constexpr int kHoursOfUnfinished = 24;

fs::path pathOf(const QString& path) {
    return path.toStdU16String();
}

bool isMd5(const QString& text) {
    static const QRegularExpression form("^[0-9a-f]{32}$");
    return form.match(text).hasMatch();
}

}  // namespace

QString md5Of(const QString& path) {
    return aside([&path] {
        QFile file(path);
        QCryptographicHash hash(QCryptographicHash::Md5);
        const bool isRead = file.open(QIODevice::ReadOnly) && hash.addData(&file);
        return isRead ? QString::fromLatin1(hash.result().toHex()) : QString();
    });
}

QString DocumentCache::file(const QString& md5, const QString& extension, const Fetch& fetch, QString& why) {
    const QString digest = md5.toLower();
    if (!isMd5(digest)) {
        why = tr("资料的校验码有误");
        return {};
    }
    const QString path = QDir(m_folder).filePath(digest + "." + extension);
    if (QFile::exists(path) && md5Of(path) == digest) {
        std::error_code ignored;
        fs::last_write_time(pathOf(path), fs::file_time_type::clock::now(), ignored);
        return path;
    }
    QDir().mkpath(m_folder);
    const QString unfinished = path + QString(".%1").arg(QCoreApplication::applicationPid()) + kUnfinished;
    why = fetch(unfinished);
    if (why.isEmpty() && md5Of(unfinished) != digest)
        why = tr("资料的内容与记录不符，请重试");
    if (why.isEmpty()) {
        QFile::setPermissions(unfinished, QFile::ReadOwner);
        std::error_code failed;
        fs::rename(pathOf(unfinished), pathOf(path), failed);  // takes the place of what is damaged
        if (failed)
            why = tr("无法写入缓存目录 %1").arg(QDir::toNativeSeparators(m_folder));
    }
    if (!why.isEmpty()) {
        QFile::remove(unfinished);
        return {};
    }
    trim(path);
    return path;
}

void DocumentCache::trim(const QString& kept) const {
    qint64 total = 0;
    const QDateTime yesterday = QDateTime::currentDateTime().addSecs(-kHoursOfUnfinished * 3600LL);
    // The newest first.
    for (const QFileInfo& file : QDir(m_folder).entryInfoList(QDir::Files | QDir::Hidden, QDir::Time)) {
        const bool isWhole = isMd5(file.completeBaseName());
        total += isWhole ? file.size() : 0;
        const bool mayGo = isWhole ? total > m_limit : file.lastModified() < yesterday;
        if (mayGo && file.fileName() != QFileInfo(kept).fileName())
            QFile::remove(file.filePath());
    }
}

}  // namespace workbench
