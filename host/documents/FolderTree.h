#pragma once

#include <functional>
#include <vector>

#include <QTreeWidget>

#include "host/platform/DocumentStore.h"

namespace workbench {

/// Rows that carry the id of what they stand for; files and rows of other lists can be dropped on them.
class DropTree : public QTreeWidget {
    Q_OBJECT

public:
    static constexpr int kIdRole = Qt::UserRole;

    using QTreeWidget::QTreeWidget;

    static QString idOf(const QTreeWidgetItem* row) { return row ? row->data(0, kIdRole).toString() : QString(); }

    /// Whether what the event brings may be dropped on the row with that id, which is empty beside all rows.
    std::function<bool(const QDropEvent& event, const QString& id)> mayDrop;

signals:
    /// Once the drag has ended, so that whatever follows is not part of it.
    void filesDropped(const QStringList& paths, const QString& id);
    void rowsDropped(QObject* source, const QString& id);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    bool accepts(const QDropEvent& event) const;
};

/// Shows the folders below one row for the top, which it opens, in place of what was there. What was open and selected
/// stays so; the folder `without` and what is below it is left out.
void showFolders(QTreeWidget& tree, const std::vector<DocumentFolder>& folders, const QString& without = {});

}  // namespace workbench
