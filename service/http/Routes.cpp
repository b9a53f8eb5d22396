#include <algorithm>

#include "service/http/CatalogHandlers.h"
#include "service/http/DocumentHandlers.h"
#include "service/http/FileHandlers.h"
#include "service/http/MessageHandlers.h"
#include "service/http/PlatformHandlers.h"
#include "service/http/Route.h"
#include "service/http/SessionHandlers.h"
#include "service/http/StatusHandlers.h"
#include "service/http/TaskHandlers.h"

namespace disclosure {

namespace {

using boost::beast::http::verb;

constexpr std::nullopt_t None = std::nullopt;

// clang-format off
constexpr Route Table[] = {
    {verb::get, "/healthz", Work::None, Scope::Public, None, None, alive},
    {verb::get, "/readyz", Work::Own, Scope::Public, None, None, ready},
    {verb::get, "/openapi.yaml", Work::None, Scope::Public, None, None, description},

    {verb::post, "/rs/auth/login", Work::Login, Scope::Public, None, None, login},
    {verb::post, "/rs/auth/logout", Work::Own, Scope::Session, None, None, logout},

    {verb::get, "/rs/platform/current_user", Work::Read, Scope::Session, None, None, currentUser},
    {verb::get, "/rs/platform/projects", Work::Read, Scope::Session, None, None, projects},
    {verb::get, "/rs/platform/rights", Work::Read, Scope::QueryDept, None, None, rights},
    {verb::get, "/rs/platform/departments", Work::Read, Scope::QueryDept, None, None, departments},
    {verb::get, "/rs/platform/users", Work::Read, Scope::QueryDept, None, None, users},
    {verb::post, "/rs/platform/files", Work::Upload, Scope::QueryDept, Right::EditTasks, None, beginUpload},
    {verb::get, "/rs/platform/files/{uuid}", Work::Download, Scope::Session, None, None, sendFile},
    {verb::post, "/rs/platform/files/delete", Work::Write, Scope::BodyDept, None, None, takeBackFile},
    {verb::get, "/rs/platform/documents", Work::Read, Scope::QueryDept, None, None, pageDocuments},
    {verb::get, "/rs/platform/documents/folders", Work::Read, Scope::QueryDept, None, None, documentFolders},
    {verb::get, "/rs/platform/documents/updaters", Work::Read, Scope::QueryDept, None, None, documentUpdaters},
    {verb::get, "/rs/platform/documents/tags", Work::Read, Scope::QueryDept, None, None, documentTags},
    {verb::get, "/rs/platform/documents/types", Work::Read, Scope::Session, None, None, listDocumentTypes},
    {verb::get, "/rs/platform/documents/find", Work::Read, Scope::QueryDept, None, None, findDocuments},
    {verb::get, "/rs/platform/documents/contents", Work::Read, Scope::QueryDept, None, None, documentContents},
    {verb::post, "/rs/platform/documents/folders/save", Work::Write, Scope::BodyDept, Right::EditTasks, None, saveFolder},
    {verb::post, "/rs/platform/documents/folders/update", Work::Write, Scope::BodyDept, Right::EditTasks, None, updateFolder},
    {verb::post, "/rs/platform/documents/folders/delete", Work::Write, Scope::BodyDept, Right::DeleteTasks, None, deleteFolder},
    {verb::post, "/rs/platform/documents/save", Work::Write, Scope::BodyDept, Right::EditTasks, None, saveDocument},
    {verb::post, "/rs/platform/documents/update", Work::Write, Scope::BodyDept, None, None, updateDocuments},  // Documents::update: by what it changes
    {verb::post, "/rs/platform/documents/delete", Work::Write, Scope::BodyDept, Right::DeleteTasks, None, deleteDocuments},
    {verb::post, "/rs/platform/documents/restore", Work::Write, Scope::BodyDept, Right::DeleteTasks, None, restoreDocuments},
    {verb::get, "/rs/platform/messages", Work::Read, Scope::Session, None, None, pageMessages},
    {verb::get, "/rs/platform/messages/unread", Work::Read, Scope::Session, None, None, unreadMessages},
    {verb::post, "/rs/platform/messages/read", Work::Write, Scope::Session, None, None, markMessagesRead},

    {verb::get, "/rs/disclosure/catalog/list_disclosure_catalog_by_deptid", Work::Read, Scope::QueryDept, None, None, listCatalogs},
    {verb::post, "/rs/disclosure/catalog/save", Work::Write, Scope::BodyDept, Right::EditCatalogs, None, saveCatalog},
    {verb::post, "/rs/disclosure/catalog/update", Work::Write, Scope::BodyCatalog, Right::EditCatalogs, None, renameCatalog},
    {verb::post, "/rs/disclosure/catalog/move", Work::Write, Scope::BodyCatalog, Right::EditCatalogs, None, moveCatalog},
    {verb::delete_, "/rs/disclosure/catalog/delete", Work::Write, Scope::BodyCatalog, Right::EditCatalogs, Right::DeleteTasks, deleteCatalog},

    {verb::get, "/rs/disclosure/task/page_disclosure_task_by_deptid_and_catalogid", Work::Read, Scope::QueryDept, None, None, pageTasks},
    {verb::get, "/rs/disclosure/task/page_disclosure_task_4_status_by_currentuser", Work::Read, Scope::Session, None, None, pageOwnTasks},
    {verb::get, "/rs/disclosure/task/query_disclosure_task_by_id/{id}", Work::Read, Scope::PathTask, None, None, taskById},
    {verb::get, "/rs/disclosure/task/query_condition_4_disclosure_task", Work::Read, Scope::Session, None, None, queryConditions},
    {verb::post, "/rs/disclosure/task/save", Work::Write, Scope::BodyDept, Right::EditTasks, None, saveTask},
    {verb::post, "/rs/disclosure/task/update", Work::Write, Scope::BodyId, None, None, updateTask},  // Tasks::update: by what it changes
    {verb::delete_, "/rs/disclosure/task/batchdelete", Work::Write, Scope::BodyIds, Right::DeleteTasks, None, deleteTasks},
    {verb::post, "/rs/disclosure/task/confirm_by_receive_user", Work::Write, Scope::BodyTaskId, None, None, confirmByReceiver},
    {verb::post, "/rs/disclosure/task/confirm_by_disclosure_user", Work::Write, Scope::BodyTaskId, None, None, confirmByDiscloser},
    {verb::post, "/rs/disclosure/task/urge_by_disclosure_user", Work::Write, Scope::BodyTaskId, None, None, urge},
    {verb::get, "/rs/disclosure/task/list_operation_log_by_taskid/{taskId}", Work::Read, Scope::PathTask, None, None, taskLog},
    {verb::post, "/rs/disclosure/task/save_operation_log", Work::Write, Scope::BodyDisclosureTaskId, None, None, saveLog},
    {verb::get, "/rs/disclosure/task/query_push_config", Work::Read, Scope::QueryDept, None, None, queryPushConfig},
    {verb::post, "/rs/disclosure/task/save_push_config", Work::Write, Scope::BodyDept, Right::EditTasks, None, savePushConfig},
    {verb::post, "/rs/disclosure/task/update_push_config", Work::Write, Scope::BodyPushConfig, Right::EditTasks, None, updatePushConfig},
};
// clang-format on

constexpr bool scopesHaveTransactions() {
    return std::all_of(std::begin(Table), std::end(Table), [](const Route& route) {
        return route.scope == Scope::Public || route.scope == Scope::Session || route.work == Work::Read ||
               route.work == Work::Write || route.work == Work::Upload;
    });
}
static_assert(scopesHaveTransactions(), "a department's scope is entered within the transaction of its handler");

}  // namespace

bool Route::matches(std::string_view target) const {
    return path.back() == '}' ? !parameterIn(target).empty() : path == target;
}

std::string_view Route::parameterIn(std::string_view target) const {
    const auto fixed = path.find('{');
    if (fixed == std::string_view::npos || !target.starts_with(path.substr(0, fixed)))
        return {};
    const auto parameter = target.substr(fixed);
    return parameter.find('/') == std::string_view::npos ? parameter : std::string_view();
}

std::span<const Route> routes() {
    return Table;
}

Response done() {
    return success([](JsonWriter& writer) {
        writer.StartObject();
        write(writer, "resultState", true);
        writer.EndObject();
    });
}

}  // namespace disclosure
