#pragma once

#include <vector>

#include <QDialog>

#include "host/platform/DocumentStore.h"

class QTreeWidget;

namespace workbench {

/// The contents that a document has had, the newest first.
class ContentsDialog : public QDialog {
    Q_OBJECT

public:
    ContentsDialog(const QString& name, std::vector<DocumentContent> contents, QWidget* parent);

signals:
    void openWanted(const workbench::DocumentContent& content);
    void saveWanted(const workbench::DocumentContent& content);

private:
    const DocumentContent& current() const;

    std::vector<DocumentContent> m_contents;  // one for each row
    QTreeWidget* m_list;
};

}  // namespace workbench
