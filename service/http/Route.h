#pragma once

#include <boost/beast/http/verb.hpp>
#include <memory>
#include <optional>
#include <rapidjson/document.h>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "service/domain/Accounts.h"
#include "service/files/FileFolder.h"
#include "service/http/Messages.h"
#include "service/http/Target.h"
#include "service/ports/IStore.h"
#include "service/ports/Rights.h"

namespace disclosure {

class Upload;

inline constexpr auto OctetStream = "application/octet-stream";

/// What a handler is given: the checked request, who asks, and what they may do where it applies.
struct Call {
    IStore* store;  // null for Work::None
    const Accounts& accounts;
    const FileFolder& files;
    const Target& target;
    const rapidjson::Value& body;
    const std::string& client;       // what counts as one
    std::string sessionId;           // empty where no session is asked for
    std::string username;            // the same
    std::string deptId;              // of a route with a department's scope
    std::optional<Catalog> catalog;  // of Scope::BodyCatalog
    Rights rights;                   // the person's, in the department; those in every one of several
    bool mayWithTasks = false;       // holds the route's `overTasks`
    std::int64_t now = 0;
    std::optional<std::string> taskVersion = {};  // the header's, as it came
    std::vector<TaskKey> tasks = {};              // of the scopes of tasks: at least one
    std::optional<PushConfig> pushConfig = {};    // of Scope::BodyPushConfig
    std::int64_t bodySize = 0;                    // of an upload, as declared
    std::int64_t quota = 0;                       // a department's files may have so many bytes
    bool secureCookie = false;                    // clients come over TLS only

    // What a handler gives back besides its answer, once its transaction is committed.
    Transfer file = {};
    std::vector<std::string> removedFiles = {};  // whose rows are gone
};

using Handler = Response (*)(Call& call);

/// Where the department comes from in which the person must be a member and hold the route's right. A department or
/// catalog that is not theirs is refused as if it did not exist.
/// Tasks are found by the id in the path or under the body's key; those a person takes part in are theirs to see too.
enum class Scope {
    Public,
    Session,
    QueryDept,
    BodyDept,
    BodyCatalog,
    PathTask,
    BodyId,
    BodyIds,
    BodyTaskId,
    BodyDisclosureTaskId,
    BodyPushConfig
};

/// What a handler does with the database, and with it where it runs: nothing, within a transaction for it to read or to
/// write, with transactions of its own, or logging in, which takes much memory and has its own few threads. An upload
/// is let in by a writing transaction before its body is read, a download by a reading one; only so many of each may be
/// under way.
enum class Work { None, Read, Write, Own, Login, Upload, Download };

/// One operation of the service.
struct Route {
    boost::beast::http::verb method;
    std::string_view path;  // may end in a {name}, which stands for one segment
    Work work;
    Scope scope;
    std::optional<Right> right;
    std::optional<Right> overTasks;  // needed besides where tasks go with a catalog
    Handler handler;

    bool matches(std::string_view target) const;
    /// What stands for the {name}; empty without one.
    std::string_view parameterIn(std::string_view target) const;
};

/// Every operation there is, and the only place that says what each asks for.
std::span<const Route> routes();

/// Answers 200 with what `writeResult` writes as "result".
template <class WriteResult>
Response success(WriteResult&& writeResult) {
    return answerWith(boost::beast::http::status::ok, JsonType, wrapped(std::forward<WriteResult>(writeResult)));
}

/// Answers a change that was carried out.
Response done();

}  // namespace disclosure
