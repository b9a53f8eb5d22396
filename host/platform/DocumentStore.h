#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QStringList>

#include "host/platform/PlatformClient.h"

namespace PROJECTPACKAGE {
class IKpxCurProjectMgr;
}

namespace workbench {

struct DocumentFolder {
    QString id;
    QString parentId;
    QString name;
};

/// A kind of documents, with the extensions that belong to it.
struct DocumentType {
    QString name;
    QStringList extensions;
};

/// A tag or a person who has changed documents.
struct DocumentLabel {
    QString id;
    QString name;
};

/// A content of a document.
struct DocumentContent {
    QString uuid;
    QString md5;
    QString name;
    QString extension;
    int size = 0;  // bytes
    QString updateBy;
    QString updateRealname;
    qint64 updateMills = 0;
};

/// A document with its newest content.
struct Document : DocumentContent {
    QString id;
    QString folderId;
    qint64 weaveMills = 0;  // 0 when it is not known
    QStringList tags;
    int contentNumber = 1;
    bool isDeleted = false;
};

struct DocumentPage {
    std::vector<Document> documents;
    int total = 0;
};

/// What a page of documents is asked by; an empty text filters nothing.
struct DocumentQuery {
    QString folderId;
    QString type;
    QString updateBy;
    QString tagId;
    QString keyword;
    std::optional<std::pair<qint64, qint64>> seconds;  // of the compiled time
    bool deletedOnes = false;
    int page = 1;
    int pageSize = 30;
};

/// What tasks know of documents that are to be deleted.
struct DocumentLinks {
    int documents = 0;
    int tasks = 0;
};

/// The documents of the current project's department at the service. Where a call fails, `why` tells the user; of the
/// lists nothing is given then.
class DocumentStore {
    Q_DECLARE_TR_FUNCTIONS(DocumentStore)

public:
    static constexpr std::size_t kMostAtOnce = 100;  // documents that are looked up by one request

    DocumentStore(PlatformClient& client, const PROJECTPACKAGE::IKpxCurProjectMgr& currentProject);

    /// Whether a project is open.
    bool hasDepartment() const { return !orCurrent({}).empty(); }

    /// An empty `deptId` means the current project's, here and below.
    std::optional<std::vector<DocumentFolder>> folders(QString& why, const std::wstring& deptId = {});
    std::optional<std::vector<DocumentType>> types(QString& why);
    std::optional<std::vector<DocumentLabel>> tags(QString& why);
    std::optional<std::vector<DocumentLabel>> updaters(const QString& folderId, QString& why);
    std::optional<DocumentPage> page(const DocumentQuery& query, QString& why);
    /// At most `kMostAtOnce`; deleted ones too, unknown ones are left out.
    std::optional<std::vector<Document>> find(const QStringList& ids, QString& why, const std::wstring& deptId = {});
    /// The newest first.
    std::optional<std::vector<DocumentContent>> contents(const QString& documentId, QString& why);

    /// Each gives why it was refused, empty when it was done.
    QString saveFolder(const DocumentFolder& folder);
    QString renameFolder(const QString& id, const QString& name);
    QString moveFolder(const QString& id, const QString& parentId);
    QString deleteFolder(const QString& id);
    /// The local file becomes the document's newest content; a new id is a new document. Tried once more where the
    /// answer to the last step is lost.
    Answer upload(const QString& id, const QString& folderId, const QString& path, std::chrono::milliseconds patience);
    /// `changes` are some of "name" (of one document), "folderId", "weaveDateMills" and "tags".
    QString change(const QStringList& ids, const QJsonObject& changes);
    /// Unless it is `forced`, documents that tasks link stay, and `links` tells how many.
    QString remove(const QStringList& ids, bool forced, DocumentLinks& links);
    QString restore(const QStringList& ids);

private:
    std::wstring orCurrent(const std::wstring& deptId) const;
    template <class Record>
    std::optional<std::vector<Record>> list(const QString& path, const QUrlQuery& query,
                                            std::optional<Record> (*read)(const QJsonValue& value), QString& why);
    Answer post(const QString& path, QJsonObject body);

    PlatformClient& m_client;
    const PROJECTPACKAGE::IKpxCurProjectMgr& m_currentProject;
};

}  // namespace workbench
