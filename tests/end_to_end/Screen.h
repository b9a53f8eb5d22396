#pragma once

#include <functional>

#include <QQuickView>
#include <QWidget>

#include "tests/support/QuickPilot.h"

/// The display as the walk uses it. The first thing that is not as it should be ends the program with status 1.
namespace screen {

/// Fails the walk, with a picture, unless `holds`.
void expect(bool holds, const QString& what);
/// The same unless `holds` comes to be true within reason.
void expectSoon(const std::function<bool()>& holds, const QString& what);
/// Saves the whole display as the next numbered picture.
void picture(const char* name);
/// The visible widget that passes; null without one.
QWidget* findWidget(const std::function<bool(QWidget*)>& test);

/// Saves a picture in the middle of a wait, during which no timer runs: when a widget of the progress dialog that
/// passes is painted. Calls `then`, once.
class DuringWait : public QObject {
public:
    DuringWait(const char* pictureName, std::function<bool(QWidget*)> test, std::function<void()> then = {});
    ~DuringWait() { expect(m_hasHappened, QString("the wait is shown: ") + m_name); }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const char* m_name;
    std::function<bool(QWidget*)> m_test;
    std::function<void()> m_then;
    bool m_hasHappened = false;
};

/// The halves of the main window, which have buttons of the same names.
enum class Pane { Catalogs, Tasks };

/// A window of the plug-in.
class View : public support::QuickPilot {
public:
    explicit View(QQuickView* view) : QuickPilot(view), m_view(view) {}

    bool isOpen() const { return m_view->isVisible(); }
    /// Waits until an item shows `text`, as text or as title.
    QQuickItem* expectText(const QString& text) const;
    /// Waits until an item's text begins so.
    QQuickItem* expectBeginning(const QString& text) const;
    void clickText(const QString& text) { click(expectText(text)); }
    /// Presses the icon button with that tool tip, which must be enabled.
    void press(Pane pane, const QString& tooltip);
    /// Selects the catalog whose row shows `text`.
    void selectCatalog(const QString& text);
    /// Replaces what the search field of that hint holds by typing.
    View& search(const QString& hint, const QString& text);

    /// What the form's field with that caption shows.
    QString value(const QString& caption) const { return named(caption)->property("value").toString(); }
    /// Replaces what it holds by typing; Tab leaves it.
    void enter(const QString& caption, const QString& text);
    /// Clicks the form's button with that text, to which the form scrolls.
    void pressButton(const QString& text, QQuickItem* within = nullptr);
    /// Presses "选择" beside the caption, searches in the dialog that opens for each of the people and clicks on them:
    /// search text and shown name.
    void choosePeople(const QString& caption, const char* pictureName, const QList<QPair<QString, QString>>& people);
    /// Presses "本地上传" and gives the path to the file dialog that opens.
    void upload(const QString& path);

    /// The cell of the list's topmost row that passes, to which the wheel is tilted.
    QQuickItem* cell(const support::ItemTest& test);
    /// The task of the cell's row.
    static QObject* taskOf(QQuickItem* cell) { return cell->property("task").value<QObject*>(); }
    /// A property of the first row's task; empty when the list is.
    QString first(const char* property) const;
    void expectFirst(const char* property, const QString& value) const;
    /// Checks the first row's box, unless it is; the row must be that task's.
    void checkFirst(const QString& taskId);
    /// Clicks the first row's picture for editing, at the right end of the table.
    void clickEdit();

private:
    QQuickItem* topCell(const support::ItemTest& test) const;
    QQuickItem* there(const support::ItemTest& test, const QString& what) const;
    void reach(QQuickItem* item);

    QQuickView* m_view;
};

/// Calls `open`, which runs a modal dialog, and does `steps` in it as soon as its page titled `title` shows. The
/// keyboard then must be back where it was.
void inDialog(const QString& title, const std::function<void()>& open, const std::function<void(View&)>& steps);
/// The same for a dialog of widgets with that window title.
void inWidgets(const QString& title, const std::function<void()>& open, const std::function<void(QWidget*)>& steps);
/// Calls `ask`, which opens a message box that must begin with `text`, and answers it with its first button.
void answering(const char* pictureName, const QString& text, const std::function<void()>& ask);

}  // namespace screen
