#pragma once

#include "commands/DisclosureManage/ui/document/FileModel.h"
#include "ui/common/ObservableCollection.h"

Q_DECLARE_METATYPE(ObservableCollection<CFileModel*>*)  // a template has no meta-object that would declare it

/// One page of the picker's documents. Owns its rows.
class MapFileModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(ObservableCollection<CFileModel*>* task_list READ task_list CONSTANT)

public:
    explicit MapFileModel(QObject* parent = nullptr) : QObject(parent) {}

    ObservableCollection<CFileModel*>* task_list() { return &m_list; }

private:
    ObservableCollection<CFileModel*> m_list;
};
