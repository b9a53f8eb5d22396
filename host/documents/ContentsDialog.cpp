#include "host/documents/ContentsDialog.h"

#include <QDateTime>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "host/documents/DocumentView.h"
#include "host/shell/Look.h"

namespace workbench {
namespace {

constexpr int kWidth = 680;
constexpr int kHeight = 360;
constexpr int kMargin = 16;

}  // namespace

ContentsDialog::ContentsDialog(const QString& name, std::vector<DocumentContent> contents, QWidget* parent)
    : QDialog(parent), m_contents(std::move(contents)), m_list(new QTreeWidget) {
    setWindowTitle(tr("“%1”的历史内容").arg(name));
    resize(kWidth, kHeight);
    m_list->setHeaderLabels({tr("版本"), tr("文件"), tr("大小"), tr("更新人"), tr("更新时间")});
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_list->setRootIsDecorated(false);
    m_list->setAllColumnsShowFocus(true);
    m_list->setStyleSheet(look::kRoomyRows);
    m_list->setAccessibleName(windowTitle());
    std::size_t number = m_contents.size();
    for (const DocumentContent& content : m_contents)
        new QTreeWidgetItem(m_list,
                            {tr("第 %1 版").arg(number--), content.name, sizeText(content.size), content.updateRealname,
                             QDateTime::fromMSecsSinceEpoch(content.updateMills).toString("yyyy-MM-dd HH:mm")});
    m_list->setCurrentItem(m_list->topLevelItem(0));

    auto* open = new QPushButton(tr("打开(&O)"));
    open->setDefault(true);
    open->setProperty("primary", true);
    open->setEnabled(!m_contents.empty());
    auto* save = new QPushButton(tr("另存为(&S)…"));
    save->setEnabled(!m_contents.empty());
    auto* close = new QPushButton(tr("关闭(&C)"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {open, save, close})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
    connect(open, &QPushButton::clicked, this, [this] { emit openWanted(current()); });
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, [this] { emit openWanted(current()); });
    connect(save, &QPushButton::clicked, this, [this] { emit saveWanted(current()); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

const DocumentContent& ContentsDialog::current() const {
    return m_contents[static_cast<std::size_t>(m_list->indexOfTopLevelItem(m_list->currentItem()))];
}

}  // namespace workbench
