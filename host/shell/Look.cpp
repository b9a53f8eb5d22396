#include "host/shell/Look.h"

#include <QApplication>
#include <QFont>
#include <QLibraryInfo>
#include <QPalette>
#include <QStyleFactory>
#include <QTranslator>

namespace workbench::look {
namespace {

constexpr char kFamily[] = "微软雅黑";
constexpr int kPointSize = 10;

constexpr char kStyleSheet[] = R"(
QMainWindow, QDialog { background: #f7f8fa; }
QToolBar { background: white; border: none; border-bottom: 1px solid #dcdfe4; padding: 6px 10px; spacing: 8px; }
QToolBar QToolButton { padding: 6px 14px; border-radius: 4px; }
QToolBar QToolButton:hover, QToolBar QToolButton:focus { background: #e8f0fb; }
QToolBar QToolButton:pressed { background: #d3e3f8; }
QToolBar QToolButton:checked { background: #d3e3f8; }
QToolBar QToolButton:disabled { color: #767676; }
QToolBar QToolButton::menu-indicator { image: none; }
QMenu { background: white; border: 1px solid #dcdfe4; padding: 4px; }
QMenu::item { padding: 6px 24px; border-radius: 4px; }
QMenu::item:selected { background: #e8f0fb; color: #1a1a1a; }
QMenu::item:disabled { color: #666666; }
QHeaderView::section { background: #eef0f3; border: none; border-right: 1px solid #dcdfe4; padding: 6px 8px; }
QDockWidget::title { background: #eef0f3; padding: 6px 10px; }
QStatusBar { background: white; border-top: 1px solid #dcdfe4; }
QLineEdit { padding: 5px 8px; border: 1px solid #c8ccd2; border-radius: 4px; background: white; }
QLineEdit:focus { border-color: #3399ff; }
QLineEdit:disabled { background: #eeeff1; color: #666666; }
QPushButton { padding: 6px 20px; border: 1px solid #c8ccd2; border-radius: 4px; background: white; }
QPushButton:hover, QPushButton:focus { border-color: #3399ff; }
QPushButton[primary="true"] { background: #2f7fd6; border-color: #2f7fd6; color: white; }
QPushButton[primary="true"]:hover, QPushButton[primary="true"]:focus { background: #2469b5; }
QPushButton[primary="true"]:disabled { background: #9dbfe4; border-color: #9dbfe4; }
)";

}  // namespace

void apply(QApplication& application) {
    QFont::insertSubstitutions(kFamily, {"Microsoft YaHei", "WenQuanYi Micro Hei", "Noto Sans CJK SC"});
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setFont(QFont(kFamily, kPointSize));
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Highlight, QColor("#3399ff"));
    QApplication::setPalette(palette);
    application.setStyleSheet(kStyleSheet);
    // The words of Qt's own dialogs, as in the file dialog, whatever the machine's language is.
    auto* words = new QTranslator(&application);
    if (words->load("qtbase_zh_CN", QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(words);
}

}  // namespace workbench::look
