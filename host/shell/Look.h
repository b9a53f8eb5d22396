#pragma once

#include <QString>

class QApplication;

/// Fonts and colours of the workbench.
namespace workbench::look {

inline constexpr char kHeading[] = "font-size: 15pt; color: #1a1a1a;";
inline constexpr char kFaintText[] = "color: #666666;";
inline constexpr char kErrorText[] = "color: #c62828;";
inline constexpr char kAlive[] = "#2e9d4f";
inline constexpr char kDead[] = "#d23b3b";
inline constexpr char kUnknown[] = "#9a9a9a";
inline constexpr char kNotice[] = "#1f6fbf";
inline constexpr char kBorder[] = "#c8ccd2";
inline constexpr char kFocus[] = "#3399ff";
inline constexpr char kDisabled[] = "#eeeff1";
inline constexpr char kIcon[] = "#4a4f57";
inline constexpr char kRoomyRows[] = "QTreeView::item { padding: 6px 4px; }";

/// The style sheet of a dot in the colour.
inline QString dot(const char* colour) {
    return QString("color: %1; font-size: 13pt;").arg(colour);
}

/// Style, palette, Qt's own words in Chinese, and the substitute for the family "微软雅黑" where that is not installed.
void apply(QApplication& application);

}  // namespace workbench::look
