#pragma once

#include <QIcon>

/// The workbench's icons, drawn in one flat line of one colour.
namespace workbench::icons {

QIcon bell();
QIcon command();
QIcon folder();
QIcon log();
QIcon refresh();
QIcon user();

/// The side of the grid they are drawn on, in device-independent pixels.
inline constexpr int kSide = 24;

}  // namespace workbench::icons
