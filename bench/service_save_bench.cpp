// Saving a task with its links at the service, over HTTP, against a bare transaction that leaves the same rows in a
// database of the same engine and settings.
#include <chrono>
#include <filesystem>
#include <spdlog/spdlog.h>
#include <sqlite3.h>
#include <stdexcept>
#include <string>

#include "bench/Client.h"
#include "bench/Report.h"
#include "bench/Served.h"
#include "service/domain/Demo.h"
#include "service/store/NameIndex.h"
#include "service/store/SqliteDatabase.h"

namespace {

using namespace disclosure;
using Ticks = std::chrono::steady_clock;

constexpr int Receivers = 3;
constexpr int Viewports = 5;
constexpr int Nodes = 5;
constexpr int Docs = 10;
constexpr int Saves = 20;  // of one run
constexpr int Runs = 15;
constexpr auto Name = "三层梁板钢筋绑扎质量技术交底";
constexpr const char* People[] = {"chenwei", "liuyang", "sunli"};

std::string freshDatabase(const std::filesystem::path& folder) {
    std::filesystem::remove_all(folder);
    std::string file = (folder / "disclosure.db").string();
    SqliteDatabase database(file);
    database.migrate();
    seedDemo(*database.connect(), Passwords(Passwords::Cost::Lowest));
    return file;
}

double secondsOfOne(const std::function<void()>& save) {
    const auto start = Ticks::now();
    for (int i = 0; i < Saves; ++i)
        save();
    return std::chrono::duration<double>(Ticks::now() - start).count() / Saves;
}

std::string textIn(const std::string& answer, const std::string& key) {
    const auto begin = answer.find("\"" + key + "\":\"");
    if (begin == std::string::npos)
        throw std::runtime_error(answer);
    const auto value = begin + key.size() + 4;
    return answer.substr(value, answer.find('"', value) - value);
}

/// What follows the id in the body of a save; its documents are uploaded first.
std::string restOfBody(bench::Client& client) {
    const auto list = [](const char* key, int count, auto&& element) {
        std::string text = std::string(",\"") + key + "\":[";
        for (int i = 0; i < count; ++i)
            text += (i > 0 ? "," : "") + element(std::to_string(i), i);
        return text + "]";
    };
    return std::string(R"(","deptId":"demo-dept-1","disclosureCatalogId":"demo-catalog-4","name":")") + Name +
           R"(","disclosureUserName":"demo","planDisclosureDateMills":1700000000000)" +
           list("disclosureTaskReceiveUserList", Receivers,
                [](const std::string& n, int i) {
                    return R"({"id":"r)" + n + R"(","userName":")" + People[i] + "\"}";
                }) +
           list("disclosureTaskViewportList", Viewports,
                [](const std::string& n, int) {
                    return R"({"id":"v)" + n + R"(","ppid":1001,"viewportId":"view-)" + n + "\"}";
                }) +
           list("disclosureTaskNodeList", Nodes,
                [](const std::string& n, int) {
                    return R"({"id":"n)" + n + R"(","ppid":1001,"nodeId":"node-)" + n + "\"}";
                }) +
           list("disclosureTaskDocList", Docs,
                [&client](const std::string& n, int) {
                    const std::string answer =
                        client.ask("POST /rs/platform/files?deptId=demo-dept-1&name=" + n + ".pdf", "content " + n,
                                   "application/octet-stream");
                    return R"({"id":"d)" + n + R"(","name":")" + n +
                           R"(.pdf","extension":"pdf","sourceType":1,"size":9)" + R"(,"uuid":")" +
                           textIn(answer, "uuid") + R"(","md5":")" + textIn(answer, "md5") + "\"}";
                }) +
           "}";
}

/// The engine alone: its own statements, prepared once.
class Bare {
public:
    explicit Bare(const std::string& file) {
        sqlite3_open(file.c_str(), &m_connection);
        installNameGrams(m_connection);
        for (const char* setting : {"journal_mode = WAL", "synchronous = FULL", "foreign_keys = ON",
                                    "cache_size = -16384", "temp_store = MEMORY"})
            run(prepared(std::string("PRAGMA ") + setting));
        m_begin = prepared("BEGIN IMMEDIATE");
        m_commit = prepared("COMMIT");
        m_task = prepared(
            "INSERT INTO task (rid, dept_id, task_id, catalog_id, name, search_name, discloser, plan_disclosure, "
            "updated_by, updated_at) VALUES (?1, 'demo-dept-1', 'task-' || ?1, 'demo-catalog-4', ?3, ?3, 'demo', "
            "1700000000000, 'demo', 1700000000000 + ?1)");
        m_receiver =
            prepared("INSERT INTO task_receiver VALUES ('demo-dept-1', ?1, ?2, 'r' || ?2, 'person' || ?2, 0, 0)");
        m_viewport =
            prepared("INSERT INTO task_viewport VALUES ('demo-dept-1', ?1, ?2, 'v' || ?2, 1001, 'view-' || ?2)");
        m_node = prepared("INSERT INTO task_node VALUES ('demo-dept-1', ?1, ?2, 'n' || ?2, 1001, 'node-' || ?2)");
        m_doc = prepared(
            "INSERT INTO task_doc VALUES ('demo-dept-1', ?1, ?2, 'd' || ?2, 0, ?2 || '.pdf', "
            "'0123456789abcdef0123456789abcde' || ?2, '0123456789abcdef0123456789abcdef', 9, 'pdf', 1, '')");
        m_log = prepared(
            "INSERT INTO task_log (dept_id, task_id, log_id, username, op_time, kind, source_name) VALUES "
            "('demo-dept-1', 'task-' || ?1, '01234567-89ab-cdef-0123-456789abcdef', 'demo', 1700000000000, 1, ?3)");
    }
    ~Bare() {
        for (sqlite3_stmt* statement : m_statements)
            sqlite3_finalize(statement);
        sqlite3_close(m_connection);
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    void save() {
        ++m_number;
        run(m_begin);
        run(m_task);
        runEach(m_receiver, Receivers);
        runEach(m_viewport, Viewports);
        runEach(m_node, Nodes);
        runEach(m_doc, Docs);
        run(m_log);
        run(m_commit);
    }

private:
    sqlite3_stmt* prepared(const std::string& text) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(m_connection, text.c_str(), -1, &statement, nullptr) != SQLITE_OK)
            throw std::runtime_error(text + ": " + sqlite3_errmsg(m_connection));
        m_statements.push_back(statement);
        return statement;
    }
    void run(sqlite3_stmt* statement, int position = 0) {
        // A statement has only those it names.
        const int parameters = sqlite3_bind_parameter_count(statement);
        if (parameters >= 1)
            sqlite3_bind_int(statement, 1, m_number);
        if (parameters >= 2)
            sqlite3_bind_int(statement, 2, position);
        if (parameters >= 3)
            sqlite3_bind_text(statement, 3, Name, -1, SQLITE_STATIC);
        int result = SQLITE_ROW;
        while (result == SQLITE_ROW)
            result = sqlite3_step(statement);
        if (result != SQLITE_DONE)
            throw std::runtime_error(sqlite3_errmsg(m_connection));
        sqlite3_reset(statement);
    }
    void runEach(sqlite3_stmt* statement, int count) {
        for (int i = 0; i < count; ++i)
            run(statement, i);
    }

    sqlite3* m_connection = nullptr;
    std::vector<sqlite3_stmt*> m_statements;
    sqlite3_stmt *m_begin, *m_commit, *m_task, *m_receiver, *m_viewport, *m_node, *m_doc, *m_log;
    int m_number = 0;
};

}  // namespace

int main() {
    spdlog::set_level(spdlog::level::warn);
    const auto build = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path();
    const auto folder = build.parent_path() / "bench-data";
    const std::string file = freshDatabase(folder / "save");
    Bare bare(freshDatabase(folder / "save-peer"));
    const bench::Served served(file);
    bench::Client client(served.port(), "");
    client.login("demo", "demo");
    const std::string rest = restOfBody(client);
    int number = 0;
    const auto save = [&] {
        const std::string& answer =
            client.ask("POST /rs/disclosure/task/save", R"({"id":"task-)" + std::to_string(++number) + rest);
        if (answer.find("\"code\":200") == std::string::npos)
            throw std::runtime_error(answer);
    };
    bench::Row(
        "save of a task with 3 receivers, 10 links and 10 documents over HTTP / the bare transaction", 2,
        [&] { return secondsOfOne(save); }, [&] { return secondsOfOne([&] { bare.save(); }); }, Runs);
    return 0;
}
