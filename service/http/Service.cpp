#include "service/http/Service.h"

#include "service/http/Scopes.h"
#include "service/ports/Changing.h"

namespace disclosure {

namespace http = boost::beast::http;

namespace {

constexpr std::string_view Guarded = "/rs/";
constexpr auto SessionCookie = "JSESSIONID";
constexpr auto TaskVersion = "X-Task-Version";

bool asksForSession(const Route* route, const Target& target) {
    return route ? route->scope != Scope::Public : std::string_view(target.path).starts_with(Guarded);
}

std::string sessionIdOf(const Request& request) {
    return std::string(cookieOf(viewOf(request[http::field::cookie]), SessionCookie));
}

/// Without the query, which may hold what is nobody's business.
std::string logNameOf(const Request& request) {
    const auto target = viewOf(request.target());
    return std::string(viewOf(request.method_string())) + " " + std::string(target.substr(0, target.find('?')));
}

}  // namespace

Service::Service(const Settings& settings, const FileFolder& files)
    : m_border(settings.hosts),
      m_clock(settings.clock),
      m_passwords(settings.cost),
      m_accounts(settings.limits, settings.clock, m_passwords),
      m_quota(settings.quota),
      m_secureCookie(settings.secureCookie),
      m_files(files),
      m_uploadEnd(settings.clock, files) {}

Service::Asked Service::askedBy(const Request& request) const {
    try {
        const Target target = parsedTarget(viewOf(request.target()));
        const Route* route = Border::findRoute(request, target);
        const bool session = asksForSession(route, target);
        return {route ? route->work : session ? Work::Read : Work::None, session};
    } catch (const HttpError&) {
        return {Work::None, false};
    }
}

std::optional<Response> Service::refusalOf(const Request& header, IStore& store) const noexcept {
    try {
        m_border.checkHost(header);
        const Target target = parsedTarget(viewOf(header.target()));
        if (!m_accounts.personOf(store, sessionIdOf(header)))
            throw HttpError(http::status::found, "");
        Border::routeFor(header, target);
        return std::nullopt;
    } catch (...) {
        return answerToFailure(logNameOf(header));
    }
}

Reply Service::answer(const Request& request, const std::string& client, IStore* store) const noexcept {
    try {
        return answerOrThrow(request, client, store);
    } catch (...) {
        return {answerToFailure(logNameOf(request))};
    }
}

Reply Service::answerOrThrow(const Request& request, const std::string& client, IStore* store) const {
    m_border.checkHost(request);
    const Target target = parsedTarget(viewOf(request.target()));

    std::string username;
    const std::string sessionId = sessionIdOf(request);
    if (asksForSession(Border::findRoute(request, target), target)) {
        auto person = m_accounts.personOf(*store, sessionId);
        if (!person)
            throw HttpError(http::status::found, "");
        username = std::move(*person);
    }
    const Route& route = Border::routeFor(request, target);
    const rapidjson::Document body = m_border.bodyFor(route, request);
    Call asked{store, m_accounts, m_files, target, body, client, sessionId, username, {}, {}, {}};
    asked.now = m_clock();
    asked.quota = m_quota;
    asked.secureCookie = m_secureCookie;
    if (request.count(TaskVersion) > 0)
        asked.taskVersion = std::string(request[TaskVersion]);
    if (route.work == Work::Upload)
        asked.bodySize = Border::uploadSizeOf(request);
    if (route.work == Work::None || route.work == Work::Own || route.work == Work::Login)
        return {route.handler(asked)};

    // Each try with a call of its own: what the last one has found in the store may be gone.
    std::optional<Call> call;
    const auto carryOut = [&] {
        call.emplace(asked);
        enterScope(route, *call);
        return Reply{route.handler(*call)};
    };
    const auto inTransaction = [&] {
        if (route.work != Work::Read && route.work != Work::Download)
            return changing(*store, carryOut);
        const Transaction transaction(*store, IStore::Access::Read);
        return carryOut();
    };
    Reply reply = inTransaction();
    for (const std::string& uuid : call->removedFiles)
        m_files.remove(uuid);
    reply.file = std::move(call->file);
    reply.file.username = username;
    return reply;
}

}  // namespace disclosure
