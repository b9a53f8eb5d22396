#pragma once

#include <QVector>

#include "commands/DisclosureManage/ui/TaskDialog.h"
#include "commands/DisclosureManage/ui/task/PeopleReading.h"
#include "ui/common/TreeModel.h"

class NameCheckBoxTreeModel;
class NameCheckBoxTreeNode;

/// The picker of the receivers. Who is chosen does not depend on who is shown: a search hides people, and some may have
/// left the department.
class CSelectReceiverWnd : public CTaskDialog {
    Q_OBJECT
    Q_PROPERTY(QStringList receiverName READ receiverName NOTIFY receiverNameChanged)
    Q_PROPERTY(TreeModel* receiverDataModel READ receiverDataModel NOTIFY receiverModelChanged)
    Q_PROPERTY(int selcount READ selcount NOTIFY receiverSizeChanged)

public:
    using People = std::vector<BASEPACKAGE::UserRecord>;

    /// Lets the user change `people`; `leftOut` are the login names of people not to be offered. False, and an
    /// untouched list, when the user gives up; then too where the host offers no disclosure manager, and nothing is
    /// shown.
    static bool choose(People& people, const QStringList& leftOut);

    QStringList receiverName() const { return m_names; }
    TreeModel* receiverDataModel() const;
    int selcount() const { return static_cast<int>(m_chosen.size()); }

    /// Takes over the check marks at and below the row.
    Q_INVOKABLE void onItemCheckStatusChanged(const QModelIndex& tIndex);
    /// Shows those whose display or login name contains `sText`, in their departments.
    Q_INVOKABLE void setSearchText(const QString& sText);
    /// Takes the chosen people and closes.
    Q_INVOKABLE void onClickOk();
    /// One more, or one less, level of the tree is open.
    Q_INVOKABLE void onClickExpand();
    Q_INVOKABLE void onClickCollapse();
    /// Removes the person of that position in `receiverName`; ignores a wrong one.
    Q_INVOKABLE void onClickDelReceiver(int nIndex);

signals:
    void receiverNameChanged();
    void receiverModelChanged();
    void receiverSizeChanged();

private:
    CSelectReceiverWnd(const People& people, const QStringList& leftOut);
    /// Parents first.
    QVector<NameCheckBoxTreeNode*> nodesBelow(TreeNode* top) const;
    void showChoice();
    void openTo(int level);
    void noticeChoice();

    PeopleDirectory m_people;
    NameCheckBoxTreeModel* m_model;
    People m_chosen;
    QStringList m_names;  // of the chosen, kept since QML reads the list anew for each element
    int m_level = 0;      // rows less deep than this are open
    int m_levels = 0;
    bool m_isAccepted = false;
    QString m_search;
    PeopleReading m_reading;
};
