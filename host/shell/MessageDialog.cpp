#include "host/shell/MessageDialog.h"

#include <algorithm>
#include <set>

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QStackedWidget>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "host/shell/Look.h"

namespace workbench {
namespace {

enum Column { KindColumn, TextColumn, TimeColumn, Columns };

constexpr int kWidth = 780;
constexpr int kHeight = 440;
constexpr int kMargin = 16;

QString timeText(const QDateTime& time) {
    return time.date() == QDate::currentDate() ? MessageDialog::tr("今天 %1").arg(time.toString("HH:mm"))
                                               : time.toString("yyyy-MM-dd");
}

QString kindText(int kind) {
    switch (static_cast<Message::Kind>(kind)) {
        case Message::Kind::BeforePlanned:
            return MessageDialog::tr("提前提醒");
        case Message::Kind::Overdue:
            return MessageDialog::tr("过期提醒");
    }
    return MessageDialog::tr("提醒");
}

}  // namespace

MessageDialog::MessageDialog(Inbox& inbox, Preparation prepare, QWidget* parent)
    : QDialog(parent),
      m_inbox(inbox),
      m_prepare(std::move(prepare)),
      m_count(new QLabel),
      m_allRead(new QPushButton(tr("全部已读(&A)"))),
      m_pages(new QStackedWidget),
      m_list(new QTreeWidget),
      m_state(new QLabel),
      m_retry(new QPushButton(tr("重试(&R)"))),
      m_notice(new QLabel),
      m_more(new QPushButton(tr("加载更多(&M)"))),
      m_open(new QPushButton(tr("打开任务(&O)"))) {
    setWindowTitle(tr("消息"));
    resize(kWidth, kHeight);
    createList();
    m_pages->addWidget(m_list);
    m_pages->addWidget(createState());
    m_notice->setObjectName("notice");
    m_notice->setWordWrap(true);
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setStyleSheet(look::kErrorText);
    m_notice->hide();
    m_open->setDefault(true);
    m_open->setProperty("primary", true);
    auto* close = new QPushButton(tr("关闭(&C)"));

    auto* top = new QHBoxLayout;
    top->addWidget(m_count, 1);
    top->addWidget(m_allRead);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_more);
    bottom->addStretch();
    bottom->addWidget(m_open);
    bottom->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(10);
    layout->addLayout(top);
    layout->addWidget(m_pages, 1);
    layout->addWidget(m_notice);
    layout->addLayout(bottom);

    connect(m_allRead, &QPushButton::clicked, this, &MessageDialog::markAllRead);
    connect(m_retry, &QPushButton::clicked, this, &MessageDialog::readAgain);
    connect(m_more, &QPushButton::clicked, this, &MessageDialog::readMore);
    connect(m_open, &QPushButton::clicked, this, &MessageDialog::openCurrent);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    showState(tr("正在读取…"), false);
}

void MessageDialog::createList() {
    m_list->setColumnCount(Columns);
    m_list->setHeaderLabels({tr("类型"), tr("内容"), tr("时间")});
    m_list->header()->setSectionsMovable(false);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(TextColumn, QHeaderView::Stretch);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setTextElideMode(Qt::ElideMiddle);  // the date stands at the end
    m_list->setAccessibleName(tr("消息"));
    m_list->setStyleSheet(look::kRoomyRows);
    // Enter presses the default button, and would come twice through itemActivated.
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, &MessageDialog::openCurrent);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &MessageDialog::updateButtons);
}

QWidget* MessageDialog::createState() {
    m_state->setObjectName("state");
    m_state->setAlignment(Qt::AlignCenter);
    m_state->setWordWrap(true);
    m_state->setTextFormat(Qt::PlainText);
    m_state->setStyleSheet(look::kFaintText);
    auto* page = new QFrame;
    page->setFrameShape(QFrame::StyledPanel);
    auto* layout = new QVBoxLayout(page);
    layout->setSpacing(12);
    layout->addStretch();
    layout->addWidget(m_state);
    layout->addWidget(m_retry, 0, Qt::AlignHCenter);
    layout->addStretch();
    return page;
}

void MessageDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous())
        QTimer::singleShot(0, this, &MessageDialog::readAgain);
}

void MessageDialog::readAgain() {
    m_list->clear();
    m_messages.clear();
    m_total = 0;
    showState(tr("正在读取…"), false);
    QString why;
    const std::optional<MessagePage> page = m_inbox.page(1, why);
    if (!page) {
        showState(why, true);
        m_retry->setFocus();
        return;
    }
    append(*page);
    if (m_messages.empty()) {
        showState(tr("暂无消息"), false);
        return;
    }
    m_pages->setCurrentIndex(0);
    m_list->setCurrentItem(m_list->topLevelItem(0));
    m_list->setFocus();
}

void MessageDialog::readMore() {
    QString why;
    const int before = m_list->topLevelItemCount();
    // Messages that came meanwhile have pushed known ones onto the next page; a page of nothing else is passed over.
    std::optional<MessagePage> page;
    for (int number = before / Inbox::kPageSize + 1; (page = m_inbox.page(number, why)); ++number)
        if (append(*page) || page->messages.empty())
            break;
    notify(why);
    if (m_list->topLevelItemCount() > before) {
        m_list->setCurrentItem(m_list->topLevelItem(before));
        m_list->setFocus();
    } else if (page) {
        m_total = before;  // there are no more, whatever the count says
        updateButtons();
    }
}

bool MessageDialog::append(const MessagePage& page) {
    std::set<QString> known;
    for (const Message& message : m_messages)
        known.insert(message.id);
    const std::size_t before = m_messages.size();
    for (const Message& message : page.messages)
        if (known.insert(message.id).second)
            add(message);
    m_total = page.totalCount;
    setUnread(page.unreadCount);
    return m_messages.size() > before;
}

void MessageDialog::add(const Message& message) {
    m_messages.push_back(message);
    auto* row = new QTreeWidgetItem(m_list, {kindText(message.kind), message.text, timeText(message.created)});
    row->setForeground(KindColumn,
                       QColor(message.kind == static_cast<int>(Message::Kind::Overdue) ? look::kDead : look::kNotice));
    row->setToolTip(TextColumn, QString("<qt>%1</qt>").arg(message.text.toHtmlEscaped()));  // wraps
    row->setToolTip(TimeColumn, message.created.toString("yyyy-MM-dd HH:mm"));
    markRow(*row, message.isRead);
}

void MessageDialog::markRow(QTreeWidgetItem& row, bool isRead) {
    QFont font = m_list->font();
    font.setBold(!isRead);
    for (int column = 0; column < Columns; ++column)
        row.setFont(column, font);
    // What the eye sees in the bold letters.
    row.setData(KindColumn, Qt::AccessibleTextRole,
                isRead ? row.text(KindColumn) : tr("未读，%1").arg(row.text(KindColumn)));
}

void MessageDialog::showState(const QString& text, bool mayRetry) {
    notify({});
    m_state->setText(text);
    m_retry->setVisible(mayRetry);
    m_pages->setCurrentIndex(1);
    updateButtons();
}

void MessageDialog::notify(const QString& text) {
    m_notice->setText(text);
    m_notice->setVisible(!text.isEmpty());
}

void MessageDialog::setUnread(int count) {
    m_unread = count;
    updateButtons();
    emit unreadChanged(count);
}

void MessageDialog::markAllRead() {
    QString why;
    const bool marked = m_inbox.markAllRead(why);
    notify(why);
    if (!marked)
        return;
    for (std::size_t place = 0; place < m_messages.size(); ++place) {
        m_messages[place].isRead = true;
        markRow(*m_list->topLevelItem(static_cast<int>(place)), true);
    }
    setUnread(0);
    m_list->setFocus();  // the button that had it is disabled
}

void MessageDialog::markRead(int place) {
    Message& message = m_messages[static_cast<std::size_t>(place)];
    QString why;
    if (message.isRead || !m_inbox.markRead(message.id, why))
        return;
    message.isRead = true;
    markRow(*m_list->topLevelItem(place), true);
    setUnread(std::max(0, m_unread - 1));
}

void MessageDialog::openCurrent() {
    const int place = m_list->indexOfTopLevelItem(m_list->currentItem());
    if (place < 0)
        return;
    QString why;
    const Message message = m_messages[static_cast<std::size_t>(place)];
    const bool isReady = m_prepare(message, why);
    notify(why);
    if (isReady || message.taskId.isEmpty())
        markRead(place);
    if (!isReady)
        return;
    m_chosen = message;
    accept();
}

void MessageDialog::updateButtons() {
    m_count->setText(m_unread > 0 ? tr("%1条未读").arg(m_unread) : QString());
    m_allRead->setEnabled(m_unread > 0);
    m_more->setVisible(m_list->topLevelItemCount() < m_total);
    m_open->setEnabled(m_list->currentItem() != nullptr);
}

}  // namespace workbench
