#include "service/http/TaskHandlers.h"

#include <algorithm>
#include <map>

#include "service/domain/Confirmations.h"
#include "service/domain/PushConfigs.h"
#include "service/domain/TaskLog.h"
#include "service/domain/Tasks.h"
#include "service/http/QueryValues.h"
#include "service/http/TaskJson.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

constexpr std::int32_t UsualPage = 15;
constexpr std::int32_t LargestPage = 200;
constexpr std::int64_t LongestName = 128;  // a longer keyword is part of none

template <class Filter>
void readPaging(const Call& call, Filter& filter) {
    const Paging paging = pagingOf(call, UsualPage, LargestPage);
    filter.offset = paging.offset;
    filter.limit = paging.limit;
    filter.keyword = textIn(call, "keyword");
    filter.now = call.now;
}

TaskFilter::Order orderOf(const std::string& key) {
    using Order = TaskFilter::Order;
    static const std::map<std::string, Order> orders{
        {"", Order::Updated},
        {"taskName", Order::Name},
        {"disclosureUserName", Order::Discloser},
        {"constructionStartDate", Order::ConstructionStart},
        {"constructionEndDate", Order::ConstructionEnd},
        {"planDisclosureDate", Order::Plan},
        {"actualDisclosureDate", Order::Actual},
        {"updateAt", Order::Updated},
    };
    const auto order = orders.find(key);
    if (order == orders.end())
        malformed("参数orderKey无效");
    return order->second;
}

TaskFilter taskFilterOf(const Call& call) {
    TaskFilter filter;
    readPaging(call, filter);
    filter.deptId = call.deptId;
    filter.catalogId = textIn(call, "disclosureCatalogId");
    filter.status = std::max(0, numberIn<std::int32_t>(call, "status", 0));
    if (filter.status > static_cast<std::int32_t>(TaskStatus::Expired))
        malformed("参数status无效");
    const auto date = std::max(0, numberIn<std::int32_t>(call, "dateType", 0));
    if (date > static_cast<std::int32_t>(TaskFilter::Date::ConstructionEnd))
        malformed("参数dateType无效");
    const auto from = numberIn<std::int64_t>(call, "startDateMills", -1);
    const auto to = numberIn<std::int64_t>(call, "endDateMills", -1);
    if (date > 0 && (from >= 0 || to >= 0)) {
        filter.date = static_cast<TaskFilter::Date>(date);
        filter.from = std::max<std::int64_t>(1, from);
        filter.to = to >= 0 ? to : Never;
    }
    const std::string& key = textIn(call, "orderKey");
    filter.order = orderOf(key);
    const std::string& type = textIn(call, "orderType");
    if (!type.empty() && type != "ASC" && type != "DESC")
        malformed("参数orderType无效");
    filter.descending = type.empty() ? key.empty() : type == "DESC";
    return filter;
}

template <class List, class Write>
Response paged(const List& list, std::int64_t total, Write&& writeElement) {
    return success([&](JsonWriter& writer) {
        writer.StartObject();
        writer.Key("result");
        writer.StartArray();
        for (const auto& element : list)
            writeElement(writer, element);
        writer.EndArray();
        writer.Key("totalCount");
        writer.Int64(total);
        writer.EndObject();
    });
}

Tasks rulesFor(const Call& call) {
    return {*call.store, call.username, call.now};
}

Confirmations peopleOf(const Call& call) {
    return {*call.store, call.username, call.now};
}

LogFilter logFilterOf(const Call& call) {
    LogFilter filter;
    filter.deptId = call.tasks.front().deptId;
    filter.taskId = call.tasks.front().id;
    filter.kind = numberIn<std::int32_t>(call, "kind", 0);
    if (filter.kind < 0)
        malformed("参数kind无效");
    filter.username = textIn(call, "person");
    const auto page = numberIn<std::int32_t>(call, "page", 1);
    if (page < 1)
        malformed("参数page必须大于等于1");
    filter.limit = TaskLog::PageSize;
    filter.offset = (page - 1) * TaskLog::PageSize;
    return filter;
}

}  // namespace

Response pageTasks(Call& call) {
    const TaskFilter filter = taskFilterOf(call);
    if (!filter.catalogId.empty() && !call.store->catalog(call.deptId, filter.catalogId))
        throw Refusal(reasons::NoCatalog);
    TaskPage page;
    if (static_cast<std::int64_t>(lengthOf(filter.keyword)) <= LongestName)
        page = call.store->pageTasks(filter);
    return paged(page.tasks, page.total,
                 [&](JsonWriter& writer, const Task& task) { writeTask(writer, task, call.now); });
}

Response pageOwnTasks(Call& call) {
    OwnTaskFilter filter;
    readPaging(call, filter);
    filter.username = call.username;
    filter.deptId = textIn(call, "deptId");
    if (!filter.deptId.empty() && !call.store->rightsOf(call.username, filter.deptId))
        throw Refusal(reasons::NoDepartment);
    const auto role = std::max(0, numberIn<std::int32_t>(call, "type", 0));
    if (role > static_cast<std::int32_t>(OwnTaskFilter::Role::Receiver))
        malformed("参数type无效");
    filter.role = static_cast<OwnTaskFilter::Role>(role);
    filter.discloser = textIn(call, "disclosureUsername");
    const auto from = numberIn<std::int64_t>(call, "startDateMills", -1);
    const auto to = numberIn<std::int64_t>(call, "endDateMills", -1);
    if (from >= 0 || to >= 0) {
        filter.from = std::max<std::int64_t>(1, from);
        filter.to = to >= 0 ? to : Never;
    }
    const OwnTaskPage page = call.store->pageOwnTasks(filter);
    return paged(page.tasks, page.total, writeOwnTask);
}

Response taskById(Call& call) {
    const TaskKey& key = call.tasks.front();
    const auto task = call.store->task(key.deptId, key.id);
    if (!task)
        throw Refusal(reasons::NoTask);
    return success([&](JsonWriter& writer) { writeTask(writer, *task, call.now); });
}

Response saveTask(Call& call) {
    rulesFor(call).save(call.deptId, textOf(call.body, "id"), taskContentOf(call.body));
    return done();
}

Response updateTask(Call& call) {
    std::optional<std::int64_t> version;
    if (call.taskVersion)
        version = parsed<std::int64_t>(*call.taskVersion, "X-Task-Version");
    rulesFor(call).update(call.tasks.front(), taskChangeOf(call.body), version, call.rights);
    return done();
}

Response deleteTasks(Call& call) {
    rulesFor(call).remove(call.tasks);
    return done();
}

Response confirmByReceiver(Call& call) {
    peopleOf(call).confirmAsReceiver(call.tasks.front());
    return done();
}

Response confirmByDiscloser(Call& call) {
    peopleOf(call).confirmAsDiscloser(call.tasks.front(), textOf(call.body, "confirmRemark"), attachmentsOf(call.body));
    return done();
}

Response urge(Call& call) {
    peopleOf(call).urge(call.tasks.front());
    return done();
}

Response taskLog(Call& call) {
    const auto entries = call.store->logOf(logFilterOf(call));
    return success([&](JsonWriter& writer) {
        writer.StartArray();
        for (const LogEntry& entry : entries)
            writeLogEntry(writer, entry);
        writer.EndArray();
    });
}

Response saveLog(Call& call) {
    const std::string deptId = textOf(call.body, "deptId");
    if (!deptId.empty() && deptId != call.tasks.front().deptId)
        throw Refusal(reasons::NoTask);
    TaskLog(*call.store, call.username, call.now).add(call.tasks.front(), logEntryOf(call.body));
    return done();
}

Response queryConditions(Call& call) {
    const auto departments = call.store->departmentsOf(call.username);
    const auto people = call.store->colleaguesOf(call.username);
    return success([&](JsonWriter& writer) {
        writer.StartObject();
        writer.Key("dpetList");
        writer.StartArray();
        for (const Department& department : departments) {
            writer.StartObject();
            write(writer, "deptId", department.id);
            write(writer, "deptName", department.name);
            writer.EndObject();
        }
        writer.EndArray();
        writer.Key("userList");
        writer.StartArray();
        for (const Person& person : people) {
            writer.StartObject();
            write(writer, "username", person.username);
            write(writer, "realname", person.realname);
            write(writer, "userHeadUuid", person.headUuid);
            writer.EndObject();
        }
        writer.EndArray();
        writer.EndObject();
    });
}

Response queryPushConfig(Call& call) {
    PushConfig none;
    none.deptId = call.deptId;
    const PushConfig config = call.store->pushConfig(call.deptId).value_or(none);
    return success([&](JsonWriter& writer) { writePushConfig(writer, config); });
}

Response savePushConfig(Call& call) {
    savePushConfig(*call.store, pushConfigOf(call.body));
    return done();
}

Response updatePushConfig(Call& call) {
    updatePushConfig(*call.store, call.pushConfig.value(), pushConfigOf(call.body));
    return done();
}

}  // namespace disclosure
