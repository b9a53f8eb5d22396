#pragma once

#include <QCoreApplication>
#include <QPointer>
#include <QWidget>

class CatalogTreeModel;
class CatalogTreeNode;

namespace DISCLOSUREPACKAGE {
class IDisclosureManageMgr;
}

/// What the user does to the catalogs: each change goes to the service first and then to the tree, which stays as it
/// was when the service refuses or the host lacks a part.
class CCatalogEditor {
    Q_DECLARE_TR_FUNCTIONS(CCatalogEditor)

public:
    /// Both are borrowed; `messageOwner` is the parent of message boxes.
    CCatalogEditor(CatalogTreeModel& model, QWidget* messageOwner);

    /// Reads the catalogs; a department without any is given its first ones, on the first load with one to work in.
    /// False, and the tree as it was, when the service does not answer or refuses; the model's `reading` says so.
    bool load(bool firstLoad);
    /// A question to the user is open.
    bool isAsking() const { return m_isAsking; }
    /// The name proposed for a new folder, after the names beside the selected catalog.
    QString nextFolderName() const;

    /// Creates a folder in the selected catalog.
    void create(const QString& name);
    /// The top catalog keeps its name.
    void rename(const QString& name);
    /// Asks before.
    void remove();
    void moveUp() { move(-1); }
    void moveDown() { move(1); }

private:
    bool renameCatalog(const CatalogTreeNode& node, const QString& name);
    bool checkName(const QString& name) const;
    bool confirmsRemoval(const CatalogTreeNode& node);
    bool removeCurrent();
    void move(int places);

    CatalogTreeModel& m_model;
    QPointer<QWidget> m_messageOwner;
    bool m_isAsking = false;
};
