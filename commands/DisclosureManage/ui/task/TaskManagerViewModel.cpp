#include "commands/DisclosureManage/ui/task/TaskManagerViewModel.h"

#include <algorithm>
#include <optional>

#include <QHash>

#include "commands/DisclosureManage/ui/CallReport.h"
#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Notice.h"
#include "commands/DisclosureManage/ui/task/DateRange.h"
#include "commands/DisclosureManage/ui/task/Days.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"
#include "ui/common/WideText.h"

using BASETOOLS::CKpxTimeValue;
using DISCLOSUREPACKAGE::IDisclosureManageMgr;
using DISCLOSUREPACKAGE::TaskQuery;
using DISCLOSUREPACKAGE::TaskRecord;

namespace {

constexpr int kGatherMills = 50;
constexpr int kPagesTurned = 20;  // in search of one task among those of a like name
const QString kAscending = QStringLiteral("ASC");
const QString kDescending = QStringLiteral("DESC");

/// The query that ran last, whichever window ran it; empty after a failure.
std::optional<TaskQuery>& lastQuery() {
    static std::optional<TaskQuery> query;
    return query;
}

template <class T>
bool changes(T& field, const T& value) {
    if (field == value)
        return false;
    field = value;
    return true;
}

auto placeOf(const std::wstring& id, const std::vector<TaskRecord>& tasks) {
    return std::find_if(tasks.begin(), tasks.end(), [&](const TaskRecord& task) { return task.id == id; });
}

/// Whether one of two queries turns the pages of the other.
bool isSameSearch(TaskQuery one, const TaskQuery& other) {
    one.currentPage = other.currentPage;
    one.pageSize = other.pageSize;
    one.orderKey = other.orderKey;
    one.orderType = other.orderType;
    return one == other;
}

QString dayText(QDate date) {
    return date.toString(Qt::ISODate);
}

}  // namespace

TaskManagerViewModel::TaskManagerViewModel(QObject* parent) : QObject(parent), m_timer(this) {
    m_startDate = m_endDate = DayText(QDateTime::currentMSecsSinceEpoch());
    m_timer.setSingleShot(true);
    m_timer.setInterval(kGatherMills);
    connect(&m_timer, &QTimer::timeout, this, &TaskManagerViewModel::runQuery);

    using Self = TaskManagerViewModel;
    for (const auto changed : {&Self::itemsPerPageChanged, &Self::currentPageChanged, &Self::searchDateIndexChanged,
                               &Self::searchStartDateChanged, &Self::searchEndDateChanged,
                               &Self::searchDateLimitChanged, &Self::searchTaskStatusChanged, &Self::searchTextChanged,
                               &Self::searchOrderKeyChanged, &Self::searchOrderTypeChanged})
        connect(this, changed, this, [this] { RefreshCurrentTaskInfo(false); });
}

bool TaskManagerViewModel::searchAsc() const {
    return m_orderType == kAscending;
}

QStringList TaskManagerViewModel::dateRanges() {
    return DateRangeChoices();
}

void TaskManagerViewModel::setTotalPage(int pages) {
    if (changes(m_totalPage, qMax(1, pages)))
        emit totalPageChanged();
}

void TaskManagerViewModel::setCurrentPage(int page) {
    if (changes(m_currentPage, qMax(1, page)))
        emit currentPageChanged();
}

void TaskManagerViewModel::setTotalCount(int count) {
    if (!changes(m_totalCount, count))
        return;
    emit totalCountChanged();
    emit shownCountChanged();
    updateTotalPage();
}

void TaskManagerViewModel::setCounted(bool isCounted) {
    if (changes(m_isCounted, isCounted))
        emit shownCountChanged();
}

void TaskManagerViewModel::setItemsPerPage(int items) {
    if (!changes(m_itemsPerPage, qMax(1, items)))
        return;
    emit itemsPerPageChanged();
    updateTotalPage();
}

void TaskManagerViewModel::updateTotalPage() {
    setTotalPage(pagesFor(m_totalCount));
    if (m_totalCount > 0)
        setCurrentPage(qMin(m_currentPage, m_totalPage));
}

void TaskManagerViewModel::setSearchText(const QString& text) {
    if (changes(m_searchText, text))
        emit searchTextChanged();
}

void TaskManagerViewModel::setSearchDateIndex(int index) {
    if (changes(m_dateIndex, index))
        emit searchDateIndexChanged();
}

void TaskManagerViewModel::setSearchDateLimit(bool unlimited) {
    if (changes(m_dateLimit, unlimited))
        emit searchDateLimitChanged();
}

void TaskManagerViewModel::setSearchStartDate(const QString& day) {
    if (DayStart(day) == 0 || !changes(m_startDate, day))
        return;
    emit searchStartDateChanged();
    if (DayStart(m_endDate) < DayStart(m_startDate))
        setSearchEndDate(m_startDate);
}

void TaskManagerViewModel::setSearchEndDate(const QString& day) {
    if (DayStart(day) == 0 || !changes(m_endDate, day))
        return;
    emit searchEndDateChanged();
    if (DayStart(m_endDate) < DayStart(m_startDate))
        setSearchStartDate(m_endDate);
}

void TaskManagerViewModel::setSearchTaskStatus(int status) {
    if (changes(m_taskStatus, status))
        emit searchTaskStatusChanged();
}

void TaskManagerViewModel::setSearchOrderKey(const QString& key) {
    if (!changes(m_orderKey, key)) {
        if (!key.isEmpty())
            setOrderType(searchAsc() ? kDescending : kAscending);
        return;
    }
    setOrderType(key.isEmpty() ? QString() : kAscending);
    emit searchOrderKeyChanged();
}

void TaskManagerViewModel::setOrderType(const QString& type) {
    if (changes(m_orderType, type))
        emit searchOrderTypeChanged();
}

void TaskManagerViewModel::setSearchOrderColumn(int column) {
    if (changes(m_orderColumn, column))
        emit searchOrderColumnChanged();
}

void TaskManagerViewModel::sortByColumn(const QString& title, int column) {
    const QHash<QString, QString> keys{
        {tr("任务名称"), QStringLiteral("taskName")},
        {tr("交底人"), QStringLiteral("disclosureUserName")},
        {tr("施工开始日期"), QStringLiteral("constructionStartDate")},
        {tr("施工结束日期"), QStringLiteral("constructionEndDate")},
        {tr("计划交底日期"), QStringLiteral("planDisclosureDate")},
        {tr("实际交底日期"), QStringLiteral("actualDisclosureDate")},
        {tr("更新时间"), QStringLiteral("updateAt")},
    };
    const QString key = keys.value(title);
    if (key.isEmpty())
        return;
    setSearchOrderKey(key);
    setSearchOrderColumn(column);
}

void TaskManagerViewModel::chooseDateRange(int choice) {
    const auto chosen = static_cast<DateRangeChoice>(choice);
    const DateRange range = RangeOf(chosen, QDate::currentDate());
    setSearchStartDate(dayText(range.start));
    setSearchEndDate(dayText(range.end));
    setSearchDateLimit(chosen == DateRangeChoice::All);
}

void TaskManagerViewModel::clearFilters() {
    setSearchText({});
    setSearchTaskStatus(0);
    setSearchDateLimit(true);
    setCurrentPage(1);
}

QString TaskManagerViewModel::filterText() const {
    QStringList filters;
    if (!m_searchText.isEmpty())
        filters << tr("名称含“%1”").arg(m_searchText);
    if (m_taskStatus > 0)
        filters << tr("状态为%1").arg(TaskModel::statusText(m_taskStatus));
    if (!m_dateLimit)
        filters << tr("%1至%2").arg(m_startDate, m_endDate);
    return filters.join(tr("，"));
}

void TaskManagerViewModel::setCatalogId(const QString& id) {
    if (!changes(m_catalogId, id))
        return;
    startAfresh();
    RefreshCurrentTaskInfo(true);
}

void TaskManagerViewModel::revealTask(const TaskRecord& task) {
    m_catalogId = FromWide(task.disclosureCatalogId);
    startAfresh();
    setSearchText(FromWide(task.name));
    m_wantedTask = task.id;
    RefreshCurrentTaskInfo(true);
}

void TaskManagerViewModel::startAfresh() {
    m_wantedTask.clear();
    setCounted(false);
    setCurrentPage(1);
    setTotalCount(0);
    setItemsPerPage(kItemsPerPage);
    setTotalPage(1);
    setSearchDateIndex(0);
    setSearchDateLimit(true);
    setSearchTaskStatus(-1);
    setSearchOrderKey(QString());
    setSearchOrderColumn(-1);
}

void TaskManagerViewModel::setNewTaskEnable(bool bVal) {
    if (changes(m_newTaskEnable, bVal))
        emit newTaskEnableChanged();
}

void TaskManagerViewModel::setHasEditAuth(bool granted) {
    setNewTaskEnable(granted);
    if (changes(m_operBtnEnable, granted))
        emit editAuthChanged();
}

void TaskManagerViewModel::setDelBtnEnable(bool bVal) {
    if (changes(m_delBtnEnable, bVal))
        emit delBtnEnableChanged();
}

void TaskManagerViewModel::nextPage() {
    setCurrentPage(qMin(m_currentPage + 1, m_totalPage));
}
void TaskManagerViewModel::prevPage() {
    setCurrentPage(qMin(m_currentPage - 1, m_totalPage));
}
void TaskManagerViewModel::firstPage() {
    setCurrentPage(1);
}
void TaskManagerViewModel::lastPage() {
    setCurrentPage(m_totalPage);
}

void TaskManagerViewModel::RefreshCurrentTaskInfo(bool bforcefresh) {
    m_forced = m_forced || bforcefresh;
    m_timer.start();
}

TaskQuery TaskManagerViewModel::query() const {
    TaskQuery query;
    query.disclosureCatalogId = m_catalogId.toStdWString();
    query.status = m_taskStatus;
    query.keyword = m_searchText.toStdWString();
    query.dateType = m_dateLimit ? -1 : m_dateIndex + 1;
    query.startDateMills = m_dateLimit ? -1 : DayStart(m_startDate);
    query.endDateMills = m_dateLimit ? -1 : CKpxTimeValue::EndOfDay(DayStart(m_endDate));
    query.currentPage = m_currentPage;
    query.pageSize = m_itemsPerPage;
    query.orderKey = m_orderKey.toStdWString();
    query.orderType = m_orderType.toStdWString();
    return query;
}

void TaskManagerViewModel::runQuery() {
    if (m_holds > 0) {
        m_refreshHeld = true;
        return;
    }
    auto* manager = FindDisclosureManager();
    if (!manager)
        return;
    if (m_catalogId.isEmpty())
        return showNothing();
    const Hold hold(*this);
    TaskQuery wanted = query();
    wanted.deptId = manager->GetCurDeptId();
    const bool sameQuery = lastQuery() == wanted;
    if (!std::exchange(m_forced, false) && sameQuery)
        return;
    lastQuery() = wanted;
    const std::wstring revealed = std::exchange(m_wantedTask, {});

    std::vector<TaskRecord> tasks;
    int32_t total = 0;
    m_reading.begin(!m_taskModel || m_reading.covers() || m_shown.disclosureCatalogId != wanted.disclosureCatalogId);
    DISCLOSUREPACKAGE::SetLastFailure({});
    if (!manager->PageTasks(wanted, tasks, total)) {
        const QString why = FailureReason();
        lastQuery().reset();
        m_wantedTask = revealed;  // the next refresh looks for it again
        goBackFrom(wanted);
        m_reading.fail(why, m_reading.covers());
        return;
    }
    if (const int pages = pagesFor(total); wanted.currentPage > pages) {
        setTotalCount(total);
        setCurrentPage(pages);
        return;
    }
    if (!revealed.empty()) {
        turnTo(revealed, *manager, wanted, tasks);
        lastQuery() = wanted;
    }
    m_names = PeopleNames::ofDepartment(wanted.deptId);
    showPage(wanted, tasks, sameQuery);
    setTotalCount(total);
    setCounted(true);
    const QString filters = filterText();
    if (!tasks.empty())
        m_reading.succeed();
    else
        m_reading.findNone(filters.isEmpty() ? tr("此目录下没有任务") : tr("没有符合条件的任务：%1").arg(filters),
                           !filters.isEmpty());
    if (revealed.empty())
        return;
    setCurrentPage(wanted.currentPage);
    if (const auto row = placeOf(revealed, tasks); row != tasks.end())
        emit taskRevealed(static_cast<int>(row - tasks.begin()));
    else
        sayNotFound();
}

void TaskManagerViewModel::sayNotFound() {
    ShowNotice(tr("在目录中没有找到任务“%1”").arg(searchText()));
    setSearchText({});  // which the user did not type
}

void TaskManagerViewModel::turnTo(const std::wstring& taskId, IDisclosureManageMgr& manager, TaskQuery& query,
                                  std::vector<TaskRecord>& tasks) const {
    TaskQuery next = query;
    std::vector<TaskRecord> page = tasks;
    int32_t total = 0;
    while (placeOf(taskId, page) == page.end()) {
        page.clear();
        if (++next.currentPage > kPagesTurned || !manager.PageTasks(next, page, total) || page.empty())
            return;
    }
    query = next;
    tasks = std::move(page);
}

void TaskManagerViewModel::goBackFrom(const TaskQuery& failed) {
    TaskQuery sameSearch = m_shown;
    sameSearch.currentPage = failed.currentPage;
    sameSearch.pageSize = failed.pageSize;
    if (sameSearch == failed) {
        const bool refreshDue = m_timer.isActive();
        setItemsPerPage(m_shown.pageSize);
        setCurrentPage(m_shown.currentPage);
        if (!refreshDue)
            m_timer.stop();  // the page gone back to is on the screen
    }
    if (m_taskModel && m_shown.disclosureCatalogId != failed.disclosureCatalogId)
        showPage(failed, {});  // rows of another catalog would be taken for this one's
}

void TaskManagerViewModel::showNothing() {
    lastQuery().reset();
    if (m_taskModel)
        showPage(query(), {});
    m_reading.reset();
}

void TaskManagerViewModel::showPage(const TaskQuery& query, const std::vector<TaskRecord>& tasks, bool reread) {
    m_reread = reread;
    const bool isTurned = isSameSearch(m_shown, query);
    m_shown = query;
    m_staleRows.clear();
    if (!isTurned)
        m_checkedElsewhere.clear();
    else if (m_taskModel)
        for (int row = 0; row < m_taskModel->task_list()->size(); ++row)
            if (const TaskModel* task = m_taskModel->task_list()->at(row); task->selected())
                m_checkedElsewhere.insert(task->id(), {task->id(), task->catalogid(), task->name()});

    auto* page = new MapTaskModel(this);
    for (const TaskRecord& record : tasks) {
        auto* task = new TaskModel(record, m_names, page);
        if (m_catalogPath && task->catalogid() != m_catalogId)
            task->setCatalogPath(m_catalogPath(task->catalogid()));
        task->setSelected(m_checkedElsewhere.remove(task->id()) > 0);
        connect(task, &TaskModel::selectedChagned, this, &TaskManagerViewModel::checkedCountChanged);
        page->task_list()->append(task);
    }
    if (MapTaskModel* old = std::exchange(m_taskModel, page))
        old->deleteLater();
    emit taskModelChanged();
    emit checkedCountChanged();
}

int TaskManagerViewModel::checkedCount() const {
    int count = m_checkedElsewhere.size();
    for (int row = 0; m_taskModel && row < m_taskModel->task_list()->size(); ++row)
        count += m_taskModel->task_list()->at(row)->selected();
    return count;
}

void TaskManagerViewModel::uncheckAll() {
    m_checkedElsewhere.clear();
    for (int row = 0; m_taskModel && row < m_taskModel->task_list()->size(); ++row)
        m_taskModel->task_list()->at(row)->setSelected(false);
    emit checkedCountChanged();
}

void TaskManagerViewModel::uncheck(const QSet<QString>& ids) {
    for (const QString& id : ids)
        m_checkedElsewhere.remove(id);
    for (int row = 0; m_taskModel && row < m_taskModel->task_list()->size(); ++row)
        if (TaskModel* task = m_taskModel->task_list()->at(row); ids.contains(task->id()))
            task->setSelected(false);
    emit checkedCountChanged();
}
