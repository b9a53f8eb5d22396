#pragma once

#include <QPersistentModelIndex>
#include <QTimer>

#include "commands/DisclosureManage/ui/ReadState.h"
#include "commands/DisclosureManage/ui/ServiceState.h"
#include "commands/DisclosureManage/ui/document/DocumentLinks.h"
#include "commands/DisclosureManage/ui/document/FileTypeModel.h"
#include "commands/DisclosureManage/ui/document/FolderTreeModel.h"
#include "commands/DisclosureManage/ui/document/MapFileModel.h"

Q_DECLARE_METATYPE(ObservableCollection<QString>*)  // a template has no meta-object that would declare it

/// The picker of documents: the store's folders, one page of the documents of the selected one under the filters, and
/// the documents that are checked, whether they are shown or not. Changes are gathered for 50 ms and then cost one
/// query. Dates are texts "yyyy-MM-dd"; a start after the end is told, and nothing is asked for meanwhile. Where the
/// host lacks a manager, what needs it does nothing.
class CConnectDocModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(CFolderTreeModel* folderTreeModel READ folderTreeModel NOTIFY folderTreeChanged)
    Q_PROPERTY(QModelIndex curTreeIndex READ curTreeIndex WRITE setCurTreeIndex NOTIFY curTreeIndexChanged)
    Q_PROPERTY(QModelIndex defaultIndex READ defaultIndex NOTIFY defaultIndexChanged)
    Q_PROPERTY(MapFileModel* fileListModel READ fileListModel NOTIFY fileModelChanged)
    Q_PROPERTY(int allSelect READ allSelect NOTIFY allSelectChanged)
    Q_PROPERTY(QString searchTreeKey MEMBER m_searchTreeKey NOTIFY searchTreeKeyChanged)
    Q_PROPERTY(QString searchDocKey MEMBER m_searchDocKey NOTIFY searchDocKeyChanged)
    Q_PROPERTY(ObservableCollection<FileTypeModel*>* userCombo READ userCombo NOTIFY userComboChanged)
    Q_PROPERTY(FileTypeModel* currentUserSelection READ currentUserSelection WRITE setCurrentUserSelection NOTIFY
                   currentUserSelectionChanged)
    Q_PROPERTY(ObservableCollection<FileTypeModel*>* filetypeCombo READ filetypeCombo NOTIFY filetypeComboChanged)
    Q_PROPERTY(FileTypeModel* currentFiletypeSelection READ currentFiletypeSelection WRITE setCurrentFiletypeSelection
                   NOTIFY currentFiletypeSelectionChanged)
    Q_PROPERTY(ObservableCollection<FileTypeModel*>* tagCombo READ tagCombo NOTIFY tagComboChanged)
    Q_PROPERTY(FileTypeModel* currentTagSelection READ currentTagSelection WRITE setCurrentTagSelection NOTIFY
                   currentTagSelectionChanged)
    Q_PROPERTY(bool limit READ limit WRITE setLimit NOTIFY limitChanged)
    Q_PROPERTY(QString startTime READ startTime WRITE setStartTime NOTIFY startTimeChanged)
    Q_PROPERTY(QString endTime READ endTime WRITE setEndTime NOTIFY endTimeChanged)
    Q_PROPERTY(ObservableCollection<QString>* pageCombo READ pageCombo NOTIFY pageComboChanged)
    Q_PROPERTY(QString currentPageSelection READ currentPageSelection WRITE setCurrentPageSelection NOTIFY
                   currentPageSelectionChanged)
    Q_PROPERTY(int total_count READ totalCount NOTIFY totalChanged)
    Q_PROPERTY(int total_page READ totalPage NOTIFY totalChanged)
    Q_PROPERTY(int items_per_page READ itemsPerPage WRITE setItemsPerPage NOTIFY itemsPerPageChanged)
    Q_PROPERTY(ReadState* folderReading READ folderReading CONSTANT)
    Q_PROPERTY(ReadState* filterReading READ filterReading CONSTANT)
    Q_PROPERTY(ReadState* reading READ reading CONSTANT)

public:
    /// The links to the store among `docs` are checked.
    explicit CConnectDocModel(const DocumentLinks& docs, QObject* parent = nullptr);

    CFolderTreeModel* folderTreeModel() { return &m_folders; }
    /// Invalid as long as no folder is selected, and again when the tree is replaced.
    QModelIndex curTreeIndex() const { return m_current; }
    /// Another folder takes back the updater. An invalid index leaves the documents as they are.
    void setCurTreeIndex(const QModelIndex& index);
    /// What is to be selected in a new tree: the folder that was, otherwise the top.
    QModelIndex defaultIndex() const;
    /// Null until the first page has come.
    MapFileModel* fileListModel() const { return m_page; }
    /// How many documents are checked, those out of sight too.
    int allSelect() const { return static_cast<int>(m_checked.size()); }
    ObservableCollection<FileTypeModel*>* userCombo() { return m_users.choices(); }
    FileTypeModel* currentUserSelection() const { return m_users.chosen(); }
    void setCurrentUserSelection(FileTypeModel* user);
    ObservableCollection<FileTypeModel*>* filetypeCombo() { return m_types.choices(); }
    FileTypeModel* currentFiletypeSelection() const { return m_types.chosen(); }
    void setCurrentFiletypeSelection(FileTypeModel* type);
    ObservableCollection<FileTypeModel*>* tagCombo() { return m_tags.choices(); }
    FileTypeModel* currentTagSelection() const { return m_tags.chosen(); }
    void setCurrentTagSelection(FileTypeModel* tag);
    /// True means "不限": no range of dates.
    bool limit() const { return m_limit; }
    void setLimit(bool unlimited);
    const QString& startTime() const { return m_startTime; }
    void setStartTime(const QString& day);
    const QString& endTime() const { return m_endTime; }
    void setEndTime(const QString& day);
    ObservableCollection<QString>* pageCombo() { return &m_pages; }
    QString currentPageSelection() const { return QString::number(m_pageNumber); }
    /// A number beyond the ends is taken for the end.
    void setCurrentPageSelection(const QString& page);
    /// -1 as long as nobody has told it.
    int totalCount() const { return m_total; }
    int totalPage() const { return m_total <= 0 ? 1 : (m_total - 1) / m_itemsPerPage + 1; }
    int itemsPerPage() const { return m_itemsPerPage; }
    void setItemsPerPage(int items);
    ReadState* folderReading() { return &m_folderReading; }
    ReadState* filterReading() { return &m_filterReading; }
    ReadState* reading() { return &m_reading; }

    /// Whether the user has accepted the choice, and all documents that are checked then.
    bool isAccepted() const { return m_isAccepted; }
    const DocumentLinks& checked() const { return m_checked; }

public slots:
    void onCurrentPageSelectionChanged();
    void onSearchTree();
    void onSearchDoc();
    void onClickFirstPage();
    void onClickLastPage();
    void onClickPrePage();
    void onClickBackPage();
    void onClickPreviewDoc(CFileModel* pDocModel);
    void onClickOk();
    void onClickCancel();

public:
    /// Reads folders and filters, or, once they are there, what could not be read.
    Q_INVOKABLE void read();
    /// Takes back everything but the folder.
    Q_INVOKABLE void clearFilters();
    /// A date field did not take what was typed.
    Q_INVOKABLE void onDateRefused(const QString& why);

signals:
    void folderTreeChanged();
    void curTreeIndexChanged();
    void defaultIndexChanged();
    void fileModelChanged();
    void allSelectChanged();
    void searchTreeKeyChanged();
    void searchDocKeyChanged();
    void userComboChanged();
    void currentUserSelectionChanged();
    void filetypeComboChanged();
    void currentFiletypeSelectionChanged();
    void tagComboChanged();
    void currentTagSelectionChanged();
    void limitChanged();
    void startTimeChanged();
    void endTimeChanged();
    void pageComboChanged();
    void currentPageSelectionChanged();
    void totalChanged();
    void itemsPerPageChanged();

private:
    using Changed = void (CConnectDocModel::*)();

    /// Null where the host does not have it.
    static DOCUMENTPACKAGE::IKpxDocFileListMgr* fileList();
    static QString startsAfterEnd();
    void prepareFilters();
    void readFolders();
    void readFilters();
    bool readTypes();
    bool readTags();
    bool readUpdaters();
    void choose(DocumentFilter& filter, FileTypeModel* choice, Changed changed);
    void setDate(QString& date, const QString& day, Changed changed);
    bool isInverted() const { return m_startTime > m_endTime; }
    void warn(const QString& text);
    /// What is asked for has changed, so that the pages begin anew.
    void search();
    void turnTo(int page);
    void refresh();
    DOCUMENTPACKAGE::DocFileQuery query() const;
    bool isFiltered() const;
    void runQuery();
    void showPage(const std::vector<DOCUMENTPACKAGE::DocFileRecord>& files);
    bool isChecked(const std::wstring& documentId) const;
    void takeCheck(const CFileModel& row);
    QString failureReason() const;

    CFolderTreeModel m_folders;
    QPersistentModelIndex m_current;
    QString m_folderId;        // of the folder selected last
    QString m_shownFolderId;   // of the folder whose documents are shown
    QString m_updatersFolder;  // whose updaters are offered
    bool m_isDue = false;      // something was asked for while no folder was selected
    bool m_areFoldersRead = false;
    bool m_areTypesRead = false;
    bool m_areTagsRead = false;
    QString m_searchTreeKey;
    QString m_searchDocKey;
    DocumentFilter m_users;
    DocumentFilter m_types;
    DocumentFilter m_tags;
    bool m_limit = true;
    QString m_startTime;
    QString m_endTime;
    MapFileModel* m_page = nullptr;
    ObservableCollection<QString> m_pages;
    int m_pageNumber = 1;
    int m_itemsPerPage = 15;
    int m_total = -1;
    DocumentLinks m_checked;
    bool m_isAccepted = false;
    ReadState m_folderReading;
    ReadState m_filterReading;
    ReadState m_reading;
    ServiceState m_service;
    QTimer m_first;
    QTimer m_gather;
    QTimer m_warning;
    QString m_warningText;
};
