#pragma once

#include "commands/DisclosureManage/ui/task/TaskModel.h"
#include "ui/common/ObservableCollection.h"

Q_DECLARE_METATYPE(ObservableCollection<TaskModel*>*)  // a template has no meta-object that would declare it

/// One page of the task list. Owns its rows.
class MapTaskModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(ObservableCollection<TaskModel*>* task_list READ task_list NOTIFY taskListChanged)

public:
    explicit MapTaskModel(QObject* parent = nullptr) : QObject(parent) {}

    ObservableCollection<TaskModel*>* task_list() { return &m_list; }

signals:
    void taskListChanged();  // the list lives as long as the page, so that its rows change and it never does

private:
    ObservableCollection<TaskModel*> m_list;
};
