#pragma once

#include <functional>

#include <QQuickView>
#include <QString>

class QWidget;

/// The display as the walk uses it. The first thing that is not as it should be ends the program with status 1.
namespace screen {

/// Fails the walk, with a picture, unless `holds`.
void expect(bool holds, const QString& what);
/// The same unless `holds` comes to be true within reason.
void expectSoon(const std::function<bool()>& holds, const QString& what);
/// Saves the whole display as the next numbered picture.
void picture(const char* name);
/// The same of what is drawn already, without letting anything happen.
void pictureAtOnce(const char* name);

/// Calls `open`, which runs a modal dialog, and does `steps` in it as soon as its page titled `title` shows. The
/// keyboard then must be back where it was.
void inDialog(const QString& title, const std::function<void()>& open, const std::function<void(QQuickView*)>& steps);
/// The same for a dialog of widgets with that window title.
void inWidgets(const QString& title, const std::function<void()>& open, const std::function<void(QWidget*)>& steps);
/// Calls `ask`, which opens a message box that must begin with `text`, and answers it with its first button. Without a
/// name no picture is saved.
void answering(const char* pictureName, const QString& text, const std::function<void()>& ask);

/// The halves of the main window, which have buttons of the same names.
enum class Pane { Catalogs, Tasks };
/// Presses the icon button with that tool tip, which must be enabled.
void press(QQuickView* view, Pane pane, const QString& tooltip);
/// Selects the catalog whose row shows `text`.
void selectCatalog(QQuickView* view, const QString& text);
/// Clicks the item that shows `text`.
void clickText(QQuickView* view, const QString& text);
/// Waits until an item shows `text`, as text or as title.
void expectText(QQuickView* view, const QString& text);

}  // namespace screen
