#pragma once

#include <vector>

#include <QWidget>

#include "host/platform/DocumentStore.h"

class QLabel;
class QPushButton;
class QToolBar;

namespace workbench {

class DropTree;

/// One page of documents with the buttons to turn it, or words in place of its rows.
class DocumentList : public QWidget {
    Q_OBJECT

public:
    static constexpr int kPageSize = 30;

    DocumentList();

    DropTree& table() const { return *m_table; }
    static int lastPage(int total);

    /// Shows page `number`; what was selected stays so where it is there.
    void showPage(const DocumentPage& page, int number, const std::vector<DocumentType>& types);
    void clear();
    /// In place of rows; an empty text takes it away.
    void showState(const QString& text, bool mayRetry = false);
    /// Below the rows.
    void say(const QString& text);

    int pageNumber() const { return m_number; }
    std::vector<Document> chosen() const;

signals:
    void pageWanted(int number);
    void retryWanted();
    void openWanted();
    void choiceChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void createTable();
    QWidget* createPaging();

    DropTree* m_table;
    QLabel* m_state;
    QPushButton* m_retry;
    QLabel* m_said;
    QLabel* m_count;
    QToolBar* m_turns;    // first, previous, next, last
    DocumentPage m_page;  // one document for each row
    int m_number = 1;
};

}  // namespace workbench
