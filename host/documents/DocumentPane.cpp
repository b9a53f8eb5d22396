#include "host/documents/DocumentPane.h"

#include <algorithm>

#include <QApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QSignalBlocker>
#include <QSplitter>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

#include "host/documents/DocumentFilters.h"
#include "host/documents/DocumentList.h"
#include "host/documents/FolderTree.h"
#include "host/shell/Look.h"
#include "sdk/basetools/AuthCodeTool.h"
#include "sdk/packages/documents/IKpxDocFolderMgr.h"

namespace workbench {
namespace {

constexpr int kTreeWidth = 280;
constexpr int kLookAgainMs = 50;
constexpr int kSettleMs = 120;

QString topId() {
    return QString::fromWCharArray(DOCUMENTPACKAGE::kTopFolder);
}

}  // namespace

/// What can be done, where, with what, and who may.
struct DocumentPane::Spec {
    enum Place { Folders, Documents };
    enum Need { Nothing, OwnFolder, One, Some };
    enum Right { Read, Edit, Delete };
    enum View { Present, Trash, Both };

    const char* name;
    const char* text;
    const char* keys;
    Place place;
    Need need;
    Right right;
    View view;
    void (*run)(DocumentPane& pane);
};

const DocumentPane::Spec DocumentPane::kSpecs[] = {
    {"newFolder", QT_TR_NOOP("新建"), "Ins", Spec::Folders, Spec::Nothing, Spec::Edit, Spec::Both,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.createFolder(p.folderId()); }); }},
    {"renameFolder", QT_TR_NOOP("重命名"), "F2", Spec::Folders, Spec::OwnFolder, Spec::Edit, Spec::Both,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.renameFolder(*p.folder()); }); }},
    {"moveFolder", QT_TR_NOOP("移动…"), "F6", Spec::Folders, Spec::OwnFolder, Spec::Delete, Spec::Both,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.moveFolder(*p.folder(), p.m_folders); }); }},
    {"deleteFolder", QT_TR_NOOP("删除"), "Del", Spec::Folders, Spec::OwnFolder, Spec::Delete, Spec::Both,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.deleteFolder(*p.folder()); }); }},

    {"upload", QT_TR_NOOP("上传…"), "Ctrl+U", Spec::Documents, Spec::Nothing, Spec::Edit, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.chooseAndUpload(p.folderId()); }); }},
    {"open", QT_TR_NOOP("打开"), "Return", Spec::Documents, Spec::One, Spec::Read, Spec::Both,
     [](DocumentPane& p) { p.m_commands.open(p.m_list->chosen().front()); }},
    {"save", QT_TR_NOOP("另存为…"), "Ctrl+S", Spec::Documents, Spec::One, Spec::Read, Spec::Both,
     [](DocumentPane& p) { p.m_commands.save(p.m_list->chosen().front()); }},
    {"contents", QT_TR_NOOP("历史内容…"), "Ctrl+H", Spec::Documents, Spec::One, Spec::Read, Spec::Both,
     [](DocumentPane& p) { p.m_commands.showContents(p.m_list->chosen().front()); }},
    {"replace", QT_TR_NOOP("替换内容…"), "Ctrl+R", Spec::Documents, Spec::One, Spec::Edit, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.replace(p.m_list->chosen().front()); }); }},
    {"rename", QT_TR_NOOP("重命名…"), "F2", Spec::Documents, Spec::One, Spec::Edit, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.rename(p.m_list->chosen().front()); }); }},
    {"tag", QT_TR_NOOP("标签…"), "Ctrl+T", Spec::Documents, Spec::Some, Spec::Edit, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.tag(p.m_list->chosen(), p.m_tagNames); }); }},
    {"weave", QT_TR_NOOP("编制时间…"), "Ctrl+E", Spec::Documents, Spec::Some, Spec::Edit, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.setWeaveDay(p.m_list->chosen()); }); }},
    {"move", QT_TR_NOOP("移动…"), "F6", Spec::Documents, Spec::Some, Spec::Delete, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.move(p.m_list->chosen(), p.m_folders); }); }},
    {"delete", QT_TR_NOOP("删除…"), "Del", Spec::Documents, Spec::Some, Spec::Delete, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.remove(p.m_list->chosen()); }); }},
    {"restore", QT_TR_NOOP("恢复"), "Ctrl+Z", Spec::Documents, Spec::Some, Spec::Delete, Spec::Trash,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.restore(p.m_list->chosen()); }); }},
};

DocumentPane::DocumentPane(DocumentStore& store, CDocOperMgr& opener, const BASEPACKAGE::IAuthInfoMgr& rights,
                           std::chrono::milliseconds patience)
    : m_store(store),
      m_rights(rights),
      m_commands(store, opener, patience, *this),
      m_tree(new DropTree),
      m_list(new DocumentList),
      m_table(&m_list->table()),
      m_filters(new DocumentFilters),
      m_folderBar(new QToolBar),
      m_bar(new QToolBar) {
    createActions();
    auto* split = new QSplitter;
    split->setChildrenCollapsible(false);
    split->addWidget(createFolders());
    split->addWidget(createDocuments());
    split->setSizes({kTreeWidth, kTreeWidth * 4});
    split->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(split);

    m_look.setInterval(kLookAgainMs);
    connect(&m_look, &QTimer::timeout, this, [this] {
        if (!isVisible())
            m_look.stop();
        else if (!QApplication::activeModalWidget() && !QApplication::activePopupWidget())
            readNow();  // and not under a window whose command this could disturb
    });
    m_settle.setSingleShot(true);
    m_settle.setInterval(kSettleMs);
    connect(&m_settle, &QTimer::timeout, this, [this] { readPage(1); });
    for (DropTree* tree : {m_tree, m_table}) {
        tree->setContextMenuPolicy(Qt::CustomContextMenu);
        tree->setFrameShape(QFrame::NoFrame);
        tree->setDragEnabled(true);
        tree->setAcceptDrops(true);
        tree->setDropIndicatorShown(true);
        tree->setDragDropOverwriteMode(true);  // onto rows, not between them
        tree->setStyleSheet(look::kRoomyRows);
        tree->mayDrop = [this, tree](const QDropEvent& event, const QString& id) { return mayDrop(*tree, event, id); };
        connect(tree, &QWidget::customContextMenuRequested, this,
                [this, tree](const QPoint& place) { showMenu(*tree, place); });
        connect(tree, &DropTree::filesDropped, this, [this, tree](const QStringList& paths, const QString& id) {
            const QString folder = tree == m_tree && !id.isEmpty() ? id : folderId();
            run([&] { return m_commands.upload(paths, folder); });
        });
        connect(tree, &DropTree::rowsDropped, this, &DocumentPane::takeDropped);
    }
    startAnew();
}

void DocumentPane::createActions() {
    for (QToolBar* bar : {m_bar, m_folderBar}) {
        bar->setContextMenuPolicy(Qt::PreventContextMenu);
        bar->setStyleSheet(
            "QToolBar { padding: 6px; spacing: 2px; } QToolBar QToolButton { padding: 6px 8px; }"
            "QToolBar QToolButton#qt_toolbar_ext_button { padding: 0; min-width: 20px; }");
    }
    for (const Spec& spec : kSpecs) {
        const bool isOfFolders = spec.place == Spec::Folders;
        QToolBar* bar = isOfFolders ? m_folderBar : m_bar;
        auto* action = bar->addAction(tr(spec.text), this, [this, &spec] { spec.run(*this); });
        action->setObjectName(spec.name);
        action->setShortcuts(spec.keys == QLatin1String("Return") ? QList<QKeySequence>{Qt::Key_Return, Qt::Key_Enter}
                                                                  : QList<QKeySequence>{QKeySequence(spec.keys)});
        action->setShortcutContext(Qt::WidgetShortcut);
        (isOfFolders ? m_tree : m_table)->addAction(action);
        bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
        m_offers.push_back({&spec, action});
    }
}

QWidget* DocumentPane::createFolders() {
    m_tree->setObjectName("folders");
    m_tree->setHeaderHidden(true);
    m_tree->setAccessibleName(tr("文件夹"));
    m_tree->setUniformRowHeights(true);
    connect(m_tree, &QTreeWidget::currentItemChanged, &m_settle, qOverload<>(&QTimer::start));
    auto* side = new QWidget;
    side->setMinimumWidth(kTreeWidth);
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_folderBar);
    layout->addWidget(m_tree, 1);
    return side;
}

QWidget* DocumentPane::createDocuments() {
    connect(m_list, &DocumentList::choiceChanged, this, &DocumentPane::updateActions);
    connect(m_list, &DocumentList::pageWanted, this, &DocumentPane::readPage);
    connect(m_list, &DocumentList::retryWanted, this, &DocumentPane::readNow);
    connect(m_list, &DocumentList::openWanted, this, [this] {
        if (const auto documents = m_list->chosen(); documents.size() == 1)
            m_commands.open(documents.front());
    });
    connect(m_filters, &DocumentFilters::changed, this, [this] { readPage(1); });
    auto* find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    find->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(find);
    connect(find, &QAction::triggered, m_filters, &DocumentFilters::focusSearch);
    auto* side = new QWidget;
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_bar);
    layout->addWidget(m_filters);
    layout->addWidget(m_list, 1);
    return side;
}

void DocumentPane::showMenu(QWidget& widget, const QPoint& place) {
    QMenu menu;
    menu.setToolTipsVisible(true);  // they say why something cannot be done
    for (const Offer& offer : m_offers)
        if ((offer.spec->place == Spec::Folders) == (&widget == m_tree) &&
            (offer.spec->view == Spec::Both || (offer.spec->view == Spec::Trash) == m_filters->isTrash()))
            menu.addAction(offer.action);
    menu.exec(static_cast<QAbstractScrollArea&>(widget).viewport()->mapToGlobal(place));
}

bool DocumentPane::mayDrop(const DropTree& tree, const QDropEvent& event, const QString& id) const {
    if (m_filters->isTrash())
        return false;
    if (event.source() == m_table)
        return m_mayDelete && &tree == m_tree && !id.isEmpty();
    if (event.source() == m_tree)
        return m_mayDelete && &tree == m_tree && !id.isEmpty() && folder() && id != folderId();
    const QList<QUrl> urls = event.mimeData()->urls();
    return m_mayEdit && std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
}

void DocumentPane::takeDropped(QObject* source, const QString& id) {
    run([&] {
        return source == m_table ? m_commands.moveTo(m_list->chosen(), id) : m_commands.moveFolderTo(folderId(), id);
    });
}

template <class Command>
void DocumentPane::run(Command command) {
    m_list->say({});
    const bool hasChanged = command();
    m_list->say(m_commands.done());
    if (hasChanged)
        readNow();
}

void DocumentPane::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (m_isDue)
        m_look.start();
}

void DocumentPane::readAgain() {
    m_isDue = true;
    m_look.start();
}

void DocumentPane::startAnew() {
    const QSignalBlocker quiet(m_tree);
    m_tree->clear();
    m_filters->reset();
    m_folders.clear();
    m_isFailed = true;  // until it has been read
    m_list->say({});
    m_list->clear();
    showState(tr("正在读取…"));
    readAgain();
}

void DocumentPane::OnServiceStateChanged(bool reachable) {
    if (reachable && m_isFailed)
        readAgain();
}

void DocumentPane::readNow() {
    m_isDue = false;
    m_look.stop();
    m_settle.stop();
    if (!m_store.hasDepartment())
        return showState(tr("没有打开的工程"));
    if (m_isFailed)
        showState(tr("正在读取…"));
    m_mayEdit = m_rights.HasAuth(BASETOOLS::CAuthCodeTool::GetAuthCode(BASETOOLS::CAuthCodeTool::kEditTasks));
    m_mayDelete = m_rights.HasAuth(BASETOOLS::CAuthCodeTool::GetAuthCode(BASETOOLS::CAuthCodeTool::kDeleteTasks));
    m_filters->allowTrash(m_mayDelete);
    if (readFolders() && readFilters())
        readPage(m_list->pageNumber());
}

bool DocumentPane::readFolders() {
    QString why;
    auto folders = m_store.folders(why);
    if (!folders) {
        fail(why);
        return false;
    }
    m_folders = std::move(*folders);
    showFolders(*m_tree, m_folders);
    return true;
}

bool DocumentPane::readFilters() {
    QString why;
    auto types = m_types.empty() ? m_store.types(why) : m_types;
    const auto tags = types ? m_store.tags(why) : std::nullopt;
    if (!tags) {
        fail(why);
        return false;
    }
    m_types = std::move(*types);
    m_tagNames.clear();
    for (const DocumentLabel& tag : *tags)
        m_tagNames << tag.name;
    m_filters->offer(m_types, *tags);
    return true;
}

void DocumentPane::readPage(int page) {
    if (!m_tree->currentItem())
        return;
    DocumentQuery query;
    query.folderId = folderId();
    m_filters->addTo(query);
    query.page = std::max(1, page);
    query.pageSize = DocumentList::kPageSize;
    QString why;
    auto found = m_store.page(query, why);
    if (found && found->documents.empty() && found->total > 0) {  // the last page has gone
        query.page = DocumentList::lastPage(found->total);
        found = m_store.page(query, why);
    }
    if (!found)
        return fail(why);
    m_list->showPage(*found, query.page, m_types);
    m_isFailed = false;
    showState(!found->documents.empty() ? QString()
              : m_filters->areSet()     ? tr("没有符合条件的资料")
              : m_filters->isTrash()    ? tr("没有已删除的资料")
              : folderId() == topId()   ? tr("还没有资料，可以点击“上传”或把文件拖到这里")
                                      : tr("该文件夹中没有资料，可以点击“上传”或把文件拖到这里"));
}

void DocumentPane::showState(const QString& text) {
    m_list->showState(text);
    updateActions();
}

void DocumentPane::fail(const QString& why) {
    m_isFailed = true;
    m_list->clear();
    m_list->showState(why, true);
    updateActions();
}

QString DocumentPane::reasonAgainst(const Spec& spec) const {
    if (spec.right == Spec::Edit && !m_mayEdit)
        return tr("没有编辑资料的权限");
    if (spec.right == Spec::Delete && !m_mayDelete)
        return tr("没有移动和删除资料的权限");
    if (spec.view == Spec::Present && m_filters->isTrash())
        return tr("已删除的资料要先恢复");
    if (spec.view == Spec::Trash && !m_filters->isTrash())
        return tr("只能恢复已删除的资料");
    const auto count = m_table->selectedItems().size();
    if (spec.need == Spec::OwnFolder && !folder())
        return tr("请先选择文件夹");
    if (spec.need == Spec::One && count != 1)
        return tr("请选择一份资料");
    if (spec.need == Spec::Some && count == 0)
        return tr("请先选择资料");
    return m_tree->currentItem() ? QString() : tr("资料还没有读取");
}

void DocumentPane::updateActions() {
    for (const Offer& offer : m_offers) {
        const QString reason = reasonAgainst(*offer.spec);
        offer.action->setEnabled(reason.isEmpty());
        offer.action->setToolTip(reason.isEmpty() ? QString("%1（%2）")
                                                        .arg(tr(offer.spec->text), offer.action->shortcut().toString(
                                                                                       QKeySequence::NativeText))
                                                  : reason);
    }
}

QString DocumentPane::folderId() const {
    return DropTree::idOf(m_tree->currentItem());
}

const DocumentFolder* DocumentPane::folder() const {
    const auto found = std::find_if(m_folders.begin(), m_folders.end(),
                                    [id = folderId()](const DocumentFolder& f) { return f.id == id; });
    return found == m_folders.end() ? nullptr : &*found;
}

}  // namespace workbench
