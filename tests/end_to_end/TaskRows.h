#pragma once

#include <QQuickView>

#include "tests/support/QuickPilot.h"

/// The rows of the task list in the main window.
namespace rows {

/// The item of a cell that passes, from the top row down; null without one.
QQuickItem* findCell(QQuickView* view, const support::ItemTest& test);
/// The task of the cell's row.
QObject* taskOf(QQuickItem* cell);
/// The task of the first row; null when the list is empty.
QObject* firstTask(QQuickView* view);
/// Checks the first row's box, unless it is, and tells which task it is.
QString checkFirst(QQuickView* view);
/// Clicks the first row's picture for editing, at the right end of the table.
void clickEdit(QQuickView* view);

}  // namespace rows
