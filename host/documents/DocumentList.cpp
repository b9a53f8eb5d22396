#include "host/documents/DocumentList.h"

#include <algorithm>

#include <QDateTime>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolBar>
#include <QVBoxLayout>

#include "host/documents/DocumentView.h"
#include "host/documents/FolderTree.h"
#include "host/shell/Look.h"
#include "sdk/basetools/TimeValue.h"

namespace workbench {
namespace {

enum Column { NameColumn, TypeColumn, WeaveColumn, UpdaterColumn, TagColumn, SizeColumn, VersionColumn, Columns };

constexpr int kNameWidth = 220;

}  // namespace

DocumentList::DocumentList()
    : m_table(new DropTree),
      m_state(new QLabel),
      m_retry(new QPushButton(tr("重试(&R)"))),
      m_said(new QLabel),
      m_count(new QLabel),
      m_turns(new QToolBar) {
    createTable();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_table, 1);
    layout->addWidget(createPaging());
}

void DocumentList::createTable() {
    m_table->setObjectName("documents");
    m_table->setColumnCount(Columns);
    m_table->setHeaderLabels(
        {tr("名称"), tr("类型"), tr("编制时间"), tr("更新人"), tr("标签"), tr("大小"), tr("版本")});
    m_table->header()->setStretchLastSection(false);
    m_table->header()->setSectionResizeMode(QHeaderView::Interactive);
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
    connect(m_table, &QTreeWidget::itemSelectionChanged, this, &DocumentList::choiceChanged);
    connect(m_table, &QTreeWidget::itemDoubleClicked, this, &DocumentList::openWanted);
    m_state->setObjectName("state");
    m_state->setAlignment(Qt::AlignCenter);
    m_state->setWordWrap(true);
    m_state->setTextFormat(Qt::PlainText);
    m_state->setStyleSheet(look::kFaintText);
    connect(m_retry, &QPushButton::clicked, this, &DocumentList::retryWanted);
    auto* over = new QVBoxLayout(m_table->viewport());  // so that files can be dropped there, too
    over->addStretch();
    over->addWidget(m_state);
    over->addWidget(m_retry, 0, Qt::AlignHCenter);
    over->addStretch();
}

QWidget* DocumentList::createPaging() {
    m_said->setTextFormat(Qt::PlainText);
    m_said->setStyleSheet(look::kFaintText);
    const auto add = [this](const QString& text, auto page) {
        QAction* action = m_turns->addAction(text, this, [this, page] { emit pageWanted(page()); });
        m_turns->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    };
    add(tr("首页"), [] { return 1; });
    add(tr("上一页"), [this] { return m_number - 1; });
    add(tr("下一页"), [this] { return m_number + 1; });
    add(tr("末页"), [this] { return lastPage(m_page.total); });
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

void DocumentList::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // A stretched column would shrink to nothing where there is little room.
    int rest = m_table->width() - m_table->verticalScrollBar()->sizeHint().width();
    for (int column = NameColumn + 1; column < Columns; ++column)
        rest -= m_table->columnWidth(column);
    m_table->setColumnWidth(NameColumn, std::max(kNameWidth, rest));
}

int DocumentList::lastPage(int total) {
    return std::max(1, (total + kPageSize - 1) / kPageSize);
}

void DocumentList::clear() {
    const QSignalBlocker quiet(m_table);
    m_table->clear();
    m_page = {};
    m_number = 1;
}

void DocumentList::showPage(const DocumentPage& page, int number, const std::vector<DocumentType>& types) {
    const int place = m_table->indexOfTopLevelItem(m_table->currentItem());
    QStringList selected;
    for (const QTreeWidgetItem* row : m_table->selectedItems())
        selected << DropTree::idOf(row);
    const QSignalBlocker quiet(m_table);
    m_table->clear();
    m_page = page;
    m_number = number;
    for (const Document& document : m_page.documents) {
        const auto type = std::find_if(types.begin(), types.end(), [&](const DocumentType& t) {
            return t.extensions.contains(document.extension, Qt::CaseInsensitive);
        });
        auto* row = new QTreeWidgetItem(
            m_table,
            {document.name, type == types.end() ? tr("其他") : type->name,
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
}

void DocumentList::showState(const QString& text, bool mayRetry) {
    m_state->setText(text);
    m_state->setVisible(!text.isEmpty());
    m_retry->setVisible(mayRetry);
    const int last = lastPage(m_page.total);
    m_count->setText(m_page.total > 0 ? tr("共 %1 份，第 %2 / %3 页").arg(m_page.total).arg(m_number).arg(last)
                                      : QString());
    const auto turns = m_turns->actions();
    for (int i = 0; i < turns.size(); ++i)
        turns[i]->setEnabled(i < 2 ? m_number > 1 && m_page.total > 0 : m_number < last);
}

void DocumentList::say(const QString& text) {
    m_said->setText(text);
}

std::vector<Document> DocumentList::chosen() const {
    std::vector<Document> documents;
    for (const Document& document : m_page.documents)
        if (m_table->topLevelItem(static_cast<int>(&document - m_page.documents.data()))->isSelected())
            documents.push_back(document);
    return documents;
}

}  // namespace workbench
