#pragma once

#include <QQuickView>
#include <QString>
#include <QStringList>

/// The task editor as the walk uses it.
namespace editor {

/// What the field with that caption shows.
QString value(QQuickView* view, const QString& caption);
/// Replaces what the field holds by typing; Tab leaves it.
void enter(QQuickView* view, const QString& caption, const QString& text);
/// Clicks the button with that text, to which the form scrolls.
void press(QQuickView* view, const QString& text);

/// Presses "选择" beside the caption, searches in the dialog that opens for each of the people and clicks on them:
/// search text and shown name.
void choosePeople(QQuickView* view, const QString& caption, const char* pictureName,
                  const QList<QPair<QString, QString>>& people);
/// Presses "本地上传" and gives the path to the file dialog that opens.
void upload(QQuickView* view, const QString& path);

}  // namespace editor
