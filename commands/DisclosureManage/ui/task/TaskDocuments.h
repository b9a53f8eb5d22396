#pragma once

#include <functional>
#include <map>

#include <QObject>
#include <QStringList>
#include <QTimer>

#include "commands/DisclosureManage/ui/document/DocumentLinks.h"

/// The documents of a task while the user changes them: chosen in the store, uploaded, opened, removed.
class CTaskDocuments : public QObject {
    Q_OBJECT

public:
    /// Works on the documents of `task`, which outlives it. What has become of them in the store is asked for as soon
    /// as the window stands.
    explicit CTaskDocuments(DISCLOSUREPACKAGE::TaskRecord& task, QObject* parent = nullptr);

    /// The name of each, with what has become of it in the store.
    QStringList names() const;
    /// What the user can do about that, for each; empty where there is nothing.
    QStringList notes() const;
    /// What may be uploaded.
    static QString hint();

    /// Lets the user choose in the store.
    void connectStore();
    /// Lets the user choose and upload a local file, unless the task has all the documents it may have.
    void upload();
    // Positions outside the list are ignored.
    void view(int index) const;
    void remove(int index);
    /// The task has been replaced by another version.
    void renew();

signals:
    void changed();

private:
    enum class Fate { Same, Newer, Deleted };

    Fate fateOf(const DISCLOSUREPACKAGE::TaskDocRecord& doc) const;
    QStringList forEach(const std::function<QString(const DISCLOSUREPACKAGE::TaskDocRecord&)>& text) const;
    void look();

    DISCLOSUREPACKAGE::TaskRecord& m_task;
    /// What the store says of the documents that it was asked for; deleted where it does not know one.
    std::map<std::wstring, DOCUMENTPACKAGE::DocFileRecord> m_stored;
    QTimer m_look;
};
