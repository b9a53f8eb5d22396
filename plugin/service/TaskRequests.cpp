#include "plugin/service/TaskRequests.h"

#include <algorithm>
#include <tuple>

#include "plugin/service/ServiceCall.h"
#include "sdk/basetools/Uuid.h"

namespace DISCLOSUREPACKAGE {

using namespace io::swagger::client::model;
using utility::string_t;

namespace {

string_t IdOrNew(const std::wstring& id) {
    return ToService(id.empty() ? BASETOOLS::GenerateUUID() : id);
}

template <class Request, class Record>
std::shared_ptr<Request> OfTask(const Record& record, const string_t& taskId) {
    auto request = std::make_shared<Request>();
    request->setId(IdOrNew(record.id));
    request->setDisclosureTaskId(taskId);
    return request;
}

auto ToRequest(const TaskReceiveUserRecord& user, const string_t& taskId) {
    auto request = OfTask<DisclosureTaskReceiveUserSaveRequest>(user, taskId);
    request->setUserName(ToService(user.userName));
    return request;
}

auto ToRequest(const TaskViewportRecord& viewport, const string_t& taskId) {
    auto request = OfTask<DisclosureTaskViewportSaveRequest>(viewport, taskId);
    request->setPpid(viewport.ppid);
    request->setViewportId(ToService(viewport.viewportId));
    return request;
}

auto ToRequest(const TaskNodeRecord& node, const string_t& taskId) {
    auto request = OfTask<DisclosureTaskNodeSaveRequest>(node, taskId);
    request->setPpid(node.ppid);
    request->setNodeId(ToService(node.nodeId));
    return request;
}

auto ToRequest(const TaskDocRecord& doc, const string_t& taskId) {
    auto request = OfTask<DisclosureTaskDocSaveRequest>(doc, taskId);
    request->setPpid(doc.ppid);
    request->setName(ToService(doc.name));
    request->setUuid(ToService(doc.uuid));
    request->setMd5(ToService(doc.md5));
    request->setSize(doc.size);
    request->setExtension(ToService(doc.extension));
    request->setSourceType(doc.sourceType);
    request->setRefDocId(ToService(doc.refDocId));
    return request;
}

// What makes two elements the same link, whatever their ids.
auto Key(const TaskReceiveUserRecord& user) {
    return std::tie(user.userName);
}
auto Key(const TaskViewportRecord& viewport) {
    return std::tie(viewport.ppid, viewport.viewportId);
}
auto Key(const TaskNodeRecord& node) {
    return std::tie(node.ppid, node.nodeId);
}
auto Key(const TaskDocRecord& doc) {
    return std::tie(doc.id);
}

// What the service has to be told of a link that it knows.
template <class Record>
auto Content(const Record&) {
    return std::tie();
}
auto Content(const TaskDocRecord& doc) {
    return std::tie(doc.uuid, doc.md5);
}

/// The elements of `list` that none of `others` is the same as.
template <class Record, class IsSame>
std::vector<const Record*> Without(const std::vector<Record>& list, const std::vector<Record>& others, IsSame isSame) {
    std::vector<const Record*> rest;
    for (const Record& record : list)
        if (std::none_of(others.begin(), others.end(), [&](const Record& other) { return isSame(other, record); }))
            rest.push_back(&record);
    return rest;
}

/// Those with another content too, which the service takes in place of the old one.
template <class Record>
auto Added(const std::vector<Record>& list, const std::vector<Record>& loaded, const string_t& taskId) {
    std::vector<decltype(ToRequest(list.front(), taskId))> requests;
    for (const Record* record : Without(
             list, loaded, [](const Record&a, const Record&b) { return Key(a) == Key(b) && Content(a) == Content(b); }))
        requests.push_back(ToRequest(*record, taskId));
    return requests;
}

template <class Record>
std::vector<string_t> Removed(const std::vector<Record>& list, const std::vector<Record>& loaded) {
    std::vector<string_t> ids;
    for (const Record* record : Without(loaded, list, [](const Record&a, const Record&b) { return Key(a) == Key(b); }))
        ids.push_back(ToService(record->id));
    return ids;
}

template <class Request>
void SetContent(Request& request, const TaskRecord& task) {
    request.setDisclosureCatalogId(ToService(task.disclosureCatalogId));
    request.setName(ToService(task.name));
    request.setDisclosureUserName(ToService(task.disclosureUserName));
    request.setConstructionStartDateMills(task.constructionStartDateMills);
    request.setConstructionEndDateMills(task.constructionEndDateMills);
    request.setPlanDisclosureDateMills(task.planDisclosureDateMills);
    request.setActualDisclosureDateMills(task.actualDisclosureDateMills);
    request.setExpiryDateMills(task.expiryDateMills);
    request.setIsPublish(task.isPublish != 0 ? 1 : 0);
    request.setRemark(ToService(task.remark));
}

/// A new task has nothing to clear, so the dates that are not set stay out.
void UnsetMissingDates(DisclosureTaskSaveRequest& request) {
    if (request.getConstructionStartDateMills() <= 0)
        request.unsetConstructionStartDateMills();
    if (request.getConstructionEndDateMills() <= 0)
        request.unsetConstructionEndDateMills();
    if (request.getPlanDisclosureDateMills() <= 0)
        request.unsetPlanDisclosureDateMills();
    if (request.getActualDisclosureDateMills() <= 0)
        request.unsetActualDisclosureDateMills();
    if (request.getExpiryDateMills() <= 0)
        request.unsetExpiryDateMills();
}

template <class Request>
std::shared_ptr<Request> ToPushRequest(const PushConfig& config) {
    auto request = std::make_shared<Request>();
    request->setId(ToService(config.id));
    request->setIsNotifyAdvance(config.isNotifyAdvance ? 1 : 0);
    request->setDaysNotifyAdvance(config.daysNotifyAdvance);
    request->setAdvanceNotifyFrequency(config.advanceNotifyFrequency);
    request->setIsNotifyOverdue(config.isNotifyOverdue ? 1 : 0);
    request->setOverdueNotifyFrequency(config.overdueNotifyFrequency);
    return request;
}

}  // namespace

std::shared_ptr<DisclosureTaskSaveRequest> ToSaveRequest(const TaskRecord& task) {
    auto request = std::make_shared<DisclosureTaskSaveRequest>();
    const string_t id = IdOrNew(task.id);
    request->setId(id);
    request->setDeptId(ToService(task.deptId));
    SetContent(*request, task);
    UnsetMissingDates(*request);
    request->setDisclosureTaskReceiveUserList(Added(task.disclosureTaskReceiveUserList, {}, id));
    request->setDisclosureTaskViewportList(Added(task.disclosureTaskViewportList, {}, id));
    request->setDisclosureTaskNodeList(Added(task.disclosureTaskNodeList, {}, id));
    request->setDisclosureTaskDocList(Added(task.disclosureTaskDocList, {}, id));
    return request;
}

std::shared_ptr<DisclosureTaskUpdateRequest> ToUpdateRequest(const TaskRecord& task, const TaskRecord& loaded) {
    auto request = std::make_shared<DisclosureTaskUpdateRequest>();
    const string_t id = ToService(task.id);
    request->setId(id);
    SetContent(*request, task);
    const auto& users = task.disclosureTaskReceiveUserList;
    request->setSaveDisclosureTaskReceiveUserList(Added(users, loaded.disclosureTaskReceiveUserList, id));
    request->setDelDisclosureTaskReceiveUserIds(Removed(users, loaded.disclosureTaskReceiveUserList));
    const auto& viewports = task.disclosureTaskViewportList;
    request->setSaveDisclosureTaskViewportList(Added(viewports, loaded.disclosureTaskViewportList, id));
    request->setDelDisclosureTaskViewportIds(Removed(viewports, loaded.disclosureTaskViewportList));
    const auto& nodes = task.disclosureTaskNodeList;
    request->setSaveDisclosureTaskNodeList(Added(nodes, loaded.disclosureTaskNodeList, id));
    request->setDelDisclosureTaskNodeIds(Removed(nodes, loaded.disclosureTaskNodeList));
    const auto& docs = task.disclosureTaskDocList;
    request->setSaveDisclosureTaskDocList(Added(docs, loaded.disclosureTaskDocList, id));
    request->setDelDisclosureTaskDocIds(Removed(docs, loaded.disclosureTaskDocList));
    return request;
}

std::shared_ptr<DisclosureTaskPushConfigSaveRequest> ToSaveRequest(const PushConfig& config) {
    auto request = ToPushRequest<DisclosureTaskPushConfigSaveRequest>(config);
    request->setDeptId(ToService(config.deptId));
    return request;
}

std::shared_ptr<DisclosureTaskPushConfigUpdateRequest> ToUpdateRequest(const PushConfig& config) {
    return ToPushRequest<DisclosureTaskPushConfigUpdateRequest>(config);
}

std::shared_ptr<AttachementSaveRequest> ToSaveRequest(const AttachementRecord& file) {
    auto request = std::make_shared<AttachementSaveRequest>();
    request->setId(IdOrNew(file.id));
    request->setName(ToService(file.name));
    request->setUuid(ToService(file.uuid));
    request->setMd5(ToService(file.md5));
    request->setSize(file.size);
    request->setExtension(ToService(file.extension));
    request->setThumbnailUuid(ToService(file.thumbnailUuid));
    request->setThumbnailMd5(ToService(file.thumbnailMd5));
    request->setThumbnailSize(file.thumbnailSize);
    return request;
}

}  // namespace DISCLOSUREPACKAGE
