#include "service/http/Service.h"

#include <algorithm>
#include <boost/beast/core/string.hpp>
#include <charconv>
#include <set>
#include <spdlog/spdlog.h>
#include <stdexcept>

#include "service/domain/Files.h"
#include "service/http/FileHandlers.h"
#include "service/http/OpenApi.h"
#include "service/ports/Changing.h"

namespace disclosure {

namespace http = boost::beast::http;

namespace {

constexpr std::string_view Guarded = "/rs/";
constexpr auto SessionCookie = "JSESSIONID";
constexpr auto TaskVersion = "X-Task-Version";

std::string_view viewOf(boost::beast::string_view text) {
    return {text.data(), text.size()};
}

bool isGuarded(const Target& target) {
    return std::string_view(target.path).starts_with(Guarded);
}

std::string methodKey(http::verb method) {
    std::string key(http::to_string(method));
    std::transform(key.begin(), key.end(), key.begin(), [](unsigned char c) { return std::tolower(c); });
    return key;
}

const Route* findRoute(http::verb method, std::string_view path) {
    const auto all = routes();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const Route& route) { return route.method == method && route.matches(path); });
    return found == all.end() ? nullptr : &*found;
}

/// Whether the media type is JSON; its only parameter may be the charset UTF-8.
bool isJson(std::string_view type) {
    const auto trimmed = [](std::string_view text) {
        const auto begin = std::min(text.find_first_not_of(" \t"), text.size());
        const auto end = text.find_last_not_of(" \t");
        return text.substr(begin, end == std::string_view::npos ? 0 : end + 1 - begin);
    };
    const auto same = [](std::string_view a, boost::beast::string_view b) {
        return boost::beast::iequals({a.data(), a.size()}, b);
    };
    const auto semicolon = type.find(';');
    if (!same(trimmed(type.substr(0, semicolon)), "application/json"))
        return false;
    const auto parameter = semicolon == std::string_view::npos ? "" : trimmed(type.substr(semicolon + 1));
    return parameter.empty() || same(parameter, "charset=utf-8") || same(parameter, "charset=\"utf-8\"");
}

/// The size that an upload declares; it must, since room is held for it before it comes.
std::int64_t uploadSizeOf(const Request& request) {
    const auto length = viewOf(request[http::field::content_length]);
    std::int64_t size = Files::TooLarge;  // as is what does not fit
    if (request.chunked() || length.empty())
        throw HttpError(http::status::length_required, "上传文件必须说明长度");
    if (request.count(http::field::content_type) != 1 ||
        !boost::beast::iequals(request[http::field::content_type], OctetStream))
        throw HttpError(http::status::unsupported_media_type, "文件内容必须是application/octet-stream");
    std::from_chars(length.data(), length.data() + length.size(), size);
    return size;
}

const Reason& lackOf(Right right) {
    switch (right) {
        case Right::EditCatalogs:
            return reasons::NoRightCatalogs;
        case Right::EditTasks:
            return reasons::NoRightTasks;
        case Right::DeleteTasks:
            break;
    }
    return reasons::NoRightDelete;
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
            std::set<std::string> ids;
            for (const auto& id : call.body["ids"].GetArray())
                ids.emplace(id.GetString(), id.GetStringLength());
            return ids;
        }
        default:
            return {textOf(call.body, "id")};
    }
}

/// Finds what the call is about. What the person may not see is refused as missing.
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
                throw Refusal(lackOf(*route.right));
            return;
    }
    auto rights = call.store->rightsOf(call.username, call.deptId);
    if (!rights)
        throw Refusal(reasons::NoDepartment);
    call.rights = std::move(*rights);
    if (route.right && !call.rights.contains(*route.right))
        throw Refusal(lackOf(*route.right));
    call.mayWithTasks = route.overTasks && call.rights.contains(*route.overTasks);
}

}  // namespace

Service::Service(const Settings& settings, const FileFolder& files)
    : m_hosts(settings.hosts),
      m_clock(settings.clock),
      m_passwords(settings.cost),
      m_accounts(settings.limits, settings.clock, m_passwords),
      m_quota(settings.quota),
      m_files(files) {
    const OpenApi description;
    for (const Route& route : routes()) {
        const std::string path(route.path);
        const std::string method = methodKey(route.method);
        if (!description.operation(path, method))
            throw std::logic_error("openapi.yaml does not describe " + method + " " + path);
        if (auto schema = description.bodySchema(path, method))
            m_schemas.emplace(&route, std::move(schema));
    }
}

Work Service::workFor(const Request& request) const {
    try {
        const Target target = parsedTarget(viewOf(request.target()));
        const Route* route = findRoute(request.method(), target.path);
        return route ? route->work : isGuarded(target) ? Work::Read : Work::None;
    } catch (const HttpError&) {
        return Work::None;
    }
}

Reply Service::answer(const Request& request, const std::string& address, IStore* store) const noexcept {
    try {
        return answerOrThrow(request, address, store);
    } catch (...) {
        const auto target = viewOf(request.target());
        return {answerToFailure(std::string(viewOf(request.method_string())) + " " +
                                std::string(target.substr(0, target.find('?'))))};
    }
}

Reply Service::answerOrThrow(const Request& request, const std::string& address, IStore* store) const {
    if (request.count(http::field::host) != 1 || !isOwnHost(viewOf(request[http::field::host]), m_hosts))
        throw HttpError(http::status::bad_request, "Host无效");
    const Target target = parsedTarget(viewOf(request.target()));

    std::string username;
    const std::string sessionId(cookieOf(viewOf(request[http::field::cookie]), SessionCookie));
    const Route* known = findRoute(request.method(), target.path);
    if (known ? known->scope != Scope::Public : isGuarded(target)) {
        auto person = m_accounts.personOf(*store, sessionId);
        if (!person)
            throw HttpError(http::status::found, "");
        username = std::move(*person);
    }
    const Route& route = routeFor(request, target);
    const rapidjson::Document body = bodyFor(route, request);
    Call asked{store, m_accounts, m_files, target, body, address, sessionId, username, {}, {}, {}};
    asked.now = m_clock();
    asked.quota = m_quota;
    if (request.count(TaskVersion) > 0)
        asked.taskVersion = std::string(request[TaskVersion]);
    if (route.work == Work::Upload)
        asked.bodySize = uploadSizeOf(request);
    if (route.work == Work::None || route.work == Work::Own || route.work == Work::Login)
        return {route.handler(asked)};

    // Each try with a call of its own: what the last one has found in the store may be gone.
    std::optional<Call> call;
    const auto carryOut = [&] {
        call.emplace(asked);
        enterScope(route, *call);
        return Reply{route.handler(*call)};
    };
    Reply reply;
    if (route.work == Work::Read || route.work == Work::Download) {
        const Transaction transaction(*store, IStore::Access::Read);
        reply = carryOut();
    } else {
        reply = changing(*store, carryOut);
    }
    for (const std::string& uuid : call->removedFiles)
        m_files.remove(uuid);
    reply.file = std::move(call->file);
    return reply;
}

Response Service::keep(const PendingFile& pending, const std::string& md5, IStore& store) const noexcept {
    try {
        return uploaded(changing(store, [&] { return Files(store, pending.username, m_clock()).keep(pending, md5); }));
    } catch (...) {
        Response answer = answerToFailure("upload");
        removeUnknown(pending.key.uuid, store);
        giveUp(pending, store);
        return answer;
    }
}

/// A commit that failed may have been carried out all the same; then the row needs its content.
void Service::removeUnknown(const std::string& uuid, IStore& store) const noexcept {
    try {
        if (!store.knowsFile(uuid))
            m_files.remove(uuid);
    } catch (const std::exception& error) {
        spdlog::warn("an upload's content is left to the sweep: {}", logTextOf(error));
    }
}

void Service::giveUp(const PendingFile& pending, IStore& store) const noexcept {
    try {
        changing(store, [&] { Files(store, pending.username, m_clock()).giveUp(pending); });
    } catch (const std::exception& error) {
        spdlog::warn("an upload's room is left to the sweep: {}", logTextOf(error));
    }
}

const Route& Service::routeFor(const Request& request, const Target& target) const {
    if (const Route* route = findRoute(request.method(), target.path))
        return *route;
    std::string allowed;
    for (const Route& route : routes()) {
        if (route.matches(target.path))
            allowed += (allowed.empty() ? "" : ", ") + std::string(http::to_string(route.method));
    }
    if (allowed.empty())
        throw HttpError(http::status::not_found, "请求的地址不存在");
    throw HttpError(http::status::method_not_allowed, "不支持的请求方法", "Allow", allowed);
}

rapidjson::Document Service::bodyFor(const Route& route, const Request& request) const {
    const auto schema = m_schemas.find(&route);
    if (schema == m_schemas.end())
        return {};
    if (request.count(http::field::content_type) != 1 || !isJson(viewOf(request[http::field::content_type])))
        throw HttpError(http::status::unsupported_media_type, "请求内容必须是application/json");
    rapidjson::Document body = parsedJson(request.body());
    rapidjson::SchemaValidator validator(*schema->second);
    if (!body.Accept(validator)) {
        JsonBuffer where;
        validator.GetInvalidDocumentPointer().Stringify(where);
        throw HttpError(http::status::bad_request, std::string("请求内容不符合要求：") + where.GetString() + " " +
                                                       validator.GetInvalidSchemaKeyword());
    }
    return body;
}

}  // namespace disclosure
