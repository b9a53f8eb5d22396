#pragma once

#include <vector>

#include <QString>

#include "ui/common/BaseWnd.h"

namespace DISCLOSUREPACKAGE {
struct CatalogRecord;
}

class CatalogTreeModel;

/// The chooser of the catalog that tasks are moved to.
class CCatalogTreeWnd : public CBaseWnd {
    Q_OBJECT

public:
    /// Lets the user choose; `targetId` is the chosen catalog, empty for no move. Returns -1, and shows nothing, where
    /// the host offers no disclosure manager, otherwise 0. Without catalogs nothing is shown either.
    static int choose(QString& targetId);

public slots:
    /// Takes the selected catalog, unless it is the top one, and closes.
    void SetMoveToCatalog();

protected:
    void connectRootObject() override;

private:
    CCatalogTreeWnd(QWidget* parent, const std::vector<DISCLOSUREPACKAGE::CatalogRecord>& catalogs);

    CatalogTreeModel* m_model;
    QString m_targetId;
};
