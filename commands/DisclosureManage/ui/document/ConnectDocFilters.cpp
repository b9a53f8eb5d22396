#include <QDateTime>
#include <QHash>

#include "commands/DisclosureManage/ui/Notice.h"
#include "commands/DisclosureManage/ui/document/ConnectDocModel.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/basetools/TimeValue.h"
#include "sdk/packages/documents/IKpxDocConfigMgr.h"
#include "sdk/packages/documents/IKpxDocTagMgr.h"

/// What the picker filters its documents by, apart from its folders and pages.

using BASECORE::FRAME::LookupManager;
using BASETOOLS::CKpxTimeValue;
using namespace BASECORE::NAMES;
using namespace DOCUMENTPACKAGE;

namespace {

const QString kAllTags = QStringLiteral("all");

QString allOfThem() {
    return CConnectDocModel::tr("全部");
}

/// 0 for what is no day.
int64_t dayStart(const QString& day) {
    return CKpxTimeValue::FromDayText(day.toStdWString());
}

}  // namespace

QString CConnectDocModel::startsAfterEnd() {
    return tr("开始时间不能大于结束时间！");
}

void CConnectDocModel::prepareFilters() {
    m_startTime = m_endTime = FromWide(CKpxTimeValue::ToDayText(QDateTime::currentMSecsSinceEpoch()));
    m_users.fill({{allOfThem(), {}}});
}

void CConnectDocModel::readFilters() {
    if (readTypes() && readTags() && readUpdaters())
        m_filterReading.succeed();
    else  // the others would have to be waited for in vain as well
        m_filterReading.fail(failureReason(), false);
}

bool CConnectDocModel::readTypes() {
    auto* manager = m_areTypesRead ? nullptr : LookupManager<IKpxDocConfigMgr>(kDocumentConfig);
    if (!manager)
        return true;
    std::vector<std::wstring> names;
    m_areTypesRead = manager->GetFileTypes(names);
    if (!m_areTypesRead)
        return false;
    QVector<DocumentFilter::Choice> choices;
    for (const std::wstring& name : names) {
        const QString type = FromWide(name);
        choices.append({type, type == allOfThem() ? QString() : type});
    }
    m_types.fill(choices);
    emit filetypeComboChanged();
    emit currentFiletypeSelectionChanged();
    return true;
}

bool CConnectDocModel::readTags() {
    auto* manager = m_areTagsRead ? nullptr : LookupManager<IKpxDocTagMgr>(kDocumentTags);
    if (!manager)
        return true;
    std::vector<DocTagRecord> tags;
    m_areTagsRead = manager->GetTags(tags);
    if (!m_areTagsRead)
        return false;
    QVector<DocumentFilter::Choice> choices{{allOfThem(), kAllTags}};
    for (const DocTagRecord& tag : tags)
        choices.append({FromWide(tag.name), FromWide(tag.id)});
    choices.append({tr("空"), QString::fromWCharArray(kNoTag)});
    m_tags.fill(choices);
    emit tagComboChanged();
    emit currentTagSelectionChanged();
    return true;
}

bool CConnectDocModel::readUpdaters() {
    auto* manager = m_folderId == m_updatersFolder ? nullptr : fileList();
    if (!manager)
        return true;
    std::vector<DocUpdaterRecord> updaters;
    if (!manager->GetUpdaters(updaters, m_folderId.toStdWString()))
        return false;
    m_updatersFolder = m_folderId;
    QHash<QString, int> namesakes;
    for (const DocUpdaterRecord& updater : updaters)
        ++namesakes[FromWide(updater.name)];
    QVector<DocumentFilter::Choice> choices{{allOfThem(), {}}};
    for (const DocUpdaterRecord& updater : updaters) {
        const QString login = FromWide(updater.userName);
        const QString name = FromWide(updater.name);
        choices.append({namesakes[name] > 1 ? name + "(" + login + ")" : name, login});
    }
    m_users.fill(choices);
    emit userComboChanged();
    emit currentUserSelectionChanged();
    return true;
}

void CConnectDocModel::choose(DocumentFilter& filter, FileTypeModel* choice, Changed changed) {
    if (!filter.choose(choice))
        return;
    emit(this->*changed)();
    search();
}

void CConnectDocModel::setCurrentUserSelection(FileTypeModel* user) {
    choose(m_users, user, &CConnectDocModel::currentUserSelectionChanged);
}

void CConnectDocModel::setCurrentFiletypeSelection(FileTypeModel* type) {
    choose(m_types, type, &CConnectDocModel::currentFiletypeSelectionChanged);
}

void CConnectDocModel::setCurrentTagSelection(FileTypeModel* tag) {
    choose(m_tags, tag, &CConnectDocModel::currentTagSelectionChanged);
}

void CConnectDocModel::setLimit(bool unlimited) {
    if (unlimited == m_limit)
        return;
    m_limit = unlimited;
    emit limitChanged();
    search();
}

void CConnectDocModel::setStartTime(const QString& day) {
    setDate(m_startTime, day, &CConnectDocModel::startTimeChanged);
}

void CConnectDocModel::setEndTime(const QString& day) {
    setDate(m_endTime, day, &CConnectDocModel::endTimeChanged);
}

void CConnectDocModel::setDate(QString& date, const QString& day, Changed changed) {
    if (day == date || dayStart(day) == 0)
        return;
    date = day;
    emit(this->*changed)();
    if (!isInverted())
        return search();
    if (!m_limit)
        m_gather.stop();
    warn(startsAfterEnd());
}

void CConnectDocModel::onDateRefused(const QString& why) {
    warn(why);
}

void CConnectDocModel::warn(const QString& text) {
    m_warningText = text;
    m_warning.start(0);
}

void CConnectDocModel::clearFilters() {
    m_searchDocKey.clear();
    emit searchDocKeyChanged();
    if (m_users.reset())
        emit currentUserSelectionChanged();
    if (m_types.reset())
        emit currentFiletypeSelectionChanged();
    if (m_tags.reset())
        emit currentTagSelectionChanged();
    setLimit(true);
    search();
}

DocFileQuery CConnectDocModel::query() const {
    DocFileQuery query;
    query.folderId = m_folderId.toStdWString();
    query.fileType = m_types.identifier().toStdWString();
    query.updateBy = m_users.identifier().toStdWString();
    query.tagId = m_tags.identifier() == kAllTags ? std::wstring() : m_tags.identifier().toStdWString();
    query.nameKey = m_searchDocKey.toStdWString();
    if (m_limit) {
        double start = 0;
        double end = 0;
        CKpxTimeValue::GetTotalTimeDefine(start, end);
        query.startSeconds = CKpxTimeValue::OleDateToSeconds(start);
        query.endSeconds = CKpxTimeValue::OleDateToSeconds(end);
    } else {
        query.startSeconds = dayStart(m_startTime) / 1000;
        query.endSeconds = CKpxTimeValue::EndOfDay(dayStart(m_endTime)) / 1000;
    }
    query.pageSize = m_itemsPerPage;
    query.currentPage = m_pageNumber;
    return query;
}

bool CConnectDocModel::isFiltered() const {
    const DocFileQuery asked = query();
    return !m_limit || !(asked.fileType + asked.updateBy + asked.tagId + asked.nameKey).empty();
}
