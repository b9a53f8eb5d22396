#pragma once

#include <functional>

#include <QDialog>

class QAction;
class QLabel;
class QStackedWidget;
class QToolBar;

namespace workbench {

class DocumentView;

/// A window with one document. It is not modal, so that what it was opened from can be used beside it, and goes with
/// its owner.
class DocumentWindow : public QDialog {
    Q_OBJECT

public:
    /// Hands the file to the system's program; false where there is none.
    using Launcher = std::function<bool(const QString& path)>;

    /// `path` is the content's place on the disk and `name` what it is called; deletes itself when it is closed.
    DocumentWindow(QString path, const QString& name, QWidget* owner);

    /// Shows itself with the content, or says why that cannot be seen here; then false.
    bool open(const Launcher& launch);

    /// Lets the user choose where the content goes, and tells what went wrong.
    static void saveAs(const QString& path, const QString& name, QWidget* owner);

private:
    void createBar();
    QWidget* createNotice();
    void say(const QString& notice);
    bool launch(const Launcher& launch);

    QString m_path;
    QString m_name;
    QToolBar* m_bar;
    QLabel* m_said;
    QStackedWidget* m_pages;
    QLabel* m_notice;
    DocumentView* m_view;  // null where the kind is not shown inside
};

/// See DocumentWindow::Launcher.
bool launchOutside(const QString& path);

}  // namespace workbench
