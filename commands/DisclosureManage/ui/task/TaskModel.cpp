#include "commands/DisclosureManage/ui/task/TaskModel.h"

#include "commands/DisclosureManage/ui/task/Days.h"
#include "commands/DisclosureManage/ui/task/PeopleNames.h"

namespace {

QString text(const std::wstring& wide) {
    return QString::fromStdWString(wide);
}

QDateTime date(int64_t mills) {
    return mills > 0 ? QDateTime::fromMSecsSinceEpoch(mills) : QDateTime();
}

template <class List, class Name>
void appendNames(QStringList& names, const List& list, Name name) {
    for (const auto& element : list)
        names.append(text(name(element)));
}

QString joined(const QStringList& names) {
    return names.join(QStringLiteral("、"));
}

}  // namespace

TaskModel::TaskModel(const DISCLOSUREPACKAGE::TaskRecord& record, const PeopleNames& names, QObject* parent)
    : QObject(parent) {
    assign(record, names);
}

QString TaskModel::shown(const QDateTime& date) {
    return date.isValid() ? DayText(date.toMSecsSinceEpoch()) : QString();
}

QString TaskModel::statusText(int status) {
    const QString texts[] = {tr("待交底"), tr("已交底"), tr("交底中"), tr("已过期")};
    return status >= 1 && status <= 4 ? texts[status - 1] : QString();
}

void TaskModel::assign(const DISCLOSUREPACKAGE::TaskRecord& record, const PeopleNames& names) {
    QStringList models;
    appendNames(models, record.disclosureTaskViewportList,
                [](const auto& link) { return link.viewportName.empty() ? link.viewportId : link.viewportName; });
    appendNames(models, record.disclosureTaskNodeList,
                [](const auto& link) { return link.nodeName.empty() ? link.nodeId : link.nodeName; });
    QStringList files;
    appendNames(files, record.disclosureTaskDocList, [](const auto& link) { return link.name; });

    set(m_id, text(record.id), &TaskModel::idChanged);
    set(m_name, text(record.name), &TaskModel::nameChanged);
    set(m_catalogid, text(record.disclosureCatalogId), &TaskModel::catalogidChanged);
    set(m_owner, names.shown(record.disclosureUserName, record.disclosureUserRealname), &TaskModel::ownerChanged);
    set(m_ownermodel, names.choices(m_owner), &TaskModel::ownerModelChanged);
    set(m_receiver, ShownReceivers(record, names), &TaskModel::receiverChanged);
    set(m_updateperson, ShownUpdater(record, names), &TaskModel::updatepersonChanged);
    set(m_relBIMs, joined(models), &TaskModel::relBIMsChanged);
    set(m_relFiles, joined(files), &TaskModel::relFilesChanged);
    set(m_status, statusText(record.status), &TaskModel::statusChanged);
    set(m_remark, text(record.remark), &TaskModel::remarkChanged);
    set(m_startdate, date(record.constructionStartDateMills), &TaskModel::startdateChanged);
    set(m_enddate, date(record.constructionEndDateMills), &TaskModel::enddateChanged);
    set(m_plandate, date(record.planDisclosureDateMills), &TaskModel::plandateChanged);
    set(m_realdate, date(record.actualDisclosureDateMills), &TaskModel::realdateChanged);
    set(m_updatedate, date(record.updateDateMills), &TaskModel::updatedateChanged);
    set(m_deaddate, date(record.expiryDateMills), &TaskModel::deaddateChanged);
    set(m_released, record.isPublish != 0, &TaskModel::releasedChanged);
}
