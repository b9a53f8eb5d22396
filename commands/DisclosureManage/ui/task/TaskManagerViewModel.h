#pragma once

#include <functional>
#include <utility>
#include <vector>

#include <QMap>
#include <QSet>
#include <QTimer>
#include <QVariant>

#include "commands/DisclosureManage/ui/ReadState.h"
#include "commands/DisclosureManage/ui/task/MapTaskModel.h"
#include "commands/DisclosureManage/ui/task/PeopleNames.h"

namespace DISCLOSUREPACKAGE {
class IDisclosureManageMgr;
}  // namespace DISCLOSUREPACKAGE

/// The task list: what is searched for, the page that was found, and the commands on its rows. Changes of the search
/// are gathered for 50 ms and then cost one query; where it fails, the rows stay as they were, unless they are another
/// catalog's, and so does the page number, unless it is that of another search. Tasks stay checked while the pages of
/// one search are turned.
class TaskManagerViewModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(MapTaskModel* task_model READ taskModel NOTIFY taskModelChanged)
    Q_PROPERTY(int total_page READ totalPage WRITE setTotalPage NOTIFY totalPageChanged)
    Q_PROPERTY(int current_page READ currentPage WRITE setCurrentPage NOTIFY currentPageChanged)
    Q_PROPERTY(int total_count READ totalCount WRITE setTotalCount NOTIFY totalCountChanged)
    Q_PROPERTY(int items_per_page READ itemsPerPage WRITE setItemsPerPage NOTIFY itemsPerPageChanged)
    Q_PROPERTY(QString search_text READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(int search_dateindex READ searchDateIndex WRITE setSearchDateIndex NOTIFY searchDateIndexChanged)
    Q_PROPERTY(bool search_datelimit READ searchDateLimit WRITE setSearchDateLimit NOTIFY searchDateLimitChanged)
    Q_PROPERTY(QString search_startdate READ searchStartDate WRITE setSearchStartDate NOTIFY searchStartDateChanged)
    Q_PROPERTY(QString search_enddate READ searchEndDate WRITE setSearchEndDate NOTIFY searchEndDateChanged)
    Q_PROPERTY(int search_taskstatus READ searchTaskStatus WRITE setSearchTaskStatus NOTIFY searchTaskStatusChanged)
    Q_PROPERTY(QString search_orderkey READ searchOrderKey WRITE setSearchOrderKey NOTIFY searchOrderKeyChanged)
    Q_PROPERTY(int search_ordercol READ searchOrderColumn WRITE setSearchOrderColumn NOTIFY searchOrderColumnChanged)
    Q_PROPERTY(bool search_asc READ searchAsc NOTIFY searchOrderTypeChanged)
    Q_PROPERTY(bool newTaskEnable READ newTaskEnable WRITE setNewTaskEnable NOTIFY newTaskEnableChanged)
    Q_PROPERTY(bool operBtnEnable READ operBtnEnable NOTIFY editAuthChanged)
    Q_PROPERTY(bool delBtnEnable READ delBtnEnable WRITE setDelBtnEnable NOTIFY delBtnEnableChanged)
    Q_PROPERTY(bool page_reread READ pageReread NOTIFY taskModelChanged)
    Q_PROPERTY(QStringList date_ranges READ dateRanges CONSTANT)
    Q_PROPERTY(ReadState* reading READ reading CONSTANT)
    Q_PROPERTY(int shown_count READ shownCount NOTIFY shownCountChanged)
    Q_PROPERTY(int checked_count READ checkedCount NOTIFY checkedCountChanged)

public:
    explicit TaskManagerViewModel(QObject* parent = nullptr);

    /// Empty when no catalog is selected.
    const QString& catalogId() const { return m_catalogId; }
    /// Null until the first page has come.
    MapTaskModel* taskModel() const { return m_taskModel; }
    int totalPage() const { return m_totalPage; }
    int currentPage() const { return m_currentPage; }
    int totalCount() const { return m_totalCount; }
    int itemsPerPage() const { return m_itemsPerPage; }
    const QString& searchText() const { return m_searchText; }
    int searchDateIndex() const { return m_dateIndex; }
    bool searchDateLimit() const { return m_dateLimit; }
    /// "yyyy-MM-dd", as the fields have it: scripts take a date for its midnight in UTC, which west of there is a day
    /// earlier.
    const QString& searchStartDate() const { return m_startDate; }
    const QString& searchEndDate() const { return m_endDate; }
    int searchTaskStatus() const { return m_taskStatus; }
    const QString& searchOrderKey() const { return m_orderKey; }
    int searchOrderColumn() const { return m_orderColumn; }
    bool searchAsc() const;
    bool newTaskEnable() const { return m_newTaskEnable; }
    bool operBtnEnable() const { return m_operBtnEnable; }
    bool delBtnEnable() const { return m_delBtnEnable; }
    /// The page is the answer to the same search as the one before it.
    bool pageReread() const { return m_reread; }
    static QStringList dateRanges();
    ReadState* reading() { return &m_reading; }
    /// `totalCount`, or -1 as long as the service has not told it.
    int shownCount() const { return m_isCounted ? m_totalCount : -1; }
    /// The checked tasks of all pages.
    int checkedCount() const;
    /// A command runs, and the rows wait for its end.
    bool isHeld() const { return m_holds > 0; }

    /// Tells the path of a catalog; the rows show it for tasks that lie deeper than in the selected catalog.
    using CatalogPath = std::function<QString(const QString& id)>;
    void setCatalogPath(CatalogPath path) { m_catalogPath = std::move(path); }

    void setTotalPage(int pages);
    void setCurrentPage(int page);
    void setTotalCount(int count);
    void setItemsPerPage(int items);
    void setSearchText(const QString& text);
    void setSearchDateIndex(int index);
    /// True means "不限": no date filter.
    void setSearchDateLimit(bool unlimited);
    /// An end before the start follows it, and the other way round. Refuses what is no day after 1970-01-01.
    void setSearchStartDate(const QString& day);
    void setSearchEndDate(const QString& day);
    void setSearchTaskStatus(int status);
    /// The key it has already turns the direction round; another one starts ascending.
    void setSearchOrderKey(const QString& key);
    void setSearchOrderColumn(int column);

    /// Sorts by the column of that title; columns that do not sort change nothing.
    Q_INVOKABLE void sortByColumn(const QString& title, int column);
    /// Applies one of `date_ranges` to the date filter.
    Q_INVOKABLE void chooseDateRange(int choice);
    /// Takes back the searched text, the status and the date range.
    Q_INVOKABLE void clearFilters();
    /// Unchecks the tasks of all pages.
    Q_INVOKABLE void uncheckAll();

public slots:
    /// Reads the page again in 50 ms; without `bforcefresh` (spelled so) only when the search has changed.
    void RefreshCurrentTaskInfo(bool bforcefresh);
    /// Another catalog starts with a fresh search, only the searched text stays.
    void setCatalogId(const QString& id);
    void setNewTaskEnable(bool bVal);
    /// The user's right to edit the tasks of others, which creating one needs too.
    void setHasEditAuth(bool granted);
    void setDelBtnEnable(bool bVal);
    void nextPage();
    void prevPage();
    void firstPage();
    void lastPage();

    // cData holds row numbers of the page; the checked tasks of other pages belong to it, unless a row is not checked.
    void AddTask();
    void ModifyTask(TaskModel* pTask);
    void onClickRemind();
    void OnDelTasks(const QVariantList& cData);
    void OnMoveTasks(const QVariantList& cData);
    void OnExportTasksToExcel(const QVariantList& cData);
    void onClickPreviewTask(TaskModel* task);
    void onEditBimInfo(TaskModel* task);
    void onEditDocInfo(TaskModel* task);
    /// `sNewDis` is one of the row's `ownermodel`. False when the change was refused.
    bool onEditOwner(const QString& sNewDis, TaskModel* task);
    /// `sDate` is "yyyy-MM-dd", or empty for no date; `sType` the column's title. False when the change was refused.
    bool onEditDate(const QString& sDate, const QString& sType, TaskModel* task);
    void onEditTaskName(TaskModel* task);
    /// A date field did not take what was typed.
    void onDateRefused(const QString& why);

signals:
    void taskModelChanged();
    void totalPageChanged();
    void currentPageChanged();
    void totalCountChanged();
    void itemsPerPageChanged();
    void searchTextChanged();
    void searchDateIndexChanged();
    void searchDateLimitChanged();
    void searchStartDateChanged();
    void searchEndDateChanged();
    void searchTaskStatusChanged();
    void searchOrderKeyChanged();
    void searchOrderTypeChanged();
    void searchOrderColumnChanged();
    void newTaskEnableChanged();
    void editAuthChanged();
    void delBtnEnableChanged();
    /// `nCount` tasks came to (or, below zero, left) the catalog; an empty id means the selected one.
    void taskCountChange(int nCount, const QString& sCatalogID);
    /// The task to be revealed stands in this row of the page.
    void taskRevealed(int row);
    void shownCountChanged();
    void checkedCountChanged();
    /// A command of the user has been carried out.
    void done(const QString& what);
    /// The last of the running commands has ended.
    void released();

public:
    /// Searches the task's catalog for its name and turns to the page that the task stands on; with the first page
    /// where it is not found.
    void revealTask(const DISCLOSUREPACKAGE::TaskRecord& task);
    /// Moves tasks one by one up to the first refusal and reports what has moved; `OnMoveTasks` once the target is
    /// known.
    void moveTasksTo(const QString& catalogId, const QVariantList& cData);

private:
    /// Keeps the rows in place while a command runs: one of them may have been clicked, and a message box lets the
    /// timer through.
    class Hold {
    public:
        explicit Hold(TaskManagerViewModel& list) : m_list(list) { ++m_list.m_holds; }
        ~Hold() {
            if (--m_list.m_holds > 0)
                return;
            if (std::exchange(m_list.m_refreshHeld, false))
                m_list.m_timer.start();
            emit m_list.released();
        }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        TaskManagerViewModel& m_list;
    };

    static constexpr int kItemsPerPage = 15;  // unless the user chooses another number

    /// A task that a command is to be done to.
    struct Picked {
        QString id;
        QString catalogId;
        QString name;
    };

    void startAfresh();
    void setOrderType(const QString& type);
    int pagesFor(int count) const { return count <= 0 ? 1 : (count - 1) / m_itemsPerPage + 1; }
    void updateTotalPage();
    DISCLOSUREPACKAGE::TaskQuery query() const;
    void runQuery();
    void turnTo(const std::wstring& taskId, DISCLOSUREPACKAGE::IDisclosureManageMgr& manager,
                DISCLOSUREPACKAGE::TaskQuery& query, std::vector<DISCLOSUREPACKAGE::TaskRecord>& tasks) const;
    void sayNotFound();
    void goBackFrom(const DISCLOSUREPACKAGE::TaskQuery& failed);
    void showNothing();
    void setCounted(bool isCounted);
    /// What the filters are, for the user; empty without one.
    QString filterText() const;
    void showPage(const DISCLOSUREPACKAGE::TaskQuery& query, const std::vector<DISCLOSUREPACKAGE::TaskRecord>& tasks,
                  bool reread = false);
    QVector<TaskModel*> rows(const QVariantList& cData) const;
    /// The tasks of `rows`; where all of them are checked, also the checked ones of other pages.
    QVector<Picked> picked(const QVariantList& cData) const;
    /// How many they are, and how many of them are out of sight.
    QString amountOf(const QVector<Picked>& tasks) const;
    void uncheck(const QSet<QString>& ids);
    /// Brings one row up to date without moving it.
    void rereadRow(TaskModel* task);
    /// The stored task of a row.
    bool find(DISCLOSUREPACKAGE::IDisclosureManageMgr& manager, const TaskModel& row,
              DISCLOSUREPACKAGE::TaskRecord& task) const;
    bool updateTask(TaskModel* task, const std::function<bool(DISCLOSUREPACKAGE::TaskRecord&)>& change);

    MapTaskModel* m_taskModel = nullptr;
    QMap<QString, Picked> m_checkedElsewhere;  // by id
    QSet<QString> m_staleRows;                 // ids of rows that the page's records do not know any more
    CatalogPath m_catalogPath;
    ReadState m_reading;
    bool m_isCounted = false;
    PeopleNames m_names;  // the department's people at the last refresh
    QTimer m_timer;
    bool m_forced = false;
    bool m_reread = false;
    int m_holds = 0;
    bool m_refreshHeld = false;

    QString m_catalogId;
    std::wstring m_wantedTask;  // to be revealed by the next query
    int m_totalPage = 1;
    int m_currentPage = 1;
    DISCLOSUREPACKAGE::TaskQuery m_shown;  // what the rows are the answer to
    int m_totalCount = 0;
    int m_itemsPerPage = kItemsPerPage;
    QString m_searchText;
    int m_dateIndex = 0;
    bool m_dateLimit = true;
    QString m_startDate;
    QString m_endDate;
    int m_taskStatus = 0;
    QString m_orderKey;
    QString m_orderType;
    int m_orderColumn = -1;
    bool m_newTaskEnable = false;
    bool m_operBtnEnable = false;
    bool m_delBtnEnable = false;
};
