#pragma once

#include <atomic>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <concepts>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <initializer_list>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <rapidjson/document.h>
#include <set>
#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>
#include <sstream>
#include <string>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include "service/http/Dispatcher.h"
#include "service/http/Server.h"
#include "service/http/Service.h"
#include "service/store/SqliteDatabase.h"

namespace disclosure::testing {

/// A folder of its own for one test, removed with it.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    std::string file(const std::string& name) const { return (m_path / name).string(); }

private:
    std::filesystem::path m_path;
};

/// What the service answered.
struct Answer {
    int status = 0;  // 0: the connection ended without an answer
    std::string body;
    std::string cookie;  // "JSESSIONID=..." when one was set
    bool hasLocation = false;
    bool keepsOpen = false;  // the connection
    std::string etag;
    std::string disposition;
    std::string retryAfter;
    rapidjson::Document json() const;
    /// The wrapper's code; -1 when the body is no wrapper.
    int code() const;
    std::string msg() const;
    /// What stands at these places of the result, as in "name list/0/id", with a '|' between them; of a list its size.
    std::string at(const std::string& places) const;
};

/// A connection on which any bytes are sent.
class Wire {
public:
    explicit Wire(std::uint16_t port);
    /// False once the service does not listen any more.
    bool send(const std::string& bytes);
    /// Says that no more will come.
    void end();
    Answer answer();

private:
    boost::asio::io_context m_io;
    boost::asio::ip::tcp::socket m_socket{m_io};
    boost::beast::flat_buffer m_buffer;
};

/// A client of one connection, made anew when the service has closed it.
class Client {
public:
    explicit Client(std::uint16_t port, std::string cookie = {}) : m_port(port), m_cookie(std::move(cookie)) {}

    Answer get(const std::string& target) { return send("GET", target, {}); }
    Answer post(const std::string& target, const std::string& body) { return send("POST", target, body); }
    Answer del(const std::string& target, const std::string& body) { return send("DELETE", target, body); }
    Answer send(const std::string& method, const std::string& target, const std::string& body,
                const std::string& type = "application/json");
    /// Uploads a file; the name goes into the query as it is.
    Answer upload(const std::string& deptId, const std::string& name, const std::string& content) {
        return send("POST", std::string("/rs/platform/files?deptId=") + deptId + "&name=" + name, content, OctetStream);
    }
    /// Sends these bytes on a connection of their own and reads the answer; `end` says that no more will come.
    Answer raw(const std::string& bytes, bool end = false);
    /// The header of a request with this person's session; `more` are further lines.
    std::string head(const std::string& method, const std::string& target, const std::string& more = {},
                     const std::string& type = "application/json") const {
        return method + " " + target + " HTTP/1.1\r\nHost: localhost\r\nContent-Type: " + type +
               "\r\nCookie: " + m_cookie + "\r\n" + more;
    }
    /// Keeps the session for what follows.
    Answer login(const std::string& username, const std::string& password);
    const std::string& cookie() const { return m_cookie; }

private:
    std::uint16_t m_port;
    std::string m_cookie;
    boost::asio::io_context m_io;
    std::optional<boost::asio::ip::tcp::socket> m_socket;
    boost::beast::flat_buffer m_buffer;
};

/// The service on a free loopback port with the demonstration's people, a clock of the test's, and cheap passwords.
class TestService {
public:
    static Server::Settings quick();
    explicit TestService(const Server::Settings& settings = quick(), const Dispatcher::Settings& dispatcher = {},
                         std::int64_t quota = 1'000'000'000);
    ~TestService();
    /// Serves no longer; the data stays.
    void end();

    std::uint16_t port() const { return m_server->port(); }
    Client client() const { return Client(port()); }
    Client loggedIn(const std::string& username) const;
    SqliteDatabase& database() { return *m_database; }
    const std::string& file() const { return m_file; }
    /// A task straight into the table.
    void addTask(const std::string& deptId, const std::string& catalogId, const std::string& taskId);
    /// A file of the department, stored as if somebody had uploaded it; returns its MD5.
    std::string addFile(const std::string& deptId, const std::string& uuid, const std::string& content);
    const FileFolder& files() const { return m_files; }
    /// The path of a file's content; `where` is "unknown" for those set aside.
    std::filesystem::path placeOf(const std::string& uuid, const char* where = "") const {
        return m_files.path() / where / uuid.substr(0, 2) / uuid;
    }
    /// How many files lie in the folder, the incoming ones included and those set aside not.
    long long filesOnDisk() const;
    long long number(const std::string& sql) const;
    void run(const std::string& sql) const;

    std::atomic<std::int64_t> now{1'700'000'000'000};

private:
    TempFolder m_folder;
    std::string m_file = m_folder.file("disclosure.db");
    std::unique_ptr<SqliteDatabase> m_database;
    FileFolder m_files{m_folder.file("files")};
    std::unique_ptr<Service> m_service;
    std::unique_ptr<Dispatcher> m_dispatcher;
    std::unique_ptr<Server> m_server;
    std::thread m_thread;
};

inline constexpr auto ListPath = "/rs/disclosure/catalog/list_disclosure_catalog_by_deptid?deptId=";
inline constexpr auto SavePath = "/rs/disclosure/catalog/save";
inline constexpr auto UpdatePath = "/rs/disclosure/catalog/update";
inline constexpr auto MovePath = "/rs/disclosure/catalog/move";
inline constexpr auto DeletePath = "/rs/disclosure/catalog/delete";
inline const std::string DocumentsPath = "/rs/platform/documents/";
inline constexpr auto FirstDept = "demo-dept-1";
inline constexpr auto SecondDept = "demo-dept-2";
inline constexpr auto Top = "demo-catalog-1";

/// Which steps, done in their order, came to something else than expected: {{save("a"), 200}, {save("a"), 409}}.
std::string wrong(std::initializer_list<std::pair<int, int>> steps);

/// How much of what the store counts by itself about documents differs from what is there.
inline constexpr auto CountersAreWrong =
    "SELECT (SELECT COUNT(*) FROM doc_tally y WHERE y.folder_id <> '0' AND y.number <> (SELECT COUNT(*) FROM document "
    "d WHERE d.dept_id = y.dept_id AND d.folder_id = y.folder_id AND d.deleted = y.deleted AND d.updated_by = "
    "y.updated_by AND d.extension = y.extension AND (d.tag_number = 0) = y.untagged)) + ABS((SELECT COALESCE(SUM(number"
    "), 0) FROM doc_tally WHERE folder_id = '0') - (SELECT COUNT(*) FROM document)) + (SELECT COUNT(*) FROM doc_tag g "
    "WHERE (g.uses, g.shown) <> (SELECT COUNT(*), COUNT(*) - COALESCE(SUM(d.deleted), 0) FROM doc_tagged l JOIN "
    "document d ON d.rid = l.doc_rid WHERE l.dept_id = g.dept_id AND l.tag_id = g.tag_id)) + (SELECT COUNT(*) FROM "
    "document d WHERE d.content_number <> (SELECT COUNT(*) FROM doc_content c WHERE c.doc_rid = d.rid) OR d.tag_number "
    "<> (SELECT COUNT(*) FROM doc_tagged l WHERE l.doc_rid = d.rid))";

/// In hexadecimal.
std::string md5Of(const std::string& content);

/// A value of a JSON body; texts go in as they are, so that a test chooses how they are escaped.
class Json {
public:
    Json(const char* text) : Json(std::string(text)) {}
    Json(const std::string& text) : m_text('"' + text + '"') {}
    Json(std::integral auto number) : m_text(std::to_string(number)) {}
    Json(bool value) : m_text(value ? "true" : "false") {}
    /// What is JSON already.
    static Json written(std::string json) {
        Json value("");
        value.m_text = std::move(json);
        return value;
    }
    operator const std::string&() const { return m_text; }
    friend std::string operator+(const std::string& before, const Json& value) { return before + value.m_text; }

private:
    std::string m_text;
};

using Members = std::vector<std::pair<std::string, Json>>;

/// {"key":value,...} in this order, then `more`.
Json object(const Members& members, const Members& more = {});

/// [value,...]
Json list(const std::vector<Json>& values);

/// The body of a save.
std::string saveBody(const std::string& deptId, const std::string& id, const std::string& name,
                     const std::string& parentId);

}  // namespace disclosure::testing
