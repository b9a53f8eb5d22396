#include <mutex>
#include <random>

#include "service/domain/Files.h"
#include "service/domain/Tasks.h"
#include "service/files/Sweep.h"
#include "service/store/SqlStore.h"
#include "tests/service/TaskTest.h"

namespace disclosure::testing {
namespace {

constexpr auto FilesPath = "/rs/platform/files";
const GoOn Always = [] { return true; };
constexpr std::chrono::hours Keep{24};
constexpr std::chrono::hours Aside{14 * 24};

std::string noise(std::size_t size) {
    std::mt19937 random(static_cast<unsigned>(size));
    std::string text(size, 'x');
    for (std::size_t i = 1; i < size; ++i)
        text[i] = static_cast<char>(random());
    return text;
}

std::string uuidOf(const Answer& answer) {
    EXPECT_EQ(answer.code(), 200) << answer.body;
    return answer.code() == 200 ? answer.json()["result"]["uuid"].GetString() : "";
}

std::string pathOf(const std::string& uuid, const std::string& deptId = FirstDept) {
    return std::string(FilesPath) + "/" + uuid + "?deptId=" + deptId;
}

/// The header of an upload by the person of the cookie.
std::string uploadHead(const std::string& cookie, const std::string& more, const std::string& name = "a.pdf") {
    return Client(0, cookie).head("POST", std::string(FilesPath) + "?deptId=" + FirstDept + "&name=" + name,
                                  more + "\r\n", OctetStream);
}

std::string length(std::size_t size) {
    return "Content-Length: " + std::to_string(size) + "\r\n";
}

Answer takeBack(Client& client, const std::string& uuid) {
    return client.post(std::string(FilesPath) + "/delete", R"({"deptId":"demo-dept-1","uuid":")" + uuid + R"("})");
}

/// What is given up is removed by another thread, a moment later.
void expectNothingStays(const TestService& service, long long files = 0) {
    const std::string rows = "SELECT (SELECT COUNT(*) FROM file_upload) * 1000 + (SELECT COUNT(*) FROM stored_file)";
    for (int i = 0; i < 2000 && (service.number(rows) != files || service.filesOnDisk() != files); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(service.number(rows), files);
    EXPECT_EQ(service.filesOnDisk(), files);
}

class FileRules : public TaskTest {
protected:
    std::string stored(const std::string& content, const std::string& name = "a.pdf") {
        return uuidOf(demo.upload(FirstDept, name, content));
    }
    Answer remove(Client client, const std::string& uuid) { return takeBack(client, uuid); }
    static std::string docsWith(const std::string& uuid, const std::string& content,
                                const char* list = "disclosureTaskDocList") {
        return std::string(",\"") + list + "\":[" + docJson("d", "书.pdf", uuid, md5Of(content), std::ssize(content)) +
               "]";
    }
    void sweep(const GoOn& goOn = Always) {
        const auto store = service.database().connect();
        sweepFiles(*store, service.files(), Keep, service.now, goOn);
        sortFolder(*store, service.files(), Keep, Aside, goOn);
    }
    bool lies(const std::string& uuid, const char* where = "") const {
        return std::filesystem::exists(service.placeOf(uuid, where));
    }
    /// Whether the database knows the file; its content goes with the row, and is then set aside.
    bool there(const std::string& uuid) {
        const bool row = service.database().connect()->knowsFile(uuid);
        EXPECT_TRUE(lies(uuid) == row && lies(uuid, "unknown") != row) << uuid;
        return row;
    }
    /// Writes a content as if it had been done so long ago.
    void put(const std::filesystem::path& file, std::chrono::hours age) {
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file) << "content";
        std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now() - age);
    }
};

TEST_F(FileRules, AFileComesBackAsItWasSent) {
    for (const std::size_t size : {0U, 1U, 262'144U, 262'145U, 3'000'000U}) {
        const std::string content = noise(size);
        const Answer answer = demo.raw(uploadHead(demo.cookie(), length(size), "%E4%B9%A6%22%3B.PDF") + content);
        const std::string uuid = uuidOf(answer);
        const auto json = answer.json();
        const auto& result = json["result"];
        EXPECT_EQ(result["md5"].GetString(), md5Of(content));
        EXPECT_EQ(result["size"].GetInt64(), std::ssize(content));
        EXPECT_STREQ(result["name"].GetString(), "书\";.PDF");
        EXPECT_STREQ(result["extension"].GetString(), "pdf");
        const Answer got = demo.get(pathOf(uuid));
        EXPECT_EQ(got.status, 200);
        EXPECT_TRUE(got.body == content) << size;
        EXPECT_EQ(got.etag, "\"" + md5Of(content) + "\"");
        EXPECT_EQ(got.disposition, "attachment; filename*=UTF-8''%E4%B9%A6%22%3B.PDF");
    }
    expectNothingStays(service, 5);
}

TEST_F(FileRules, WhatMayNotBeIsRefusedAndNothingIsStored) {
    const std::string wide(256, 'n');
    const std::tuple<std::string, std::string, const char*> refused[] = {
        {"a.rtf", "x", "文件格式不支持，请重新选择文件"},
        {"pdf", "x", "文件格式不支持，请重新选择文件"},
        {"a.pdf.exe", "x", "文件格式不支持，请重新选择文件"},
        {"", "x", "文件名不能为空"},
        {"%20%20", "x", "文件名不能为空"},
        {wide + ".pdf", "x", "文件名不能超过255个字符"},
        {"a%0Ab.pdf", "x", "文件名不能包含路径和控制字符"},
        {"..%2F..%2Fa.pdf", "x", "文件名不能包含路径和控制字符"},
        {"C:%5Ca.pdf", "x", "文件名不能包含路径和控制字符"},
        {"a.pdf", std::string("MZ\x90\0", 4), "不能上传可执行文件"},
        {"a.jpg", std::string("\x7f") + "ELF" + noise(600'000), "不能上传可执行文件"},
        {"a.txt", "#!/bin/sh\n", "不能上传可执行文件"},
        {"a.png", "\xcf\xfa\xed\xfe", "不能上传可执行文件"},
        {"a.png", "\xca\xfe\xba\xbf", "不能上传可执行文件"},
    };
    for (const auto& [name, content, msg] : refused) {
        const Answer answer = demo.upload(FirstDept, name, content);
        EXPECT_EQ(answer.status, 200) << name;
        EXPECT_EQ(answer.msg(), msg) << name;
    }
    EXPECT_EQ(demo.upload("none", "a.pdf", "x").code(), 404);
    EXPECT_EQ(demo.upload(SecondDept, "a.pdf", "x").code(), 404);
    EXPECT_EQ(service.loggedIn("reader").upload(FirstDept, "a.pdf", "x").code(), 403);
    expectNothingStays(service);
}

TEST_F(FileRules, TheSizeIsLookedAtBeforeTheBody) {
    const std::string waits = "Expect: 100-continue\r\n";
    EXPECT_EQ(demo.raw(uploadHead(demo.cookie(), waits + length(525'336'576))).msg(), "请上传500M以内的文件");
    EXPECT_EQ(demo.raw(uploadHead(demo.cookie(), waits + length(525'336'575))).status, 100);
    EXPECT_EQ(demo.raw(uploadHead(demo.cookie(), waits + length(99), "a.exe")).code(), 422) << "instead of leave";
    EXPECT_EQ(demo.raw(uploadHead("JSESSIONID=x", waits + length(9))).status, 302);
    expectNothingStays(service);
}

TEST_F(FileRules, MalformedUploadsAreRefusedAndLeaveNothing) {
    const std::string cookie = demo.cookie();
    EXPECT_EQ(demo.raw(uploadHead(cookie, "")).status, 411);
    EXPECT_EQ(demo.raw(uploadHead(cookie, "Transfer-Encoding: chunked\r\n") + "1\r\nx\r\n0\r\n\r\n").status, 411);
    EXPECT_EQ(demo.raw(uploadHead(cookie, length(1) + length(2)) + "xx").status, 400);
    EXPECT_EQ(demo.raw(uploadHead(cookie, length(18'446'744'073'709'551'615U)) + "xx").code(), 422);
    EXPECT_EQ(demo.send("POST", std::string(FilesPath) + "?deptId=demo-dept-1&name=a.pdf", "x").status, 415);
    EXPECT_EQ(demo.send("POST", std::string(FilesPath) + "?name=a.pdf", "x", OctetStream).status, 400);
    EXPECT_EQ(demo.send("POST", std::string(FilesPath) + "?deptId=demo-dept-1", "x", OctetStream).status, 400);
    EXPECT_EQ(demo.raw(uploadHead(cookie, length(1'000'000)) + noise(600'000), true).status, 0) << "cut off";
    EXPECT_EQ(demo.get(pathOf("..%2F..%2Fdisclosure.db")).code(), 404);
    EXPECT_EQ(demo.get(std::string(FilesPath) + "/" + std::string(32, 'a')).status, 400);
    EXPECT_EQ(demo.get("/rs/platform/current_user").code(), 200);
    expectNothingStays(service);
}

TEST(FileLimits, ADepartmentHasItsQuotaTheFilesOnTheirWayIncluded) {
    TestService service(TestService::quick(), {}, 100'000);
    Client demo = service.loggedIn("demo");
    Wire coming(service.port());
    coming.send(uploadHead(demo.cookie(), "Expect: 100-continue\r\n" + length(60'000)));
    ASSERT_EQ(coming.answer().status, 100);
    const Answer over = demo.upload(FirstDept, "b.pdf", noise(40'001));
    EXPECT_EQ(over.code(), 409);
    EXPECT_EQ(over.msg(), "部门的文件存储空间已用完");
    EXPECT_EQ(demo.upload(FirstDept, "b.pdf", noise(40'000)).code(), 200);
    coming.send(noise(60'000));
    const std::string uuid = uuidOf(coming.answer());
    EXPECT_EQ(demo.upload(FirstDept, "c.pdf", "x").code(), 409);
    EXPECT_EQ(demo.raw(uploadHead(demo.cookie(), length(0))).code(), 409) << "an empty one, too";
    EXPECT_EQ(takeBack(demo, uuid).code(), 200);
    EXPECT_EQ(demo.upload(FirstDept, "c.pdf", noise(60'000)).code(), 200);
    expectNothingStays(service, 2);
}

TEST(FileLimits, OnlySoManyUploadsAtOnceAndNoneIsWaitedForLong) {
    Server::Settings settings = TestService::quick();
    settings.limits.stall = std::chrono::milliseconds(400);
    Dispatcher::Settings places;
    places.uploads = 6;
    TestService service(settings, places);
    Client demo = service.loggedIn("demo");
    std::list<Wire> coming;
    for (const auto& [person, most] : {std::pair("demo", 4), std::pair("editor", 2)}) {
        Client client = service.loggedIn(person);
        for (int i = 0; i < most; ++i) {
            coming.emplace_back(service.port())
                .send(uploadHead(client.cookie(), "Expect: 100-continue\r\n" + length(60'000)));
            ASSERT_EQ(coming.back().answer().status, 100);
        }
        const Answer busy = client.upload(FirstDept, "b.pdf", "x");
        EXPECT_EQ(busy.status, 503) << person;
        EXPECT_EQ(busy.retryAfter, "1");
    }
    EXPECT_EQ(demo.get("/rs/platform/current_user").code(), 200);
    coming.front().send(noise(60'000));
    EXPECT_EQ(coming.front().answer().code(), 200);
    coming.pop_front();
    for (Wire& stalled : coming)
        EXPECT_EQ(stalled.answer().status, 0);
    EXPECT_EQ(demo.upload(FirstDept, "b.pdf", "x").code(), 200);
    expectNothingStays(service, 2);
}

TEST(FileLimits, AnUploadThatOutlastsTheDrainIsCutOff) {
    Server::Settings settings = TestService::quick();
    settings.drainTime = std::chrono::milliseconds(100);
    auto service = std::make_unique<TestService>(settings);
    Wire coming(service->port());
    coming.send(uploadHead(service->loggedIn("demo").cookie(), "Expect: 100-continue\r\n" + length(600'000)));
    ASSERT_EQ(coming.answer().status, 100);
    coming.send(noise(300'000));
    service.reset();
    EXPECT_EQ(coming.answer().status, 0);
}

TEST_F(FileRules, AFileIsReadByMembersItsUploaderAndWhoMaySeeATaskWithIt) {
    const std::string uuid = stored("content");
    const auto read = [&](const char* person) { return service.loggedIn(person).get(pathOf(uuid)); };
    EXPECT_EQ(read("reader").body, "content");
    EXPECT_EQ(read("zhoujie").body, service.loggedIn("zhoujie").get(pathOf(std::string(32, 'a'))).body);
    EXPECT_EQ(read("zhoujie").code(), 404);
    EXPECT_EQ(service.client().get(pathOf(uuid)).status, 302);
    EXPECT_EQ(demo.get(pathOf(uuid, SecondDept)).code(), 404) << "it is not that department's";

    const std::string people =
        R"(,"disclosureUserName":"second","disclosureTaskReceiveUserList":[{"userName":"zhoujie"}])";
    ASSERT_EQ(save(taskBody("t", "任务", people + docsWith(uuid, "content"))).code(), 200);
    EXPECT_EQ(read("second").body, "content") << "the discloser";
    EXPECT_EQ(read("zhoujie").code(), 404) << "not published yet";
    ASSERT_EQ(update("t", R"(,"isPublish":1)").code(), 200);
    EXPECT_EQ(read("zhoujie").body, "content");

    const std::string photo = stored("photo", "a.jpg");
    const std::string own = stored("mine", "b.jpg");
    service.run("UPDATE stored_file SET uploaded_by = 'second' WHERE uuid = '" + own + "'");
    EXPECT_EQ(service.loggedIn("zhoujie").get(pathOf(own)).code(), 404);
    const auto thumbnail = [](const std::string& file, const std::string& content) {
        return R"(,"thumbnailUuid":")" + file + R"(","thumbnailMd5":")" + md5Of(content) + R"(","thumbnailSize":)" +
               std::to_string(content.size());
    };
    // File, its content as it is told, thumbnail
    const std::tuple<std::string, std::string, std::string, int> attachments[] = {
        {photo, "photo", "", 422},  // somebody else's
        {own, "mine", thumbnail(photo, "photo"), 422},
        {own, "mini", "", 422},
        {own, "mine!", "", 422},
        {uuid, "contend", "", 422},
        {own, "mine", thumbnail(uuid, "contend"), 422},
        {"", "", "", 422},
        {own, "mine", thumbnail(uuid, "content"), 200},
    };
    for (const auto& [file, content, more, code] : attachments) {
        std::string list = docsWith(file, content, "attachementList");
        list.insert(list.size() - 2, more);
        EXPECT_EQ(by("second", "confirm_by_disclosure_user", "t", list).code(), code) << list;
    }
    EXPECT_EQ(service.loggedIn("zhoujie").get(pathOf(own)).body, "mine");

    const auto store = service.database().connect();
    Transaction transaction(*store, IStore::Access::Write);
    StoredFile theirs = *store->file({FirstDept, uuid});
    store->removeFile(theirs.key);
    theirs.username = "chenwei";
    store->addFile(theirs);
    transaction.commit();
    ASSERT_EQ(demo.del(TaskPath + "batchdelete", R"({"ids":["t"]})").code(), 200);
    EXPECT_EQ(read("zhoujie").code(), 404);
    service.files().remove(uuid);
    EXPECT_EQ(read("chenwei").code(), 404) << "its content is gone";
}

TEST_F(FileRules, ADatabaseWithoutRoomIsAFullDiskAndNothingStays) {
    const Service full({{}, {}, [] { return std::int64_t{1}; }, Passwords::Cost::Lowest}, service.files());
    auto sql = std::make_unique<soci::session>(soci::sqlite3, "dbname=" + service.file());
    *sql << "PRAGMA max_page_count = 1";  // as many as there are
    std::timed_mutex writers;
    SqlStore store(std::move(sql), "BEGIN IMMEDIATE", writers, [] {});
    PendingFile pending{{FirstDept, std::string(32, 'a')}, std::string(3'000'000, 'n'), "pdf", 1, "demo", 1};
    service.addFile(SecondDept, pending.key.uuid, "x");
    service.run("DELETE FROM stored_file WHERE dept_id = 'demo-dept-2'");
    service.database().connect()->addUpload(pending);
    EXPECT_EQ(full.uploadEnd().keep(pending, md5Of("x"), store).result_int(), 507U);
    expectNothingStays(service);
}

TEST_F(FileRules, OnlyTheUploaderTakesBackWhatNoTaskHas) {
    const std::string uuid = stored("content");
    EXPECT_EQ(remove(service.loggedIn("editor"), uuid).code(), 403);
    EXPECT_EQ(remove(service.loggedIn("zhoujie"), uuid).code(), 404);
    ASSERT_EQ(save(taskBody("t", "任务", docsWith(uuid, "content"))).code(), 200);
    EXPECT_EQ(remove(service.loggedIn("demo"), uuid).code(), 409);
    EXPECT_EQ(demo.get(pathOf(uuid)).body, "content");
    ASSERT_EQ(update("t", R"(,"delDisclosureTaskDocIds":["d"])").code(), 200);
    EXPECT_EQ(remove(service.loggedIn("demo"), uuid).code(), 200);
    EXPECT_EQ(remove(service.loggedIn("demo"), uuid).code(), 200) << "again";
    EXPECT_EQ(remove(service.loggedIn("demo"), "../../disclosure.db").code(), 200) << "no such file";
    EXPECT_EQ(demo.get(pathOf(uuid)).code(), 404);
    expectNothingStays(service);
}

TEST_F(FileRules, ATasksUploadedDocumentsAreStoredFilesOfItsDepartment) {
    const std::string uuid = stored("content");
    const std::string md5 = md5Of("content");
    service.addFile(SecondDept, std::string(32, 'c'), "content");
    for (const std::string& doc :
         {docJson("d", "a", "none", md5, 7), docJson("d", "a", uuid, md5, 8), docJson("d", "a", uuid, md5Of("x"), 7),
          docJson("d", "a", std::string(32, 'c'), md5, 7)}) {
        const Answer answer = save(taskBody("t", "任务", R"(,"disclosureTaskDocList":[)" + doc + "]"));
        EXPECT_EQ(answer.code(), 422) << doc;
        EXPECT_EQ(answer.msg(), "资料尚未上传或已失效，请重新上传");
    }
    const std::string body = taskBody("t", "任务", docsWith(uuid, "content"));
    ASSERT_EQ(save(body).code(), 200);
    EXPECT_EQ(update("t", R"(,"saveDisclosureTaskDocList":[)" + docJson("e", "b", "none", md5, 7) + "]").code(), 422);

    const auto store = service.database().connect();
    Transaction transaction(*store, IStore::Access::Write);
    store->removeFile({FirstDept, uuid});
    transaction.commit();
    EXPECT_EQ(save(body).code(), 200) << "again";
    EXPECT_EQ(update("t", R"(,"name":"改")").code(), 200) << "what the task has stays";
    EXPECT_EQ(update("t", R"(,"saveDisclosureTaskDocList":[)" + docJson("e", "b", uuid, md5, 7) + "]").code(), 200);
    EXPECT_EQ(save(taskBody("u", "任务", docsWith(uuid, "content"))).code(), 422);
}

TEST_F(FileRules, WhatACommitThatFailsHasBegunIsUndoneOnTheDiskToo) {
    const std::string uuid = stored("kept");
    // Whatever becomes of a stored file refers to nobody, which is only looked at when the transaction is to end.
    service.run("CREATE TABLE held (who REFERENCES person (username) DEFERRABLE INITIALLY DEFERRED)");
    for (const char* change : {"INSERT", "DELETE"})
        service.run(std::string("CREATE TRIGGER hold_") + change + " AFTER " + change +
                    " ON stored_file BEGIN INSERT INTO held VALUES ('nobody'); END");
    EXPECT_EQ(demo.upload(FirstDept, "b.pdf", "lost").status, 500);
    EXPECT_EQ(takeBack(demo, uuid).status, 500);
    expectNothingStays(service, 1);
    EXPECT_EQ(demo.get(pathOf(uuid)).body, "kept");
    EXPECT_EQ(service.number("SELECT SUM(bytes) FROM file_usage"), 4);
}

TEST_F(FileRules, WhatNoTaskHasForADayIsSetAside) {
    const std::string loose = stored("loose");
    const std::string used = stored("used");
    const std::string photo = stored("photo", "a.jpg");
    const std::string small = stored("small", "a.jpg");
    for (const char* id : {"t", "u"})
        ASSERT_EQ(save(taskBody(id, "任务", docsWith(used, "used"))).code(), 200);
    service.run("INSERT INTO task_attachment SELECT dept_id, rid, 0, 'a', 'a', '" + photo + "', '', 0, 'jpg', '" +
                small + "', '', 0 FROM task WHERE task_id = 'u'");
    service.now += ADay - 1;
    sweep();
    EXPECT_TRUE(there(loose));
    service.now += 1;
    sweep();
    EXPECT_FALSE(there(loose));
    EXPECT_TRUE(there(used) && there(photo) && there(small));

    demo.login("demo", "demo");
    ASSERT_EQ(update("t", R"(,"delDisclosureTaskDocIds":["d"])").code(), 200);
    sweep();
    service.now += 2 * ADay;
    sweep();
    EXPECT_TRUE(there(used)) << "the other task has it";
    demo.login("demo", "demo");
    ASSERT_EQ(demo.del(DeletePath, R"({"id":"demo-catalog-2","isContainsTask":1})").code(), 200);
    sweep();
    service.now += ADay - 1;
    sweep();
    EXPECT_TRUE(there(used) && there(photo) && there(small)) << "for a day";
    service.now += 1;
    sweep();
    EXPECT_FALSE(there(used) || there(photo) || there(small));
}

TEST_F(FileRules, WhatACrashHasLeftIsSweptAwayAndNothingElse) {
    const std::filesystem::path incoming = service.files().path() / "incoming";
    const std::string kept = stored("kept");
    put(service.placeOf(kept), std::chrono::hours(100));
    const std::string old(32, 'a');
    const std::string fresh = "aa" + std::string(30, 'b');
    put(service.placeOf(old), std::chrono::hours(25));
    put(service.placeOf(fresh), std::chrono::hours(23));
    const auto store = service.database().connect();
    for (const char digit : {'1', '2', '3'})
        store->addUpload({{FirstDept, std::string(32, digit)}, "", "", 10, "demo", service.now});
    put(incoming / std::string(32, '1'), std::chrono::hours(2));
    put(incoming / std::string(32, '2'), std::chrono::hours(0));

    sweepFiles(*store, service.files(), Keep, service.now, Always);
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM file_upload"), 3);
    service.now += 6LL * 60 * 1000;
    put(incoming / std::string(32, '1'), std::chrono::hours(2));
    sweep([] { return false; });
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM file_upload"), 3) << "it ends when it is to";
    sweep();
    EXPECT_TRUE(lies(old, "unknown"));
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM file_upload WHERE uuid LIKE '33%'"), 0) << "it has no file";
    service.now += 2LL * 60 * 60 * 1000;
    sweep();
    EXPECT_EQ(service.number("SELECT SUM(1 + 9 * (uuid NOT LIKE '22%')) FROM file_upload"), 1) << "that still grows";
    EXPECT_EQ(service.number("SELECT bytes FROM file_usage"), 14) << "with the kept one's";
    EXPECT_TRUE(lies(kept) && lies(fresh));
    EXPECT_EQ(service.filesOnDisk(), 3) << "kept, new, and the one that still grows";
}

TEST_F(FileRules, WhatTheDatabaseDoesNotKnowWaitsForItsRow) {
    // As after an older database has been put in the place of the one that knew them.
    const std::string read = stored("content");
    const std::string swept = stored("content");
    const std::string never = stored("content");
    service.run("CREATE TABLE newer AS SELECT * FROM stored_file");
    service.run("DELETE FROM stored_file");
    for (const std::string& uuid : {read, swept, never})
        put(service.placeOf(uuid), std::chrono::hours(100));
    sweep();
    EXPECT_FALSE(there(read) || there(swept) || there(never));
    const auto aside = [&](const std::string& uuid, std::chrono::hours age) {
        put(service.placeOf(uuid, "unknown"), age);
    };
    for (const std::string& uuid : {read, swept, never})
        aside(uuid, Aside - std::chrono::hours(1));
    sweep();
    EXPECT_TRUE(lies(never, "unknown"));
    service.run("INSERT INTO stored_file SELECT * FROM newer WHERE uuid <> '" + never + "'");
    for (const std::string& uuid : {swept, never})
        aside(uuid, Aside + std::chrono::hours(1));
    EXPECT_EQ(demo.get(pathOf(read)).body, "content") << "at once";
    sweep();
    EXPECT_TRUE(there(read) && there(swept));
    EXPECT_FALSE(lies(never) || lies(never, "unknown"));
}

TEST_F(FileRules, ASweepAndATaskThatRefersToTheFileAtThatMomentAgree) {
    constexpr int Rounds = 60;
    std::vector<std::string> uuids;
    for (int i = 0; i < Rounds; ++i)
        uuids.push_back(stored("c" + std::to_string(i)));
    service.now += ADay;
    demo.login("demo", "demo");
    std::thread sweeper([&] {
        const auto store = service.database().connect();
        sweepFiles(*store, service.files(), Keep, service.now, Always);
    });
    int saved = 0;
    for (int i = 0; i < Rounds; ++i) {
        const std::string id = "t" + std::to_string(i);
        const int code =
            save(taskBody(id, id, docsWith(uuids[static_cast<std::size_t>(i)], "c" + std::to_string(i)))).code();
        EXPECT_TRUE(code == 200 || code == 422) << code;
        saved += code == 200 ? 1 : 0;
    }
    sweeper.join();
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM task_doc d JOIN stored_file f ON f.uuid = d.uuid"), saved);
    expectNothingStays(service, saved);
}

}  // namespace
}  // namespace disclosure::testing
