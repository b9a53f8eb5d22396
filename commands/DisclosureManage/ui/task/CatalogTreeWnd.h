#pragma once

#include <vector>

#include <QString>

#include "commands/DisclosureManage/ui/ServiceState.h"
#include "commands/DisclosureManage/ui/TaskDialog.h"
#include "sdk/packages/disclosure/Records.h"

class CatalogTreeModel;

/// The chooser of the catalog that tasks are moved to.
class CCatalogTreeWnd : public CTaskDialog {
    Q_OBJECT

public:
    /// Lets the user choose where `what`, as the window says, is moved to; `targetId` is the chosen catalog, empty for
    /// no move. Returns -1, and shows nothing, where the host offers no disclosure manager, otherwise 0. Without
    /// catalogs, and where the service refused to list them, nothing is shown either.
    static int choose(QString& targetId, const QString& what = {});

    /// Shows the catalogs whose names contain `text`.
    Q_INVOKABLE void setSearchText(const QString& text);
    /// Reads the catalogs again.
    Q_INVOKABLE void read();
    /// The tree is open as a whole: the catalogs are few, or found.
    Q_INVOKABLE bool opensAll() const;

public slots:
    /// Takes the selected catalog, unless it is the top one, and closes.
    void SetMoveToCatalog();

protected:
    void connectRootObject() override;

private:
    explicit CCatalogTreeWnd(const QString& what);

    CatalogTreeModel* m_model;
    std::vector<DISCLOSUREPACKAGE::CatalogRecord> m_catalogs;
    QString m_search;
    QString m_targetId;
    ServiceState m_service;
};
