#include "host/documents/FolderTree.h"

#include <map>
#include <set>

#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QSignalBlocker>
#include <QTimer>
#include <QTreeWidgetItemIterator>
#include <QUrl>

#include "host/managers/DocFolderMgr.h"

namespace workbench {

bool DropTree::accepts(const QDropEvent& event) const {
    return mayDrop && mayDrop(event, idOf(itemAt(event.pos())));
}

void DropTree::dragEnterEvent(QDragEnterEvent* event) {
    setState(DraggingState);  // has the list scroll while something is held at its edge
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void DropTree::dragMoveEvent(QDragMoveEvent* event) {
    QTreeWidget::dragMoveEvent(event);  // draws where it would go
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(accepts(*event));
}

void DropTree::dropEvent(QDropEvent* event) {
    setState(NoState);
    viewport()->update();
    if (!accepts(*event))
        return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls())
        paths << url.toLocalFile();
    QTimer::singleShot(1, this,
                       [this, paths, source = QPointer<QObject>(event->source()), id = idOf(itemAt(event->pos()))] {
                           if (source)
                               emit rowsDropped(source, id);
                           else if (!paths.isEmpty())
                               emit filesDropped(paths, id);
                       });
}

void showFolders(QTreeWidget& tree, const std::vector<DocumentFolder>& folders, const QString& without) {
    std::set<QString> open;
    for (QTreeWidgetItemIterator row(&tree); *row; ++row)
        if ((*row)->isExpanded())
            open.insert(DropTree::idOf(*row));
    const QString current = DropTree::idOf(tree.currentItem());
    const QSignalBlocker quiet(tree);
    tree.clear();
    std::map<QString, QTreeWidgetItem*> rows;
    const auto add = [&](QTreeWidgetItem* parent, const QString& id, const QString& name) {
        auto* row = parent ? new QTreeWidgetItem(parent, {name}) : new QTreeWidgetItem({name});
        row->setData(0, DropTree::kIdRole, id);
        row->setToolTip(0, QString("<qt>%1</qt>").arg(name.toHtmlEscaped()));
        rows[id] = row;
        return row;
    };
    const QString topId = QString::fromWCharArray(DOCUMENTPACKAGE::kTopFolder);
    QTreeWidgetItem* top = add(nullptr, topId, CDocFolderMgr::topName());
    for (const DocumentFolder& folder : folders) {
        const auto parent = rows.find(folder.parentId);
        if (parent != rows.end() && folder.id != without)
            add(parent->second, folder.id, folder.name);
    }
    tree.addTopLevelItem(top);
    top->setExpanded(true);
    for (const auto& [id, row] : rows)
        if (open.count(id) > 0)
            row->setExpanded(true);
    const auto selected = rows.find(current);
    tree.setCurrentItem(selected == rows.end() ? top : selected->second);
}

}  // namespace workbench
