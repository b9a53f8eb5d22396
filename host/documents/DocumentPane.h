#pragma once

#include <vector>

#include <QTimer>
#include <QWidget>

#include "host/documents/DocumentCommands.h"
#include "host/platform/DocumentStore.h"
#include "sdk/packages/IAuthInfoMgr.h"
#include "sdk/packages/IServiceStateMgr.h"

class QAction;
class QToolBar;

namespace workbench {

class DocumentFilters;
class DocumentList;
class DropTree;

/// The document store of the open project: its folders, a page of a folder's documents, and all that can be done with
/// both. It reads when it is first seen, and whenever what it shows may be out of date.
class DocumentPane : public QWidget, public BASEPACKAGE::IServiceStateObserver {
    Q_OBJECT

public:
    DocumentPane(DocumentStore& store, CDocOperMgr& opener, const BASEPACKAGE::IAuthInfoMgr& rights,
                 std::chrono::milliseconds patience);

    /// Reads everything again as soon as it is seen and nobody works above it; selection and place stay.
    void readAgain();
    /// Another project, or another user: nothing of what is shown is valid.
    void startAnew();
    /// What could not be read is read again.
    void OnServiceStateChanged(bool reachable) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    struct Spec;
    static const Spec kSpecs[];
    struct Offer {
        const Spec* spec;
        QAction* action;
    };

    QWidget* createFolders();
    QWidget* createDocuments();
    void createActions();
    void showMenu(QWidget& widget, const QPoint& place);
    bool mayDrop(const DropTree& tree, const QDropEvent& event, const QString& id) const;
    void takeDropped(QObject* source, const QString& id);

    void readNow();
    bool readFolders();
    bool readFilters();
    void readPage(int page);
    void showState(const QString& text);
    /// Says why in place of the rows.
    void fail(const QString& why);
    void updateActions();
    /// Empty where the user may do it now.
    QString reasonAgainst(const Spec& spec) const;

    QString folderId() const;
    const DocumentFolder* folder() const;
    template <class Command>
    void run(Command command);

    DocumentStore& m_store;
    const BASEPACKAGE::IAuthInfoMgr& m_rights;
    DocumentCommands m_commands;
    std::vector<DocumentFolder> m_folders;
    std::vector<DocumentType> m_types;
    QStringList m_tagNames;
    bool m_mayEdit = false;
    bool m_mayDelete = false;
    bool m_isFailed = false;
    bool m_isDue = false;  // all is to be read once that may be
    QTimer m_look;         // whether it may
    QTimer m_settle;       // until the folder that was gone to is the one that is meant

    DropTree* m_tree;
    DocumentList* m_list;
    DropTree* m_table;  // its rows
    DocumentFilters* m_filters;
    QToolBar* m_folderBar;
    QToolBar* m_bar;
    std::vector<Offer> m_offers;
};

}  // namespace workbench
