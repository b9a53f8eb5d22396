#include "commands/DisclosureManage/ui/task/SelectReceiverWnd.h"

#include <QDialog>
#include <QHash>
#include <QQuickView>
#include <QSet>

#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "ui/common/NameCheckBoxTreeModel.h"
#include "ui/common/NameCheckBoxTreeNode.h"
#include "ui/common/WideText.h"

using BASEPACKAGE::UserRecord;

namespace {

int depthOf(const TreeNode* node) {
    int depth = 0;
    for (; !node->isTopLevel(); node = node->parentNode())
        ++depth;
    return depth;
}

}  // namespace

bool CSelectReceiverWnd::choose(People& people, const QStringList& leftOut) {
    if (!FindDisclosureManager())
        return false;
    CSelectReceiverWnd wnd(people, leftOut);
    wnd.frame().run();
    if (wnd.m_isAccepted)
        people = wnd.m_chosen;
    return wnd.m_isAccepted;
}

CSelectReceiverWnd::CSelectReceiverWnd(const People& people, const QStringList& leftOut)
    : m_people(leftOut),
      m_model(new NameCheckBoxTreeModel(frame().view())),
      m_chosen(people),
      m_reading(m_people, [this] {
          setSearchText(m_search);
          noticeChoice();
      }) {
    m_names = m_people.names().shown(m_chosen);
    publish("theReading", QVariant::fromValue<QObject*>(&m_reading));
    load("SelectReceiverWnd.qml", "theSelectReceiverWnd", this, {250, 450});
}

TreeModel* CSelectReceiverWnd::receiverDataModel() const {
    return m_model;
}

QVector<NameCheckBoxTreeNode*> CSelectReceiverWnd::nodesBelow(TreeNode* top) const {
    QVector<NameCheckBoxTreeNode*> nodes;
    const auto append = [&nodes](const TreeNode* node) {
        for (TreeNode* child : node->children())
            nodes.append(static_cast<NameCheckBoxTreeNode*>(child));
    };
    append(top);
    for (int i = 0; i < nodes.size(); ++i)
        append(nodes.at(i));
    return nodes;
}

void CSelectReceiverWnd::setSearchText(const QString& sText) {
    m_search = sText;
    auto* top = m_people.createTree<NameCheckBoxTreeNode>(sText);
    if (top)
        m_model->addNode({}, top);
    else
        m_model->clear();
    m_reading.found(top, sText);
    showChoice();
    m_levels = 0;
    for (const NameCheckBoxTreeNode* node : nodesBelow(m_model->nodeOf({})))
        if (!node->children().isEmpty())
            m_levels = qMax(m_levels, depthOf(node) + 1);
    m_level = m_levels;  // a new tree is open
    emit receiverModelChanged();
}

void CSelectReceiverWnd::showChoice() {
    QSet<QString> chosen;
    for (const UserRecord& person : m_chosen)
        chosen.insert(FromWide(person.userName));
    const auto nodes = nodesBelow(m_model->nodeOf({}));
    for (int i = nodes.size() - 1; i >= 0; --i) {  // children before their departments
        NameCheckBoxTreeNode* node = nodes.at(i);
        Qt::CheckState state = chosen.contains(node->id()) ? Qt::Checked : Qt::Unchecked;
        if (!node->children().isEmpty()) {
            state = static_cast<CheckBoxTreeNode*>(node->children().first())->checkState();
            for (TreeNode* child : node->children())
                if (static_cast<CheckBoxTreeNode*>(child)->checkState() != state)
                    state = Qt::PartiallyChecked;
        }
        if (state == node->checkState())
            continue;
        node->storeCheckState(state);
        emit node->checkStateChanged();
    }
}

void CSelectReceiverWnd::onItemCheckStatusChanged(const QModelIndex& tIndex) {
    if (!tIndex.isValid())
        return;
    TreeNode* top = m_model->nodeOf(tIndex);
    QVector<NameCheckBoxTreeNode*> nodes = nodesBelow(top);
    nodes.append(static_cast<NameCheckBoxTreeNode*>(top));

    QSet<QString> removed;
    QSet<QString> known;
    for (const NameCheckBoxTreeNode* node : qAsConst(nodes))
        if (node->checkState() == Qt::Unchecked)
            removed.insert(node->id());
    std::erase_if(m_chosen, [&](const UserRecord& person) { return removed.contains(FromWide(person.userName)); });
    for (const UserRecord& person : m_chosen)
        known.insert(FromWide(person.userName));
    for (const NameCheckBoxTreeNode* node : qAsConst(nodes))
        if (node->checkState() == Qt::Checked && !node->id().isEmpty() && !known.contains(node->id()))
            m_chosen.push_back({node->id().toStdWString(), node->realName().toStdWString(), {}, {}});
    noticeChoice();
}

void CSelectReceiverWnd::onClickDelReceiver(int nIndex) {
    if (nIndex < 0 || nIndex >= selcount())
        return;
    m_chosen.erase(m_chosen.begin() + nIndex);
    showChoice();
    noticeChoice();
}

void CSelectReceiverWnd::noticeChoice() {
    m_names = m_people.names().shown(m_chosen);
    emit receiverNameChanged();
    emit receiverSizeChanged();
}

void CSelectReceiverWnd::onClickExpand() {
    openTo(qMin(m_level + 1, m_levels));
}

void CSelectReceiverWnd::onClickCollapse() {
    openTo(qMax(m_level - 1, 0));
}

void CSelectReceiverWnd::openTo(int level) {
    m_level = level;
    for (NameCheckBoxTreeNode* node : nodesBelow(m_model->nodeOf({})))
        if (!node->children().isEmpty())
            node->setExpanded(depthOf(node) < level);
}

void CSelectReceiverWnd::onClickOk() {
    m_isAccepted = true;
    frame().dialog()->close();
}
