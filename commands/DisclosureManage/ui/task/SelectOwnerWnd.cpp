#include "commands/DisclosureManage/ui/task/SelectOwnerWnd.h"

#include <QDialog>
#include <QQuickView>

#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "ui/common/NameTreeModel.h"
#include "ui/common/NameTreeNode.h"

bool CSelectOwnerWnd::choose(BASEPACKAGE::UserRecord& person, const QStringList& leftOut) {
    if (!FindDisclosureManager())
        return false;
    CSelectOwnerWnd wnd(person, leftOut);
    wnd.frame().run();
    if (wnd.m_isChosen)
        person = wnd.m_person;
    return wnd.m_isChosen;
}

CSelectOwnerWnd::CSelectOwnerWnd(const BASEPACKAGE::UserRecord& person, const QStringList& leftOut)
    : m_people(leftOut),
      m_model(new NameTreeModel(frame().view())),
      m_reading(m_people, [this, login = QString::fromStdWString(person.userName)] {
          setSearchText(m_search);
          selectPerson(login);
      }) {
    publish("theReading", QVariant::fromValue<QObject*>(&m_reading));
    load("SelectOwnerWnd.qml", "theSelectOwnerWnd", this, {250, 450});
}

TreeModel* CSelectOwnerWnd::ownerDataModel() const {
    return m_model;
}

bool CSelectOwnerWnd::isDepNode(const QModelIndex& tIndex) const {
    return tIndex.isValid() && static_cast<const NameTreeNode*>(m_model->nodeOf(tIndex))->id().isEmpty();
}

void CSelectOwnerWnd::setSearchText(const QString& sText) {
    m_search = sText;
    NameTreeNode* top = m_people.createTree<NameTreeNode>(sText);
    if (top)
        m_model->addNode({}, top);
    else
        m_model->clear();
    m_reading.found(top, sText);
    emit ownerDataChanged();
}

void CSelectOwnerWnd::selectPerson(const QString& login) {
    if (login.isEmpty())
        return;
    QList<TreeNode*> pending = m_model->nodeOf({})->children();
    while (!pending.isEmpty()) {
        TreeNode* node = pending.takeLast();
        if (static_cast<NameTreeNode*>(node)->id() == login)
            return m_model->setCurrentIndex(m_model->indexOf(node));
        pending += node->children();
    }
}

void CSelectOwnerWnd::onClickOk() {
    const QModelIndex index = m_model->currentIndex();
    if (index.isValid() && !isDepNode(index)) {
        const auto* node = static_cast<const NameTreeNode*>(m_model->nodeOf(index));
        m_person = {node->id().toStdWString(), node->realName().toStdWString(), {}, {}};
        m_isChosen = true;
    }
    frame().dialog()->close();
}
