#include "commands/DisclosureManage/ui/task/AddTaskViewModel.h"

#include "commands/DisclosureManage/ui/CallReport.h"
#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Notice.h"
#include "commands/DisclosureManage/ui/task/Days.h"
#include "commands/DisclosureManage/ui/task/SelectOwnerWnd.h"
#include "commands/DisclosureManage/ui/task/SelectReceiverWnd.h"
#include "commands/DisclosureManage/ui/task/TaskConflictViewModel.h"
#include "commands/DisclosureManage/ui/task/TaskConflictWnd.h"
#include "commands/DisclosureManage/ui/task/TaskFields.h"
#include "commands/DisclosureManage/ui/task/TaskRules.h"
#include "sdk/basetools/Uuid.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"
#include "ui/common/WideText.h"

using BASEPACKAGE::UserRecord;
using DISCLOSUREPACKAGE::IDisclosureManageMgr;
using DISCLOSUREPACKAGE::TaskReceiveUserRecord;
using DISCLOSUREPACKAGE::TaskRecord;

CAddTaskViewModel::CAddTaskViewModel(const DISCLOSUREPACKAGE::TaskRecord& task, QObject* parent)
    : QObject(parent), m_isNew(task.id.empty()), m_began(task), m_task(task), m_docs(m_task) {
    connect(&m_docs, &CTaskDocuments::changed, this, &CAddTaskViewModel::connectDocChanged);
    qRegisterMetaType<CBimTreeNode*>();  // QML hands nodes to the slots only when it knows the type
    m_links.build(CBimTreeModel::linksOf(m_task));
    if (IDisclosureManageMgr* manager = FindDisclosureManager())
        m_names = PeopleNames::ofDepartment(manager->GetCurDeptId());
}

QString CAddTaskViewModel::taskName() const {
    return FromWide(m_task.name);
}

void CAddTaskViewModel::setTaskName(const QString& name) {
    if (name == taskName())
        return;
    m_task.name = OneLine(name).toStdWString();
    emit taskNameChanged();
}

QString CAddTaskViewModel::disName() const {
    return m_names.shown(m_task.disclosureUserName, m_task.disclosureUserRealname);
}

QString CAddTaskViewModel::receiveName() const {
    return ShownReceivers(m_task, m_names);
}

QString CAddTaskViewModel::remark() const {
    return FromWide(m_task.remark);
}

void CAddTaskViewModel::setRemark(const QString& remark) {
    if (remark == this->remark())
        return;
    m_task.remark = PlainLines(remark).toStdWString();
    emit remarkChanged();
}

QString CAddTaskViewModel::constStartDate() const {
    return DayText(m_task.constructionStartDateMills);
}

void CAddTaskViewModel::setConstStartDate(const QString& date) {
    setDate(m_task.constructionStartDateMills, date, &CAddTaskViewModel::constStartDateChanged);
}

QString CAddTaskViewModel::constEndDate() const {
    return DayText(m_task.constructionEndDateMills);
}

void CAddTaskViewModel::setConstEndDate(const QString& date) {
    setDate(m_task.constructionEndDateMills, date, &CAddTaskViewModel::constEndDateChanged);
}

QString CAddTaskViewModel::planDate() const {
    return DayText(m_task.planDisclosureDateMills);
}

void CAddTaskViewModel::setPlanDate(const QString& date) {
    setDate(m_task.planDisclosureDateMills, date, &CAddTaskViewModel::planDateChanged);
}

QString CAddTaskViewModel::endDate() const {
    return DayText(m_task.expiryDateMills);
}

void CAddTaskViewModel::setEndDate(const QString& date) {
    setDate(m_task.expiryDateMills, date, &CAddTaskViewModel::endDateChanged);
}

void CAddTaskViewModel::setDate(int64_t& mills, const QString& date, Changed changed) {
    if (date == DayText(mills))
        return;
    const int64_t start = DayStart(date);
    if (start > 0 || date.isEmpty())
        mills = start;
    emit(this->*changed)();
}

bool CAddTaskViewModel::isChanged() const {
    return !IsSameTask(m_began, m_task);
}

void CAddTaskViewModel::onClickSelectOwner() {
    QStringList receivers;
    for (const TaskReceiveUserRecord& receiver : m_task.disclosureTaskReceiveUserList)
        receivers.append(FromWide(receiver.userName));
    UserRecord person{m_task.disclosureUserName, m_task.disclosureUserRealname, {}, {}};
    if (!CSelectOwnerWnd::choose(person, receivers))
        return;
    m_task.disclosureUserName = person.userName;
    m_task.disclosureUserRealname = person.realName;
    emit disNameChanged();
}

void CAddTaskViewModel::onClickSelectReceiver() {
    std::vector<UserRecord> people = ReceiversOf(m_task);
    if (!CSelectReceiverWnd::choose(people, {FromWide(m_task.disclosureUserName)}))
        return;
    const auto before = std::exchange(m_task.disclosureTaskReceiveUserList, {});
    for (const UserRecord& person : people) {
        const auto known = std::find_if(before.begin(), before.end(),
                                        [&](const auto& receiver) { return receiver.userName == person.userName; });
        TaskReceiveUserRecord receiver;
        if (known != before.end())
            receiver = *known;
        receiver.userName = person.userName;
        receiver.userRealname = person.realName;
        m_task.disclosureTaskReceiveUserList.push_back(receiver);
    }
    emit receiveNameChanged();
}

void CAddTaskViewModel::onClickConnectDoc() {
    m_docs.connectStore();
}

void CAddTaskViewModel::onClickUploadDoc() {
    m_docs.upload();
}

void CAddTaskViewModel::onDateRefused(const QString& why) {
    ShowNotice(why);
}

void CAddTaskViewModel::onClickViewDocItem(int nIndex) {
    m_docs.view(nIndex);
}

void CAddTaskViewModel::onClickDelDocItem(int nIndex) {
    m_docs.remove(nIndex);
}

void CAddTaskViewModel::onClickDelBIMItem(CBimTreeNode* pNode) {
    if (!pNode || !pNode->canSelect())
        return;
    const DISCLOSUREPACKAGE::LinkRecord link = pNode->link();
    if (link.kind == 0)
        std::erase_if(m_task.disclosureTaskViewportList, [&](const auto& viewport) {
            return viewport.ppid == link.ppid && viewport.viewportId == link.identifier;
        });
    else
        std::erase_if(m_task.disclosureTaskNodeList,
                      [&](const auto& node) { return node.ppid == link.ppid && node.nodeId == link.identifier; });
    m_links.build(CBimTreeModel::linksOf(m_task));
    emit connectBIMDataChanged();
}

void CAddTaskViewModel::onClickSave() {
    submit(false);
}

void CAddTaskViewModel::onClickRelease() {
    submit(true);
}

void CAddTaskViewModel::submit(bool isRelease) {
    if (m_isSaved)
        return;  // a second click came before the dialog was closed
    if (m_isRelease != isRelease) {
        m_isRelease = isRelease;
        emit bReaseChanged();
    }
    do {
        setTaskName(TidyName(taskName()));
        if (!keepsRules())
            return;
        m_isSaved = store();
    } while (!m_isSaved && settleConflict());
    if (m_isSaved)
        emit closeWnd();
}

bool CAddTaskViewModel::keepsRules() {
    const BrokenRule broken = FirstBrokenRule(m_task, QDate::currentDate());
    if (broken.message.isEmpty())
        return true;
    ShowNotice(broken.message);
    emit fieldRefused(broken.field);
    return false;
}

bool CAddTaskViewModel::settleConflict() {
    IDisclosureManageMgr* manager = FindDisclosureManager();
    TaskRecord present;
    if (m_isNew || !manager || !UntoldFailure().isEmpty() || !manager->QueryTaskById(m_task.id, present) ||
        present.updateDateMills == m_task.updateDateMills)
        return false;  // not answered, or refused for another reason; the user has been told
    if (present.isPublish != 0) {
        ShowNotice(tr("%1，并且已发布，不能再编辑。").arg(ChangeOf(present, m_names)));
        return false;
    }
    const auto merged = CTaskConflictWnd::settle(m_began, m_task, present, m_names);
    if (!merged)
        return false;
    m_began = present;
    m_task = *merged;
    m_links.build(CBimTreeModel::linksOf(m_task));
    for (const Changed changed : {&CAddTaskViewModel::taskNameChanged, &CAddTaskViewModel::disNameChanged,
                                  &CAddTaskViewModel::receiveNameChanged, &CAddTaskViewModel::remarkChanged,
                                  &CAddTaskViewModel::constStartDateChanged, &CAddTaskViewModel::constEndDateChanged,
                                  &CAddTaskViewModel::planDateChanged, &CAddTaskViewModel::endDateChanged,
                                  &CAddTaskViewModel::connectBIMDataChanged})
        emit(this->*changed)();
    m_docs.renew();
    return true;
}

/// Ids stay from one click to the next: when an answer is lost, the service knows a repeated task by them.
void CAddTaskViewModel::giveIds() {
    const auto give = [](std::wstring& id) {
        if (id.empty())
            id = BASETOOLS::GenerateUUID();
    };
    const auto giveAll = [&](auto& links) {
        for (auto& link : links)
            give(link.id);
    };
    give(m_task.id);
    giveAll(m_task.disclosureTaskReceiveUserList);
    giveAll(m_task.disclosureTaskViewportList);
    giveAll(m_task.disclosureTaskNodeList);
    giveAll(m_task.disclosureTaskDocList);
}

bool CAddTaskViewModel::store() {
    IDisclosureManageMgr* manager = FindDisclosureManager();
    if (!manager)
        return false;
    giveIds();
    m_task.deptId = manager->GetCurDeptId();
    m_task.isPublish = m_isRelease ? 1 : 0;
    const auto call = [&] { return m_isNew ? manager->SaveTask(m_task) : manager->UpdateTask(m_task); };
    if (!Commanded(m_isRelease ? tr("发布") : tr("保存"), call))
        return false;
    const QString title = !m_isNew ? tr("修改交底") : m_isRelease ? tr("发布交底") : tr("新建交底");
    const QString path = !m_isNew      ? tr("技术→交底管理→修改")
                         : m_isRelease ? tr("技术→交底管理→发布交底")
                                       : tr("技术→交底管理→新建");
    manager->WriteFunctionLog(title.toStdWString(), path.toStdWString());
    return true;
}
