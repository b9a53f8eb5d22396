#include "commands/DisclosureManage/ui/task/CatalogTreeWnd.h"

#include <QDialog>
#include <QQmlContext>
#include <QQuickView>

#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Rights.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeModel.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basetools/AuthCodeTool.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"

int CCatalogTreeWnd::choose(QString& targetId) {
    targetId.clear();
    auto* manager = FindDisclosureManager();
    if (!manager)
        return -1;
    std::vector<DISCLOSUREPACKAGE::CatalogRecord> catalogs;
    if (!manager->ListCatalogs(catalogs, {}) || catalogs.empty())
        return 0;
    CCatalogTreeWnd wnd(BASECORE::FRAME::GetMainBaseCore()->GetMainWindow(), catalogs);
    wnd.frame().run();
    targetId = wnd.m_targetId;
    return 0;
}

CCatalogTreeWnd::CCatalogTreeWnd(QWidget* parent, const std::vector<DISCLOSUREPACKAGE::CatalogRecord>& catalogs)
    : CBaseWnd(parent), m_model(new CatalogTreeModel(frame().view())) {
    frame().dialog()->setMinimumSize(250, 450);
    m_model->setNodeOperEnable(HoldsRight(BASETOOLS::CAuthCodeTool::kEditCatalogs));
    m_model->setCatalogs(catalogs);
    frame().view()->rootContext()->setContextProperty(QStringLiteral("theModel"), m_model);
    frame().load(QUrl(QStringLiteral("qrc:/commands/DisclosureManage/ui/task/qml/CatalogTreeWnd.qml")));
    CCatalogTreeWnd::connectRootObject();
}

void CCatalogTreeWnd::connectRootObject() {
    CBaseWnd::connectRootObject();
    frame().connectRoot("signalOKClicked()", this, "SetMoveToCatalog()");
}

void CCatalogTreeWnd::SetMoveToCatalog() {
    const CatalogTreeNode* node = m_model->GetCurrentNode();
    if (node && !node->isTopLevel())
        m_targetId = node->id();
    frame().dialog()->close();
}
