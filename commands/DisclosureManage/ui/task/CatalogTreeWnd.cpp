#include "commands/DisclosureManage/ui/task/CatalogTreeWnd.h"

#include <QDialog>
#include <QQuickView>

#include "commands/DisclosureManage/ui/CallReport.h"
#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Rights.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeModel.h"
#include "sdk/basetools/AuthCodeTool.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"

namespace {

constexpr std::size_t kMostOpen = 200;  // catalogs that are all open

}  // namespace

int CCatalogTreeWnd::choose(QString& targetId, const QString& what) {
    targetId.clear();
    if (!FindDisclosureManager())
        return -1;
    CCatalogTreeWnd wnd(what);
    wnd.read();
    if (!wnd.m_catalogs.empty() || !UntoldFailure().isEmpty())
        wnd.frame().run();
    targetId = wnd.m_targetId;
    return 0;
}

CCatalogTreeWnd::CCatalogTreeWnd(const QString& what) : m_model(new CatalogTreeModel(frame().view())) {
    m_model->setNodeOperEnable(HoldsRight(BASETOOLS::CAuthCodeTool::kEditCatalogs));
    connect(&m_service, &ServiceState::back, this, [this] {
        if (m_model->reading()->isFailed())
            read();
    });
    publish("theWnd", QVariant::fromValue<QObject*>(this));
    publish("movedTasks", what);
    load("CatalogTreeWnd.qml", "theModel", m_model, {250, 450});
}

void CCatalogTreeWnd::read() {
    auto* manager = FindDisclosureManager();
    if (!manager)
        return;
    m_model->reading()->begin(true);
    DISCLOSUREPACKAGE::SetLastFailure({});
    std::vector<DISCLOSUREPACKAGE::CatalogRecord> catalogs;
    if (!manager->ListCatalogs(catalogs, {}))
        return m_model->reading()->fail(FailureReason(), true);
    m_catalogs = std::move(catalogs);
    setSearchText(m_search);
}

void CCatalogTreeWnd::setSearchText(const QString& text) {
    m_search = text;
    if (m_model->reading()->isFailed())
        return;
    m_model->setChoices(m_catalogs, text);
    if (m_model->rowCount() > 0)
        m_model->reading()->succeed();
    else
        m_model->reading()->findNone(tr("没有找到“%1”").arg(text.trimmed()), true);
}

bool CCatalogTreeWnd::opensAll() const {
    return m_catalogs.size() <= kMostOpen || !m_search.isEmpty();
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
