#pragma once

#include <QObject>
#include <QStringList>

#include "commands/DisclosureManage/ui/task/BimTreeModel.h"
#include "commands/DisclosureManage/ui/task/PeopleNames.h"
#include "commands/DisclosureManage/ui/task/TaskDocuments.h"
#include "sdk/packages/disclosure/Records.h"

/// A new task, or an unpublished one, while it is edited. Dates are texts "yyyy-MM-dd", empty when unset.
class CAddTaskViewModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString taskName READ taskName WRITE setTaskName NOTIFY taskNameChanged)
    Q_PROPERTY(QString disName READ disName NOTIFY disNameChanged)
    Q_PROPERTY(QString receiveName READ receiveName NOTIFY receiveNameChanged)
    Q_PROPERTY(QString remark READ remark WRITE setRemark NOTIFY remarkChanged)
    Q_PROPERTY(QString constStartDate READ constStartDate WRITE setConstStartDate NOTIFY constStartDateChanged)
    Q_PROPERTY(QString constEndDate READ constEndDate WRITE setConstEndDate NOTIFY constEndDateChanged)
    Q_PROPERTY(QString planDate READ planDate WRITE setPlanDate NOTIFY planDateChanged)
    Q_PROPERTY(QString endDate READ endDate WRITE setEndDate NOTIFY endDateChanged)
    Q_PROPERTY(bool bRelease READ isRelease NOTIFY bReaseChanged)
    Q_PROPERTY(QStringList connectdoclist READ connectdoclist NOTIFY connectDocChanged)
    Q_PROPERTY(QStringList docnotes READ docnotes NOTIFY connectDocChanged)
    Q_PROPERTY(CBimTreeModel* bimDataModel READ bimDataModel NOTIFY connectBIMDataChanged)
    Q_PROPERTY(QString docsHint READ docsHint CONSTANT)

public:
    /// `task` is the task as it is stored, or one without an id, which is new, with its catalog.
    explicit CAddTaskViewModel(const DISCLOSUREPACKAGE::TaskRecord& task, QObject* parent = nullptr);

    QString taskName() const;
    void setTaskName(const QString& name);
    QString disName() const;
    QString receiveName() const;
    QString remark() const;
    void setRemark(const QString& remark);
    // A text that is no date is refused.
    QString constStartDate() const;
    void setConstStartDate(const QString& date);
    QString constEndDate() const;
    void setConstEndDate(const QString& date);
    QString planDate() const;
    void setPlanDate(const QString& date);
    QString endDate() const;
    void setEndDate(const QString& date);
    bool isRelease() const { return m_isRelease; }
    QStringList connectdoclist() const { return m_docs.names(); }
    QStringList docnotes() const { return m_docs.notes(); }
    CBimTreeModel* bimDataModel() { return &m_links; }
    /// What may be uploaded.
    static QString docsHint() { return CTaskDocuments::hint(); }

    /// Whether anything differs from the task as it was given, or as it was last read.
    bool isChanged() const;
    const DISCLOSUREPACKAGE::TaskRecord& task() const { return m_task; }

public slots:
    /// Both save the task if it keeps all rules, as a plan or published, and ask for the dialog to be closed. It is
    /// saved once, however often they are called. Where somebody else has changed the task meanwhile, the user is
    /// asked which version of each field to save.
    void onClickSave();
    /// Lets the user choose among the documents of the store.
    void onClickConnectDoc();
    void onClickRelease();
    void onClickSelectOwner();
    void onClickSelectReceiver();
    // Positions outside the list and null are ignored.
    void onClickViewDocItem(int nIndex);
    void onClickDelDocItem(int nIndex);
    void onClickDelBIMItem(CBimTreeNode* pNode);
    /// Lets the user choose and upload a local file, unless the task has all the documents it may have.
    void onClickUploadDoc();
    /// A date field did not take what was typed.
    void onDateRefused(const QString& why);

signals:
    void taskNameChanged();
    void disNameChanged();
    void receiveNameChanged();
    void remarkChanged();
    void constStartDateChanged();
    void constEndDateChanged();
    void planDateChanged();
    void endDateChanged();
    void bReaseChanged();  // spelled so
    void connectDocChanged();
    void connectBIMDataChanged();
    /// The user has been told that the property of this name is to be mended before the task can be saved.
    void fieldRefused(const QString& field);
    /// The task has been saved.
    void closeWnd();

private:
    using Changed = void (CAddTaskViewModel::*)();

    void setDate(int64_t& mills, const QString& date, Changed changed);
    void submit(bool isRelease);
    /// Whether the task keeps all rules; otherwise the user is told.
    bool keepsRules();
    bool store();
    /// Whether a save was refused for somebody else's change and there is now a version to save instead.
    bool settleConflict();
    void giveIds();

    bool m_isNew;
    DISCLOSUREPACKAGE::TaskRecord m_began;  // what m_task was made from
    DISCLOSUREPACKAGE::TaskRecord m_task;
    CTaskDocuments m_docs;
    CBimTreeModel m_links;
    PeopleNames m_names;  // the department's people
    bool m_isRelease = false;
    bool m_isSaved = false;
};
