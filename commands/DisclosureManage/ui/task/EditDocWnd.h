#pragma once

#include <QStringList>

#include "commands/DisclosureManage/ui/TaskDialog.h"
#include "commands/DisclosureManage/ui/task/TaskDocuments.h"
#include "sdk/packages/disclosure/Records.h"

/// The dialog in which the documents of a saved task are changed without its editor.
class CEditDocWnd : public CTaskDialog {
    Q_OBJECT
    Q_PROPERTY(QStringList connectdoclist READ connectdoclist NOTIFY connectDocChanged)
    Q_PROPERTY(QStringList docnotes READ docnotes NOTIFY connectDocChanged)
    Q_PROPERTY(QString note READ note NOTIFY noteChanged)

public:
    /// Edits `task` as it is stored. True when it was saved, and another than before. Shows nothing for a task without
    /// an id and where the host offers no disclosure manager.
    static bool edit(const DISCLOSUREPACKAGE::TaskRecord& task);

    /// The names of the documents, in order.
    QStringList connectdoclist() const { return m_docs.names(); }
    QStringList docnotes() const { return m_docs.notes(); }
    /// Who else has changed the task meanwhile; empty as long as nobody is known to have.
    const QString& note() const { return m_note; }

public slots:
    void onClickConnectDoc();
    void onClickUploadDoc();
    // Positions outside the list are ignored.
    void onClickViewDocItem(int index);
    void onClickDelDocItem(int index);
    /// Saves what was changed and closes; where that fails, all stays as it is.
    void onClickOK();

signals:
    void connectDocChanged();
    void noteChanged();

private:
    explicit CEditDocWnd(const DISCLOSUREPACKAGE::TaskRecord& task);
    bool isChanged() const;
    /// After a refusal, which the host has shown: the user's changes are made on the present version.
    void lookForConflict();

    DISCLOSUREPACKAGE::TaskRecord m_began;  // what m_task was made from
    DISCLOSUREPACKAGE::TaskRecord m_task;
    CTaskDocuments m_docs;
    QString m_note;
    bool m_isDone = false;
    bool m_isSaved = false;
};
