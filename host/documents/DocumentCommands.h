#pragma once

#include <chrono>
#include <vector>

#include <QCoreApplication>

#include "host/platform/DocumentStore.h"

class QWidget;

namespace workbench {

class CDocOperMgr;
class FormDialog;

/// What a user does with documents and folders: asks, has it done, and tells what went wrong. Each answers whether
/// anything has changed.
class DocumentCommands {
    Q_DECLARE_TR_FUNCTIONS(DocumentCommands)

public:
    using Documents = std::vector<Document>;
    using Folders = std::vector<DocumentFolder>;

    /// `owner` is the parent of all dialogs, `patience` how long a transfer may stand still.
    DocumentCommands(DocumentStore& store, CDocOperMgr& opener, std::chrono::milliseconds patience, QWidget& owner)
        : m_store(store), m_opener(opener), m_patience(patience), m_owner(owner) {}

    bool createFolder(const QString& parentId);
    bool renameFolder(const DocumentFolder& folder);
    bool moveFolder(const DocumentFolder& folder, const Folders& all);
    bool moveFolderTo(const QString& id, const QString& parentId);
    bool deleteFolder(const DocumentFolder& folder);

    bool chooseAndUpload(const QString& folderId);
    /// One file after the other; those that fail are named at the end.
    bool upload(const QStringList& paths, const QString& folderId);
    bool replace(const Document& document);
    bool rename(const Document& document);
    bool tag(const Documents& documents, const QStringList& knownTags);
    bool setWeaveDay(const Documents& documents);
    bool move(const Documents& documents, const Folders& folders);
    bool moveTo(const Documents& documents, const QString& folderId);
    bool remove(const Documents& documents);
    bool restore(const Documents& documents);

    void open(const DocumentContent& content);
    void save(const DocumentContent& content);
    void showContents(const Document& document);

    /// What the last command has done, for the user; empty where that can be seen.
    const QString& done() const { return m_done; }

private:
    bool tell(const QString& why);
    bool ask(const QString& title, const QString& label, QWidget* field, const std::function<QString()>& apply);
    bool askForName(const QString& title, const QString& label, const QString& name,
                    const std::function<QString(const QString& name)>& apply);
    bool askForFolder(const QString& title, const Folders& folders, const QString& without,
                      const std::function<QString(const QString& id)>& apply);

    DocumentStore& m_store;
    CDocOperMgr& m_opener;
    std::chrono::milliseconds m_patience;
    QWidget& m_owner;
    QString m_done;
};

}  // namespace workbench
