#pragma once

#include <functional>

#include <QCoreApplication>
#include <QString>

namespace workbench {

/// Contents of documents on the disk, found by their MD5. What stands under its name is whole, can be read only, and
/// has been checked; what was used longest ago goes when there is more than the limit.
class DocumentCache {
    Q_DECLARE_TR_FUNCTIONS(DocumentCache)

public:
    /// Beyond `limit` bytes only the content that was asked for last is kept.
    DocumentCache(QString folder, qint64 limit) : m_folder(std::move(folder)), m_limit(limit) {}

    /// Writes the content to the path; says why it could not.
    using Fetch = std::function<QString(const QString& path)>;
    /// The path of the content; empty when it cannot be had, and `why` tells the user. `extension` must be safe.
    QString file(const QString& md5, const QString& extension, const Fetch& fetch, QString& why);

private:
    void trim(const QString& kept) const;

    QString m_folder;
    qint64 m_limit;
};

/// In hexadecimal; empty when the file cannot be read.
QString md5Of(const QString& path);

}  // namespace workbench
