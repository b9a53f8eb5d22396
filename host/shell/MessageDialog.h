#pragma once

#include <functional>
#include <vector>

#include <QDialog>

#include "host/platform/Inbox.h"

class QLabel;
class QPushButton;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace workbench {

/// The user's messages, the newest first, page by page as they are wanted. It is accepted once the task of a message,
/// which is read from then on, is to be opened.
class MessageDialog : public QDialog {
    Q_OBJECT

public:
    /// Makes ready for the task of the message to be opened. False when that cannot be or the user does not want it;
    /// `why` then goes to the user, unless it is empty.
    using Preparation = std::function<bool(const Message& message, QString& why)>;

    MessageDialog(Inbox& inbox, Preparation prepare, QWidget* parent = nullptr);

    /// Whose task is to be opened; valid once the dialog was accepted.
    const Message& chosen() const { return m_chosen; }

signals:
    void unreadChanged(int count);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void createList();
    QWidget* createState();
    void readAgain();
    void readMore();
    bool append(const MessagePage& page);
    void add(const Message& message);
    void showState(const QString& text, bool mayRetry);
    void notify(const QString& text);
    void setUnread(int count);
    void markRow(QTreeWidgetItem& row, bool isRead);
    void markAllRead();
    void markRead(int place);
    void openCurrent();
    void updateButtons();

    Inbox& m_inbox;
    Preparation m_prepare;
    std::vector<Message> m_messages;  // one for each row
    int m_total = 0;
    int m_unread = 0;
    Message m_chosen;

    QLabel* m_count;
    QPushButton* m_allRead;
    QStackedWidget* m_pages;
    QTreeWidget* m_list;
    QLabel* m_state;
    QPushButton* m_retry;
    QLabel* m_notice;
    QPushButton* m_more;
    QPushButton* m_open;
};

}  // namespace workbench
