#include "service/http/Scopes.h"

#include <set>

#include "service/domain/TaskChecks.h"

namespace disclosure {

namespace http = boost::beast::http;

namespace {

/// The same rights are over tasks and documents; what is said names the one asked for.
const Reason& lackOf(const Route& route) {
    const bool ofDocuments = route.path.starts_with("/rs/platform/documents");
    switch (*route.right) {
        case Right::EditCatalogs:
            return reasons::NoRightCatalogs;
        case Right::EditTasks:
            return ofDocuments ? reasons::NoRightDocuments : reasons::NoRightTasks;
        case Right::DeleteTasks:
            break;
    }
    return ofDocuments ? reasons::NoRightDeleteDocuments : reasons::NoRightDelete;
}

/// Finds one task that the person may see.
TaskKey taskOf(const Call& call, const std::string& id) {
    const auto found = call.store->tasksOfPerson(call.username, id);
    if (found.size() != 1)
        throw Refusal(found.empty() ? reasons::NoTask : reasons::TaskIdAmbiguous);
    return found.front();
}

/// Finds the tasks that the call is about, each once, and what the person may do with all of them.
void enterTasks(Call& call, const std::set<std::string>& ids) {
    bool first = true;
    for (const std::string& id : ids) {
        call.tasks.push_back(taskOf(call, id));
        // Who takes part in a task of a department not theirs has no rights there.
        Rights rights = call.store->rightsOf(call.username, call.tasks.back().deptId).value_or(Rights());
        if (!first)
            std::erase_if(rights, [&](Right right) { return !call.rights.contains(right); });
        call.rights = std::move(rights);
        first = false;
    }
}

std::set<std::string> idsOf(const Route& route, const Call& call) {
    switch (route.scope) {
        case Scope::PathTask:
            return {std::string(route.parameterIn(call.target.path))};
        case Scope::BodyTaskId:
            return {textOf(call.body, "taskId")};
        case Scope::BodyDisclosureTaskId:
            return {textOf(call.body, "disclosureTaskId")};
        case Scope::BodyIds: {
            checkChosen(call.body["ids"].Size());
            std::set<std::string> ids;
            for (const auto& id : call.body["ids"].GetArray())
                ids.emplace(id.GetString(), id.GetStringLength());
            return ids;
        }
        default:
            return {textOf(call.body, "id")};
    }
}

}  // namespace

void enterScope(const Route& route, Call& call) {
    switch (route.scope) {
        case Scope::Public:
        case Scope::Session:
            return;
        case Scope::QueryDept: {
            const auto value = call.target.query.find("deptId");
            if (value == call.target.query.end())
                throw HttpError(http::status::bad_request, "缺少参数deptId");
            call.deptId = value->second;
            break;
        }
        case Scope::BodyDept:
            call.deptId = textOf(call.body, "deptId");
            break;
        case Scope::BodyCatalog: {
            const auto found = call.store->catalogsOfMember(call.username, textOf(call.body, "id"));
            if (found.size() != 1)
                throw Refusal(found.empty() ? reasons::NoCatalog : reasons::IdAmbiguous);
            call.catalog = found.front();
            call.deptId = call.catalog->deptId;
            break;
        }
        case Scope::BodyPushConfig: {
            const auto found = call.store->pushConfigsOfMember(call.username, textOf(call.body, "id"));
            if (found.size() != 1)
                throw Refusal(reasons::NoPushConfig);
            call.pushConfig = found.front();
            call.deptId = call.pushConfig->deptId;
            break;
        }
        case Scope::PathTask:
        case Scope::BodyId:
        case Scope::BodyIds:
        case Scope::BodyTaskId:
        case Scope::BodyDisclosureTaskId:
            enterTasks(call, idsOf(route, call));
            if (route.right && !call.rights.contains(*route.right))
                throw Refusal(lackOf(route));
            return;
    }
    auto rights = call.store->rightsOf(call.username, call.deptId);
    if (!rights)
        throw Refusal(reasons::NoDepartment);
    call.rights = std::move(*rights);
    if (route.right && !call.rights.contains(*route.right))
        throw Refusal(lackOf(route));
    call.mayWithTasks = route.overTasks && call.rights.contains(*route.overTasks);
}

}  // namespace disclosure
