#include <random>
#include <signal.h>

#include "tests/service/ServedProgram.h"
#include "tests/service/TaskTest.h"

namespace disclosure::testing {
namespace {

class Process : public ::testing::Test {
protected:
    /// Runs one command of the program in a shell, which feeds it `input`; returns whether it succeeded.
    bool run(const std::string& command, const std::string& input = {}) const {
        const std::string line = "printf '%s\\n' '" + input + "' | timeout 120 '" + Program + "' --database '" +
                                 database + "' " + command + " > '" + folder.file("out") + "' 2>&1";
        return std::system(line.c_str()) == 0;
    }
    std::string output() const {
        std::ifstream file(folder.file("out"));
        return {std::istreambuf_iterator<char>(file), {}};
    }

    soci::session open() const { return {soci::sqlite3, "dbname=\"" + database.substr(7) + "\""}; }
    int number(const std::string& query) const {
        int value = 0;
        open() << query, soci::into(value);
        return value;
    }
    std::string contentOf(const std::string& uuid) const {
        std::ifstream file(folder.file("data dir/disclosure.files/" + uuid.substr(0, 2) + "/" + uuid),
                           std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    TempFolder folder;
    std::string database = "sqlite:" + folder.file("data dir/disclosure.db");
};

TEST_F(Process, PeopleAreManagedFromTheCommandLine) {
    const std::string add = "user add wang --realname 王五 --dept demo-dept-1";
    const std::tuple<std::string, std::string, bool> commands[] = {
        {"seed --demo", "", true},
        {"seed --demo", "", true},
        {"user passwd wang", "x", false},
        {add, std::string(1025, 'x'), false},
        {add, "\xff", false},
        {add, "first secret", true},
        {add, "x", false},
        {"user add li --realname 李四 --dept none", "x", false},
        {"user grant wang --dept demo-dept-1 AUTH_NONE", "", false},
        {"user grant wang --dept demo-dept-1 AUTH_JIAODIGUANLI_EDITMULU", "", true},
        {"user passwd wang", std::string(1025, 'x'), false},
        {"user leave wang --dept demo-dept-2", "", false},
        {"user deactivate nobody", "", false},
        {"user list", "", true},
    };
    for (const auto& [command, input, succeeds] : commands)
        ASSERT_EQ(run(command, input), succeeds) << command << output();
    EXPECT_NE(output().find("wang\t王五\tdemo-dept-1\tactive\tAUTH_JIAODIGUANLI_EDITMULU\n"), std::string::npos)
        << output();

    Served served(folder, database);
    Client client(served.port());
    const auto catalogs = [&] { return client.get(std::string(ListPath) + FirstDept); };
    ASSERT_EQ(client.login("wang", "first secret").status, 200);
    EXPECT_EQ(client.post(SavePath, saveBody(FirstDept, "", "新目录", Top)).code(), 200);
    EXPECT_TRUE(run("user passwd wang", "second secret"));
    EXPECT_EQ(catalogs().status, 302) << "a new password ends the sessions";
    EXPECT_EQ(client.login("wang", "first secret").status, 401);
    const std::string longest(1024, 'x');
    ASSERT_TRUE(run("user passwd wang", longest));
    EXPECT_EQ(client.login("wang", longest).status, 200);

    // Who has left the company stays in the tasks there are, and comes into no new one.
    Client demo(served.port());
    demo.login("demo", "demo");
    const auto task = [](const char* id, const char* more) {
        return taskBody(id, "任务", std::string(R"(,"disclosureUserName":"wang")") + more);
    };
    const auto shown = [&] {
        return demo.get(std::string("/rs/platform/users?deptId=") + FirstDept).body.find("王五");
    };
    ASSERT_EQ(demo.post(TaskPath + "save", task("t", "")).code(), 200);
    EXPECT_NE(shown(), std::string::npos);
    ASSERT_TRUE(run("user deactivate wang"));
    EXPECT_EQ(catalogs().status, 302);
    EXPECT_EQ(client.login("wang", longest).status, 401);
    EXPECT_EQ(shown(), std::string::npos);
    EXPECT_EQ(demo.post(TaskPath + "save", task("u", "")).code(), 422);
    EXPECT_EQ(demo.post(TaskPath + "save", task("t", R"(,"remark":"改")")).code(), 200);
    EXPECT_NE(demo.get(TaskPath + "query_disclosure_task_by_id/t").body.find("王五"), std::string::npos);
    ASSERT_TRUE(run("user list"));
    EXPECT_NE(output().find("wang\t王五\tdemo-dept-1\tdeactivated\t"), std::string::npos) << output();

    ASSERT_TRUE(run("user activate wang"));
    EXPECT_EQ(client.login("wang", longest).status, 200);
    EXPECT_EQ(catalogs().code(), 200);
    ASSERT_TRUE(run("user leave wang --dept demo-dept-1"));
    EXPECT_EQ(catalogs().code(), 404);
    EXPECT_EQ(demo.post(TaskPath + "save", task("u", "")).code(), 422);
}

TEST_F(Process, AFolderOfFilesBelongsToOneDatabase) {
    namespace fs = std::filesystem;
    const fs::path data = folder.file("data dir");
    const fs::path own = data / "disclosure.files";
    const std::string other = "sqlite:" + folder.file("data dir/b.db");
    const auto refused = [&](std::string url, const fs::path& in, const char* why) {
        const std::string config = folder.file("c.toml");
        std::ofstream(config) << "[files]\nfolder = '" << in.string() << "'\n";
        std::swap(database, url);
        for (const char* command : {"serve --listen 127.0.0.1:0", "seed --demo"}) {
            EXPECT_FALSE(run(std::string(command) + " --config '" + config + "'"));
            EXPECT_NE(output().find(why), std::string::npos) << output();
        }
        std::swap(database, url);
    };
    ASSERT_TRUE(run("seed --demo"));
    refused(other, own, "the files of another database");
    refused(database, data / "mistyped", "has none of this database's files");
    refused("sqlite::memory:", "", "a database in memory");
    refused("", "", "as sqlite:PATH");

    // As it was before folders had a name and an id.
    fs::remove(own / "database");
    refused(other, own, "holds files that this database does not know");
    fs::rename(own, data / "files");
    EXPECT_EQ(Client(Served(folder, other).port()).get("/readyz").code(), 200);
    EXPECT_TRUE(fs::exists(data / "b.files/database"));
    EXPECT_FALSE(fs::exists(data / "files/database")) << "it is not that one's";
    Served served(folder, database);
    Client demo(served.port());
    demo.login("demo", "demo");
    std::string uuid;
    open() << "SELECT uuid FROM stored_file LIMIT 1", soci::into(uuid);
    EXPECT_EQ(demo.get("/rs/platform/files/" + uuid + "?deptId=" + FirstDept).status, 200);
    EXPECT_TRUE(fs::exists(data / "files/database"));
    EXPECT_FALSE(fs::exists(own));
}

TEST_F(Process, TakesOverAnOrganisationWholeOrNotAtAll) {
    const std::string good =
        "[[department]]\nid = \"hq\"\nname = \"总公司\"\n[[department]]\nid = \"site\"\nname = \"三号工地\"\n"
        "parent = \"hq\"\n[[project]]\nppid = 7\nname = \"三号工程\"\ndept = \"site\"\n";
    const std::string seed = "seed --organisation '" + folder.file("org.toml") + "'";
    std::ofstream(folder.file("org.toml")) << good << "[[project]]\nppid = 8\nname = \"x\"\ndept = \"none\"\n";
    EXPECT_FALSE(run(seed));
    EXPECT_FALSE(run("user add wang --realname 王五 --dept site", "secret")) << "nothing of it was taken over";
    std::ofstream(folder.file("org.toml")) << good;
    ASSERT_TRUE(run(seed)) << output();
    ASSERT_TRUE(run(seed)) << "again";
    EXPECT_FALSE(run("seed --demo")) << "the demonstration stays away from others' data";
    ASSERT_TRUE(run("user list"));
    EXPECT_EQ(output(), "");
    ASSERT_TRUE(run("user add wang --realname 王五 --dept site", "secret"));
    Served served(folder, database);
    Client client(served.port());
    client.login("wang", "secret");
    EXPECT_EQ(client.get("/rs/platform/projects").at("0/name"), "三号工程");
}

TEST_F(Process, SaysWhereItListensAndRefusesWhatItCannotDo) {
    {
        Served served(folder, database);
        EXPECT_EQ(output(), "listening on 127.0.0.1:" + std::to_string(served.port()) + "\n");
        EXPECT_EQ(Client(served.port()).get("/readyz").code(), 200);
        EXPECT_FALSE(run("serve --listen 127.0.0.1:" + std::to_string(served.port()))) << "taken";
        EXPECT_EQ(served.end(SIGINT), 0);
    }
    EXPECT_FALSE(run("serve --listen nonsense"));
    EXPECT_FALSE(run("serve --database mysql:x"));
    for (const auto& [text, reason] : {std::pair("[server]\nlissten = \"127.0.0.1:0\"", "server.lissten is not known"),
                                       {"[reminders]\ntime_zone = \"Asia/Nowhere\"", "Asia/Nowhere"}}) {
        std::ofstream(folder.file("bad.toml")) << text << '\n';
        EXPECT_FALSE(run("serve --listen 127.0.0.1:0 --config '" + folder.file("bad.toml") + "'"));
        EXPECT_NE(output().find(reason), std::string::npos) << output();
        EXPECT_EQ(output().find("listening"), std::string::npos) << output();
    }
}

TEST_F(Process, HasTheDescriptorsThatItsLimitsPromiseOrLowersThese) {
    const auto serving = [&](const std::string& limit) {
        return std::vector<std::string>{"/bin/sh", "-c",
                                        "ulimit " + limit + " && exec '" + Program + "' serve --database '" + database +
                                            "' --listen 127.0.0.1:0 --port-file '" + folder.file("port") + "' 2> '" +
                                            folder.file("log") + "'"};
    };
    // Soft or hard limit, connections tried, those that are answered.
    for (const auto& [limit, tried, answered] : {std::tuple("-S -n 200", 150, 150), {"-n 200", 60, 35}}) {
        const PortProcess served(serving(limit), folder.file("port"), folder.file("out"));
        std::list<Wire> open;
        int good = 0;
        for (int i = 0; i < tried; ++i) {
            open.emplace_back(served.port()).send("GET /readyz HTTP/1.1\r\nHost: localhost\r\n\r\n");
            good += open.back().answer().status == 200 ? 1 : 0;
        }
        EXPECT_EQ(good, answered) << limit;
        std::stringstream log;
        log << std::ifstream(folder.file("log")).rdbuf();
        EXPECT_EQ(log.str().find("at most 35 connections instead of 2000") != std::string::npos, answered == 35)
            << log.str();
    }
}

TEST_F(Process, WhatIsInHandIsFinishedBeforeTheEnd) {
    ASSERT_TRUE(run("seed --demo"));
    Served served(folder, database);
    Client client(served.port());
    client.login("demo", "demo");
    const auto begin = [&](Wire& wire, const std::string& target, const std::string& type, std::size_t size) {
        wire.send("POST " + target + " HTTP/1.1\r\nHost: localhost\r\nCookie: " + client.cookie() +
                  "\r\nContent-Type: " + type + "\r\nExpect: 100-continue\r\nContent-Length: " + std::to_string(size) +
                  "\r\n\r\n");
        EXPECT_EQ(wire.answer().status, 100);
    };
    const std::string body = object({{"username", "demo"}, {"password", "demo"}});
    const std::string content(900'000, 'x');
    {
        Wire request(served.port());
        Wire upload(served.port());
        begin(request, "/rs/auth/login", "application/json", body.size());
        begin(upload, "/rs/platform/files?deptId=demo-dept-1&name=a.pdf", OctetStream, content.size());
        served.signal(SIGTERM);
        request.send(body);
        const Answer answered = request.answer();
        EXPECT_EQ(answered.code(), 200);
        EXPECT_FALSE(answered.keepsOpen);
        upload.send(content);
        const Answer stored = upload.answer();
        EXPECT_EQ(contentOf(stored.at("uuid")), content);
    }
    EXPECT_EQ(served.wait(), 0);
}

TEST_F(Process, AFullDiskLeavesNothingHalfAndSaysSo) {
    ASSERT_TRUE(run("seed --demo"));
    const int demoFiles = number("SELECT COUNT(*) FROM stored_file");
    EXPECT_GT(demoFiles, 0);
    EXPECT_EQ(number("SELECT COUNT(*) FROM task t LEFT JOIN task_doc d ON d.dept_id = t.dept_id AND d.task_rid = t.rid "
                     "LEFT JOIN stored_file f ON "
                     "f.dept_id = d.dept_id AND f.uuid = d.uuid AND f.md5 = d.md5 AND f.size = d.size "
                     "WHERE f.uuid IS NULL"),
              0)
        << "each of the demonstration's tasks has a document";
    Served served(folder, database);
    Client client(served.port());
    client.login("demo", "demo");
    const std::string large(9'000'000, 'x');
    served.limitFiles(8'000'000);
    const Answer full = client.upload(FirstDept, "a.pdf", large);
    EXPECT_EQ(full.status, 507);
    EXPECT_EQ(full.msg(), "服务器存储空间不足");
    EXPECT_EQ(client.upload(FirstDept, "b.pdf", "small").code(), 200);
    served.limitFiles(RLIM_INFINITY);
    EXPECT_EQ(client.upload(FirstDept, "a.pdf", large).code(), 200);
    EXPECT_EQ(served.end(SIGTERM), 0);
    EXPECT_EQ(number("SELECT (SELECT COUNT(*) FROM stored_file) + 100 * (SELECT COUNT(*) FROM file_upload)"),
              demoFiles + 2);
    int files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.file("data dir/disclosure.files")))
        files += entry.is_regular_file() ? 1 : 0;
    EXPECT_EQ(files, demoFiles + 2 + 1) << "and whose folder it is";
}

TEST_F(Process, TheDemonstrationsDocumentsCanBeReadAndItsTasksLinkThem) {
    ASSERT_TRUE(run("seed --demo"));
    EXPECT_GE(number("SELECT COUNT(*) FROM task_doc WHERE source_type = 0"), number("SELECT COUNT(*) FROM task"));
    soci::session sql = open();
    soci::rowset<soci::row> rows = (sql.prepare << "SELECT uuid, extension, md5 FROM doc_content");
    std::map<std::string, int> beginnings;
    for (const soci::row& row : rows) {
        const std::string content = contentOf(row.get<std::string>(0));
        const auto extension = row.get<std::string>(1);
        EXPECT_EQ(md5Of(content), row.get<std::string>(2));
        const char* mark = extension == "pdf" ? "%PDF-1." : extension == "png" ? "\x89PNG\r\n" : "";
        EXPECT_TRUE(content.starts_with(mark) && content.size() > 300) << extension;
        ++beginnings[extension == "txt" ? content.substr(0, 2) : extension];
    }
    EXPECT_GE(beginnings["pdf"], 20);
    EXPECT_GE(beginnings["png"], 5);
    EXPECT_EQ(beginnings["\xd7\xae"], 1) << "in GB18030";
    EXPECT_EQ(beginnings["\xff\xfe"] + beginnings["\xfe\xff"], 1) << "in UTF-16";
}

/// One client that changes catalogs, tasks and documents of its own, uploads files for them, and remembers what was
/// answered.
class Writer {
public:
    Writer(int number, std::string cookie) : m_name("w" + std::to_string(number)), m_cookie(std::move(cookie)) {}

    /// Until the service is gone.
    void work(std::uint16_t port, std::atomic<int>& answered) {
        Client client(port, m_cookie);
        while (true) {
            const int block = m_step / Steps;
            const std::string parent = m_name + "-" + std::to_string(block);
            const std::string old = m_name + "-" + std::to_string(block - 3);
            std::map<std::string, std::string> next = m_known;
            std::string content;
            Answer answer;
            switch (m_step % Steps) {
                case 0:
                    next[parent] = parent;
                    answer = client.post(SavePath, saveBody(FirstDept, parent, parent, Top));
                    break;
                case 1:
                    next[parent + "c"] = "child";
                    answer = client.post(SavePath, saveBody(FirstDept, parent + "c", "child", parent));
                    break;
                case 2:
                    next[parent] = parent + "r";
                    answer = client.post(UpdatePath, object({{"id", parent}, {"name", parent + "r"}}));
                    break;
                case 3:
                    answer = client.post(MovePath, object({{"id", parent}, {"offset", 0}}));
                    break;
                case 4:
                case 5:
                    content = parent + std::string(static_cast<std::size_t>(1 + m_step * 7919 % 300'000), 'x');
                    answer = client.upload(FirstDept, parent + ".pdf", content);
                    break;
                case 6:
                    next[parent + "d"] = parent + ".pdf/1/1";
                    answer = client.post(DocumentsPath + "save", object({{"id", parent + "d"},
                                                                         {"deptId", FirstDept},
                                                                         {"name", parent},
                                                                         {"uuid", m_uuid},
                                                                         {"tags", list({m_name})}}));
                    break;
                case 7:
                    next[parent + "t"] = parent + "/2/2/2";
                    answer = client.post(
                        TaskPath + "save",
                        taskBody(parent + "t", parent,
                                 {{"disclosureTaskReceiveUserList", people({{"a", "sunli"}, {"b", "liuyang"}})},
                                  {"disclosureTaskViewportList", list({object({{"viewportId", "v"}})})},
                                  {"disclosureTaskNodeList", list({object({{"nodeId", "n"}})})},
                                  {"disclosureTaskDocList", list({uploaded("d"), filed("s", parent)})}},
                                 parent + "c"));
                    break;
                case 8:
                    next[parent + "t"] = parent + "r/1/3/3";
                    answer = client.post(
                        TaskPath + "update",
                        object({{"id", parent + "t"},
                                {"name", parent + "r"},
                                {"delDisclosureTaskReceiveUserIds", list({"a"})},
                                {"saveDisclosureTaskNodeList", list({object({{"id", "m"}, {"nodeId", "m"}})})},
                                {"saveDisclosureTaskDocList", list({uploaded("e")})}}));
                    break;
                case 9:
                    next.erase(old);
                    next.erase(old + "c");
                    next.erase(old + "t");
                    answer = client.del(DeletePath, object({{"id", old}, {"isContainsTask", 1}}));
                    break;
                default:
                    next.erase(old + "d");
                    answer = client.post(DocumentsPath + "delete",
                                         object({{"deptId", FirstDept}, {"ids", list({old + "d"})}}));
                    break;
            }
            if (answer.status == 0) {
                m_perhaps = next;
                return;
            }
            if (answer.status == 503)  // the other process had the database for too long
                continue;
            EXPECT_EQ(answer.status, 200);
            const bool nothingToDo = m_step % Steps >= Steps - 2 && block < 3;
            EXPECT_EQ(answer.code(), nothingToDo ? 404 : 200) << m_step << answer.body;
            if (!content.empty()) {
                m_uuid = answer.at("uuid");
                m_files[m_uuid] = {md5Of(content), std::ssize(content)};
            }
            m_known = next;
            ++m_step;
            ++answered;
        }
    }

    /// What is there must be what was answered, or that with the one unanswered change carried out in full.
    void check(const std::map<std::string, std::string>& all) {
        std::map<std::string, std::string> mine;
        for (const auto& [id, name] : all) {
            if (id.starts_with(m_name + "-"))
                mine[id] = name;
        }
        EXPECT_TRUE(mine == m_known || mine == m_perhaps) << m_name << " after step " << m_step;
        if (mine != m_known)
            ++m_step;
        m_known = mine;
    }

    /// What was answered to have been stored: MD5 and size by uuid.
    const std::map<std::string, std::pair<std::string, std::int64_t>>& files() const { return m_files; }

private:
    static constexpr int Steps = 11;

    Json uploaded(const char* id) {
        return docJson(id, "书.pdf", m_uuid, m_files[m_uuid].first, m_files[m_uuid].second);
    }
    Json filed(const char* id, const std::string& parent) {
        return filedJson(id, parent + "d", m_uuid, m_files[m_uuid].first, m_files[m_uuid].second);
    }

    std::string m_name;
    std::string m_cookie;
    int m_step = 0;
    std::string m_uuid;  // of the last upload
    std::map<std::string, std::pair<std::string, std::int64_t>> m_files;
    std::map<std::string, std::string> m_known;
    std::map<std::string, std::string> m_perhaps;
};

TEST_F(Process, TwoKilledWhileWritingKeepEveryAnsweredWriteAndNoHalfOnes) {
    constexpr int Rounds = 100;
    ASSERT_TRUE(run("seed --demo"));
    std::map<std::string, std::pair<std::string, std::int64_t>> stored;
    // Every row has its whole content; what has come since the last time is looked at.
    const auto checkFiles = [&] {
        soci::session sql = open();
        soci::rowset<soci::row> rows = (sql.prepare << "SELECT uuid, md5, CAST(size AS INTEGER) FROM stored_file");
        for (const soci::row& row : rows) {
            const auto uuid = row.get<std::string>(0);
            if (stored.contains(uuid))
                continue;
            const std::string content = contentOf(uuid);
            EXPECT_EQ(md5Of(content), row.get<std::string>(1));
            stored[uuid] = {md5Of(content), std::ssize(content)};
        }
    };
    std::string cookie;
    {
        Served served(folder, database);
        Client client(served.port());
        client.login("demo", "demo");
        cookie = client.cookie();
    }
    std::vector<Writer> writers;
    for (int i = 0; i < 4; ++i)
        writers.emplace_back(i, cookie);
    std::mt19937 random(20240601);
    for (int round = 0; round <= Rounds && !HasFailure(); ++round) {
        checkFiles();
        Served served(folder, database);
        Served beside(folder, database, {}, " beside");
        const auto json = Client(served.port(), cookie).get(std::string(ListPath) + FirstDept).json();
        ASSERT_TRUE(json.IsObject() && json["code"].GetInt() == 200) << round;
        std::map<std::string, std::string> all;
        std::set<std::pair<std::string, int>> places;
        for (const auto& c : json["result"].GetArray()) {
            const std::string parent = c["parentId"].GetString();
            EXPECT_TRUE(parent.empty() || all.contains(parent));
            EXPECT_TRUE(places.insert({parent, c["sort"].GetInt()}).second) << "half a move";
            all[c["id"].GetString()] = c["name"].GetString();
        }
        const auto tasks = Client(served.port(), cookie).get(PagePath + std::string("pageSize=200")).json();
        for (const auto& t : tasks["result"]["result"].GetArray())
            all[t["id"].GetString()] =
                t["name"].GetString() + ("/" + std::to_string(t["disclosureTaskReceiveUserList"].Size())) + "/" +
                std::to_string(t["disclosureTaskDocList"].Size()) + "/" +
                std::to_string(t["disclosureTaskViewportList"].Size() + t["disclosureTaskNodeList"].Size());
        const auto documents =
            Client(served.port(), cookie).get("/rs/platform/documents?pageSize=200&deptId=demo-dept-1").json();
        for (const auto& d : documents["result"]["list"].GetArray())
            all[d["id"].GetString()] = d["name"].GetString() + ("/" + std::to_string(d["contentNumber"].GetInt())) +
                                       "/" + std::to_string(d["tags"].Size());
        for (Writer& writer : writers)
            writer.check(all);

        // One is killed, and later, after the other has gone on, that one.
        std::atomic<int> answered[2]{};
        std::atomic<int> working[2]{2, 2};
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < writers.size(); ++i)
            threads.emplace_back([&, i] {
                writers[i].work((i % 2 ? beside : served).port(), answered[i % 2]);
                --working[i % 2];
            });
        for (Served* process : {&served, &beside}) {
            const int which = process == &beside;
            const int enough = answered[which] + 1 + static_cast<int>(random() % 16);
            while (answered[which] < enough && working[which] > 0)
                std::this_thread::yield();
            EXPECT_EQ(working[which], 2) << "it ended by itself";
            process->end(SIGKILL);
        }
        for (std::thread& thread : threads)
            thread.join();
    }
    checkFiles();
    for (const Writer& writer : writers) {
        EXPECT_FALSE(writer.files().empty());
        for (const auto& [uuid, file] : writer.files())
            EXPECT_TRUE(stored.contains(uuid) && stored[uuid] == file) << uuid;
    }
    soci::session sql = open();
    std::string verdict;
    sql << "PRAGMA integrity_check", soci::into(verdict);
    EXPECT_EQ(verdict, "ok");
    EXPECT_EQ(number("SELECT COUNT(*) FROM pragma_foreign_key_check"), 0);
    EXPECT_EQ(number("SELECT COUNT(*) FROM catalog c WHERE c.task_number <> (SELECT COUNT(*) FROM task t WHERE "
                     "t.dept_id = c.dept_id AND t.catalog_id = c.catalog_id)"),
              0);
    EXPECT_EQ(number("SELECT (SELECT c.subtree_number FROM catalog c WHERE c.parent_id IS NULL) - "
                     "(SELECT COUNT(*) FROM task)"),
              0);
    EXPECT_EQ(number(CountersAreWrong), 0);
    EXPECT_NO_THROW(sql << "INSERT INTO doc_gram (doc_gram) VALUES ('integrity-check')");
    EXPECT_NO_THROW(sql << "INSERT INTO task_gram (task_gram) VALUES ('integrity-check')");
}

TEST_F(Process, KilledWhileClearingARemovedCatalogItGoesOnAndNothingOfItIsSeen) {
    ASSERT_TRUE(run("seed --tasks 4000 --catalogs 30 --department small")) << output();
    const std::string removed = object({{"id", "small-c0"}, {"isContainsTask", 1}});
    const auto left = [this] {
        return number("SELECT (SELECT COUNT(*) FROM removal) * 100000 + (SELECT COUNT(*) FROM task)");
    };
    for (int round = 0; round < 4; ++round) {
        Served served(folder, database);
        Client client(served.port());
        ASSERT_EQ(client.login("small", "small").status, 200);
        if (round == 0) {
            ASSERT_EQ(client.del(DeletePath, removed).code(), 200);
        }
        EXPECT_EQ(client.get(TaskPath + "page_disclosure_task_by_deptid_and_catalogid?deptId=small").at("totalCount"),
                  "0");
        EXPECT_EQ(client.get(std::string(ListPath) + "small").json()["result"].Size(), 0U);
        for (int i = 0; round == 3 && i < 4000 && left() > 0; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        served.end(SIGKILL);
        EXPECT_TRUE(round > 0 || left() > 100'000) << "it was done before the kill";
    }
    EXPECT_EQ(left(), 0);
}

TEST_F(Process, KilledWhileMakingUpADepartmentItLeavesNothingOfIt) {
    ASSERT_TRUE(run("seed --demo"));
    ASSERT_TRUE(run("seed --tasks 500 --catalogs 20 --department small"));
    EXPECT_FALSE(run("seed --tasks 500 --catalogs 20 --department small")) << "there already";
    // As one that was ended before its end, which the next goes on with.
    for (const char* change :
         {"DELETE FROM granted WHERE dept_id = 'small'", "DELETE FROM member WHERE dept_id = 'small'",
          "DELETE FROM person WHERE username = 'small'",
          "UPDATE department SET dept_name = '压力测试项目部（未完成）' WHERE dept_id = 'small'"})
        open() << change;
    ASSERT_TRUE(run("seed --tasks 500 --catalogs 20 --department small")) << output();
    EXPECT_FALSE(run("seed --tasks 0"));
    EXPECT_FALSE(run("seed --demo --tasks 5"));
    const std::string kill =
        "timeout -s KILL 1 '" + Program + "' --database '" + database + "' seed --tasks 3000000 > /dev/null";
    EXPECT_NE(std::system(kill.c_str()), 0);
    Served served(folder, database);
    Client client(served.port());
    ASSERT_EQ(client.login("small", "small").status, 200);
    EXPECT_EQ(client.get(TaskPath + "page_disclosure_task_by_deptid_and_catalogid?deptId=small").at("totalCount"),
              "500");
    EXPECT_EQ(client.get("/rs/platform/projects").json()["result"].Size(), 1U);
    EXPECT_EQ(client.login("load-dept", "load-dept").status, 401);
}

}  // namespace
}  // namespace disclosure::testing
