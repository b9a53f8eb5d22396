#include "host/documents/DocumentPane.h"

#include <algorithm>

#include <QApplication>
#include <QCheckBox>
#include <QDateTime>
#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

#include "host/documents/DocumentView.h"
#include "host/documents/FolderTree.h"
#include "host/shell/FlatCombo.h"
#include "host/shell/Look.h"
#include "sdk/basetools/AuthCodeTool.h"
#include "sdk/basetools/TimeValue.h"
#include "sdk/packages/documents/IKpxDocFileListMgr.h"
#include "sdk/packages/documents/IKpxDocFolderMgr.h"

namespace workbench {
namespace {

enum Column { NameColumn, TypeColumn, WeaveColumn, UpdaterColumn, TagColumn, SizeColumn, VersionColumn, Columns };

constexpr int kPageSize = 30;
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
     [](DocumentPane& p) { p.m_commands.open(p.chosen().front()); }},
    {"save", QT_TR_NOOP("另存为…"), "Ctrl+S", Spec::Documents, Spec::One, Spec::Read, Spec::Both,
     [](DocumentPane& p) { p.m_commands.save(p.chosen().front()); }},
    {"contents", QT_TR_NOOP("历史内容…"), "Ctrl+H", Spec::Documents, Spec::One, Spec::Read, Spec::Both,
     [](DocumentPane& p) { p.m_commands.showContents(p.chosen().front()); }},
    {"replace", QT_TR_NOOP("替换内容…"), "Ctrl+R", Spec::Documents, Spec::One, Spec::Edit, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.replace(p.chosen().front()); }); }},
    {"rename", QT_TR_NOOP("重命名…"), "F2", Spec::Documents, Spec::One, Spec::Edit, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.rename(p.chosen().front()); }); }},
    {"tag", QT_TR_NOOP("标签…"), "Ctrl+T", Spec::Documents, Spec::Some, Spec::Edit, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.tag(p.chosen(), p.m_tagNames); }); }},
    {"weave", QT_TR_NOOP("编制时间…"), "Ctrl+E", Spec::Documents, Spec::Some, Spec::Edit, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.setWeaveDay(p.chosen()); }); }},
    {"move", QT_TR_NOOP("移动…"), "F6", Spec::Documents, Spec::Some, Spec::Delete, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.move(p.chosen(), p.m_folders); }); }},
    {"delete", QT_TR_NOOP("删除…"), "Del", Spec::Documents, Spec::Some, Spec::Delete, Spec::Present,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.remove(p.chosen()); }); }},
    {"restore", QT_TR_NOOP("恢复"), "Ctrl+Z", Spec::Documents, Spec::Some, Spec::Delete, Spec::Trash,
     [](DocumentPane& p) { p.run([&] { return p.m_commands.restore(p.chosen()); }); }},
};

DocumentPane::DocumentPane(DocumentStore& store, CDocOperMgr& opener, const BASEPACKAGE::IAuthInfoMgr& rights,
                           std::chrono::milliseconds patience)
    : m_store(store),
      m_rights(rights),
      m_commands(store, opener, patience, *this),
      m_tree(new DropTree),
      m_table(new DropTree),
      m_search(new QLineEdit),
      m_type(new FlatCombo),
      m_tag(new FlatCombo),
      m_trash(new QCheckBox(tr("已删除(&D)"))),
      m_state(new QLabel),
      m_retry(new QPushButton(tr("重试(&R)"))),
      m_said(new QLabel),
      m_count(new QLabel),
      m_turns(new QToolBar),
      m_folderBar(new QToolBar),
      m_bar(new QToolBar) {
    createActions();
    auto* split = new QSplitter;
    split->setChildrenCollapsible(false);
    split->addWidget(createFolders());
    split->addWidget(createList());
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
        bar->setStyleSheet("QToolBar { padding: 6px; spacing: 2px; } QToolBar QToolButton { padding: 6px 8px; }");
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

QWidget* DocumentPane::createFilters() {
    m_search->setPlaceholderText(tr("请输入资料名称关键字"));
    m_search->setClearButtonEnabled(true);
    m_search->setAccessibleName(tr("资料名称关键字"));
    m_type->setAccessibleName(tr("文件类型"));
    m_tag->setAccessibleName(tr("标签"));
    for (QComboBox* box : {m_type, m_tag}) {
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        box->setMinimumContentsLength(8);
        connect(box, qOverload<int>(&QComboBox::activated), this, [this] { readPage(1); });
    }
    connect(m_search, &QLineEdit::returnPressed, this, [this] { readPage(1); });
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (text.isEmpty())
            readPage(1);
    });
    connect(m_trash, &QCheckBox::toggled, this, [this] { readPage(1); });
    auto* find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    find->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(find);
    connect(find, &QAction::triggered, m_search, [this] { m_search->setFocus(Qt::ShortcutFocusReason); });
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(10, 8, 10, 8);
    layout->setSpacing(10);
    layout->addWidget(m_search, 1);
    layout->addWidget(new QLabel(tr("文件类型:")));
    layout->addWidget(m_type);
    layout->addWidget(new QLabel(tr("标签:")));
    layout->addWidget(m_tag);
    layout->addWidget(m_trash);
    return row;
}

QWidget* DocumentPane::createList() {
    m_table->setObjectName("documents");
    m_table->setColumnCount(Columns);
    m_table->setHeaderLabels(
        {tr("名称"), tr("类型"), tr("编制时间"), tr("更新人"), tr("标签"), tr("大小"), tr("版本")});
    m_table->header()->setStretchLastSection(false);
    m_table->header()->setSectionResizeMode(QHeaderView::Interactive);
    m_table->header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    for (const auto& [column, width] : {std::pair<int, int>{TypeColumn, 90},
                                        {WeaveColumn, 110},
                                        {UpdaterColumn, 110},
                                        {TagColumn, 160},
                                        {SizeColumn, 90},
                                        {VersionColumn, 60}})
        m_table->setColumnWidth(column, width);
    m_table->setRootIsDecorated(false);
    m_table->setUniformRowHeights(true);
    m_table->setAllColumnsShowFocus(true);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setAccessibleName(tr("资料"));
    connect(m_table, &QTreeWidget::itemSelectionChanged, this, &DocumentPane::updateActions);
    connect(m_table, &QTreeWidget::itemDoubleClicked, this, [this] {
        if (chosen().size() == 1)
            m_commands.open(chosen().front());
    });
    m_state->setObjectName("state");
    m_state->setAlignment(Qt::AlignCenter);
    m_state->setWordWrap(true);
    m_state->setTextFormat(Qt::PlainText);
    m_state->setStyleSheet(look::kFaintText);
    connect(m_retry, &QPushButton::clicked, this, &DocumentPane::readNow);
    auto* over = new QVBoxLayout(m_table->viewport());  // so that files can be dropped there, too
    over->addStretch();
    over->addWidget(m_state);
    over->addWidget(m_retry, 0, Qt::AlignHCenter);
    over->addStretch();

    auto* side = new QWidget;
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_bar);
    layout->addWidget(createFilters());
    layout->addWidget(m_table, 1);
    layout->addWidget(createPaging());
    return side;
}

QWidget* DocumentPane::createPaging() {
    m_said->setTextFormat(Qt::PlainText);
    m_said->setStyleSheet(look::kFaintText);
    const auto add = [this](const QString& text, auto page) {
        QAction* action = m_turns->addAction(text, this, [this, page] { readPage(page()); });
        m_turns->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    };
    const auto last = [this] { return std::max(1, (m_page.total + kPageSize - 1) / kPageSize); };
    add(tr("首页"), [] { return 1; });
    add(tr("上一页"), [this] { return m_pageNumber - 1; });
    add(tr("下一页"), [this] { return m_pageNumber + 1; });
    add(tr("末页"), last);
    m_turns->setStyleSheet("QToolBar { border: none; }");
    auto* row = new QFrame;
    row->setStyleSheet("QFrame { background: white; }");
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(10, 0, 10, 0);
    layout->addWidget(m_said, 1);
    layout->addWidget(m_count);
    layout->addWidget(m_turns);
    return row;
}

void DocumentPane::showMenu(QWidget& widget, const QPoint& place) {
    QMenu menu;
    menu.setToolTipsVisible(true);  // they say why something cannot be done
    for (const Offer& offer : m_offers)
        if ((offer.spec->place == Spec::Folders) == (&widget == m_tree) &&
            (offer.spec->view == Spec::Both || (offer.spec->view == Spec::Trash) == isTrash()))
            menu.addAction(offer.action);
    menu.exec(static_cast<QAbstractScrollArea&>(widget).viewport()->mapToGlobal(place));
}

bool DocumentPane::mayDrop(const DropTree& tree, const QDropEvent& event, const QString& id) const {
    if (isTrash())
        return false;
    if (event.source() == m_table)
        return m_mayDelete && &tree == m_tree && !id.isEmpty();
    if (event.source() == m_tree)
        return m_mayDelete && &tree == m_tree && !id.isEmpty() && folder() && id != folderId();
    const QList<QUrl> urls = event.mimeData()->urls();
    return m_mayEdit && std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
}

void DocumentPane::takeDropped(QObject* source, const QString& id) {
    run([&] { return source == m_table ? m_commands.moveTo(chosen(), id) : m_commands.moveFolderTo(folderId(), id); });
}

template <class Command>
void DocumentPane::run(Command command) {
    say({});
    const bool hasChanged = command();
    say(m_commands.done());
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
    const QSignalBlocker quietTree(m_tree);
    const QSignalBlocker quietSearch(m_search);
    m_tree->clear();
    m_search->clear();
    m_trash->setChecked(false);
    m_folders.clear();
    m_isFailed = true;  // until it has been read
    m_pageNumber = 1;
    say({});
    showPage({});
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
    m_trash->setEnabled(m_mayDelete);
    m_trash->setToolTip(m_mayDelete ? QString() : tr("没有删除资料的权限"));
    if (readFolders() && readFilters())
        readPage(m_pageNumber);
}

bool DocumentPane::readFolders() {
    QString why;
    auto folders = m_store.folders(why);
    if (!folders) {
        showState(why, true);
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
        showState(why, true);
        return false;
    }
    m_types = std::move(*types);
    const auto fill = [this](QComboBox& box, const std::vector<DocumentLabel>& entries) {
        const QString current = box.currentData().toString();
        box.clear();
        box.addItem(tr("全部"), QString());
        for (const DocumentLabel& entry : entries)
            box.addItem(entry.name, entry.id);
        box.setCurrentIndex(std::max(0, box.findData(current)));
    };
    std::vector<DocumentLabel> names;
    for (const DocumentType& type : m_types)
        names.push_back({type.name, type.name});
    fill(*m_type, names);
    m_tagNames.clear();
    for (const DocumentLabel& tag : *tags)
        m_tagNames << tag.name;
    auto withNone = *tags;
    withNone.push_back({QString::fromWCharArray(DOCUMENTPACKAGE::kNoTag), tr("空")});
    fill(*m_tag, withNone);
    return true;
}

void DocumentPane::readPage(int page) {
    if (!m_tree->currentItem())
        return;
    DocumentQuery query;
    query.folderId = folderId();
    query.type = m_type->currentData().toString();
    query.tagId = m_tag->currentData().toString();
    query.keyword = m_search->text().trimmed();
    query.deletedOnes = isTrash();
    query.page = std::max(1, page);
    query.pageSize = kPageSize;
    QString why;
    auto found = m_store.page(query, why);
    if (found && found->documents.empty() && found->total > 0) {  // the last page has gone
        query.page = (found->total + kPageSize - 1) / kPageSize;
        found = m_store.page(query, why);
    }
    if (!found)
        return showState(why, true);
    m_pageNumber = query.page;
    showPage(*found);
}

void DocumentPane::showPage(const DocumentPage& page) {
    const int place = m_table->indexOfTopLevelItem(m_table->currentItem());
    QStringList selected;
    for (const QTreeWidgetItem* row : m_table->selectedItems())
        selected << DropTree::idOf(row);
    const QSignalBlocker quiet(m_table);
    m_table->clear();
    m_page = page;
    for (const Document& document : m_page.documents) {
        const auto type = std::find_if(m_types.begin(), m_types.end(), [&](const DocumentType& t) {
            return t.extensions.contains(document.extension, Qt::CaseInsensitive);
        });
        auto* row = new QTreeWidgetItem(
            m_table,
            {document.name, type == m_types.end() ? tr("其他") : type->name,
             QString::fromStdWString(BASETOOLS::CKpxTimeValue::ToDayText(document.weaveMills)), document.updateRealname,
             document.tags.join("、"), sizeText(document.size), QString::number(document.contentNumber)});
        row->setData(NameColumn, DropTree::kIdRole, document.id);
        row->setTextAlignment(SizeColumn, Qt::AlignRight | Qt::AlignVCenter);
        row->setTextAlignment(VersionColumn, Qt::AlignRight | Qt::AlignVCenter);
        for (const int column : {NameColumn, TagColumn})
            row->setToolTip(column, QString("<qt>%1</qt>").arg(row->text(column).toHtmlEscaped()));
        row->setToolTip(UpdaterColumn,
                        QDateTime::fromMSecsSinceEpoch(document.updateMills).toString("yyyy-MM-dd HH:mm"));
        row->setSelected(selected.contains(document.id));
    }
    if (const int rows = m_table->topLevelItemCount(); rows > 0)  // the keyboard goes on from where it was
        m_table->setCurrentItem(m_table->topLevelItem(std::clamp(place, 0, rows - 1)), 0,
                                QItemSelectionModel::NoUpdate);
    m_isFailed = false;
    showState(!m_page.documents.empty() ? QString()
              : hasFilter()             ? tr("没有符合条件的资料")
              : isTrash()               ? tr("没有已删除的资料")
              : folderId() == topId()   ? tr("还没有资料，可以点击“上传”或把文件拖到这里")
                                      : tr("该文件夹中没有资料，可以点击“上传”或把文件拖到这里"));
}

void DocumentPane::showState(const QString& text, bool mayRetry) {
    if (mayRetry) {
        m_isFailed = true;
        m_page = {};
        m_table->clear();
    }
    m_state->setText(text);
    m_state->setVisible(!text.isEmpty());
    m_retry->setVisible(mayRetry);
    updateActions();
}

void DocumentPane::say(const QString& text) {
    m_said->setText(text);
}

QString DocumentPane::reasonAgainst(const Spec& spec) const {
    if (spec.right == Spec::Edit && !m_mayEdit)
        return tr("没有编辑资料的权限");
    if (spec.right == Spec::Delete && !m_mayDelete)
        return tr("没有移动和删除资料的权限");
    if (spec.view == Spec::Present && isTrash())
        return tr("已删除的资料要先恢复");
    if (spec.view == Spec::Trash && !isTrash())
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
    const int last = std::max(1, (m_page.total + kPageSize - 1) / kPageSize);
    m_count->setText(m_page.total > 0 ? tr("共 %1 份，第 %2 / %3 页").arg(m_page.total).arg(m_pageNumber).arg(last)
                                      : QString());
    const auto turns = m_turns->actions();
    for (int i = 0; i < turns.size(); ++i)
        turns[i]->setEnabled(i < 2 ? m_pageNumber > 1 && m_page.total > 0 : m_pageNumber < last);
}

QString DocumentPane::folderId() const {
    return DropTree::idOf(m_tree->currentItem());
}

const DocumentFolder* DocumentPane::folder() const {
    const auto found = std::find_if(m_folders.begin(), m_folders.end(),
                                    [id = folderId()](const DocumentFolder& f) { return f.id == id; });
    return found == m_folders.end() ? nullptr : &*found;
}

std::vector<Document> DocumentPane::chosen() const {
    std::vector<Document> documents;
    for (const Document& document : m_page.documents)
        if (m_table->topLevelItem(static_cast<int>(&document - m_page.documents.data()))->isSelected())
            documents.push_back(document);
    return documents;
}

bool DocumentPane::isTrash() const {
    return m_trash->isChecked();
}

bool DocumentPane::hasFilter() const {
    return m_type->currentIndex() > 0 || m_tag->currentIndex() > 0 || !m_search->text().trimmed().isEmpty();
}

}  // namespace workbench
