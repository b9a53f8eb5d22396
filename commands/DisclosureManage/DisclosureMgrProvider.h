#pragma once

#include <memory>

#include <QModelIndex>
#include <QObject>
#include <QVariant>

class CCatalogEditor;
class CatalogTreeModel;
class MainWindowModel;
class QWidget;
class TaskManagerViewModel;
class WindowFrame;

namespace DISCLOSUREPACKAGE {
class IDisclosureManageMgr;
struct TaskRecord;
}  // namespace DISCLOSUREPACKAGE

/// The main window: the catalogs on the left, the selected catalog's tasks on the right.
class DisclosureMgrProvider : public QObject {
    Q_OBJECT

public:
    DisclosureMgrProvider();
    ~DisclosureMgrProvider() override;

    /// Shows the window and returns when it was closed. An open one is brought to the front instead. Does nothing where
    /// the host offers no disclosure manager. A `taskId` has that task selected in its catalog, unless the user is in
    /// the middle of something.
    void ShowMainWindow(const QString& taskId = {});

public slots:
    /// `varType` is one of the numbers that main.qml sends, anything else does nothing; `data` is a folder's name or
    /// "".
    void slotCatalogOption(const QVariant& varType, const QVariant& data);
    void slotWindowClose();
    void slotWindowWidthChanged(int width);
    void slotWindowHeightChanged(int height);
    void slotToggleMaximized();
    /// Puts the proposal for a new folder's name into the context property "newFileName".
    void slotUpdateNextFolderName();
    void onTitlebarPressed();
    void onTitlebarPositionChanged();
    void onTitleBarDoubleClicked();

private:
    /// `parent` is the dialog's, the main window where it is null; both may be.
    void build(QWidget* parent, QWidget* mainWindow);
    void connectTaskList();
    void connectReading();
    void pushRights();
    /// Reads the catalogs, the first time with what a department must have.
    void readCatalogs();
    /// Reads everything again, or what could not be read, once no command runs any more.
    enum class Extent { WhatFailed, Everything };
    void readAgain(Extent extent);
    void connectRootObject();
    /// Over the window stands a dialog or a pop-up.
    bool isOccupied() const;
    void showTask(const QString& taskId);
    /// Invalid, and the user knows why, when the tree does not have it.
    QModelIndex catalogOf(const DISCLOSUREPACKAGE::TaskRecord& task, DISCLOSUREPACKAGE::IDisclosureManageMgr& manager);
    void forgetWindow();

    std::unique_ptr<WindowFrame> m_frame;
    std::unique_ptr<CCatalogEditor> m_editor;
    CatalogTreeModel* m_catalogs = nullptr;   // the view's
    TaskManagerViewModel* m_tasks = nullptr;  // the view's
    MainWindowModel* m_window = nullptr;      // the view's
    bool m_isRead = false;                    // the catalogs once were
    bool m_isReadingDue = false;              // of what failed
};
