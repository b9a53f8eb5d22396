#include <fstream>
#include <list>
#include <mutex>
#include <random>
#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>
#include <thread>

#include "service/domain/Files.h"
#include "service/domain/Tasks.h"
#include "service/files/Sweep.h"
#include "service/store/SqlStore.h"
#include "tests/service/TaskTest.h"

namespace disclosure::testing {
namespace {

constexpr auto FilesPath = "/rs/platform/files";
const GoOn Always = [] { return true; };

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
    return std::string("POST ") + FilesPath + "?deptId=" + FirstDept + "&name=" + name +
           " HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/octet-stream\r\nCookie: " + cookie + "\r\n" +
           more + "\r\n";
}

std::string length(std::size_t size) {
    return "Content-Length: " + std::to_string(size) + "\r\n";
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
    Answer remove(Client client, const std::string& uuid) {
        return client.post(std::string(FilesPath) + "/delete", R"({"deptId":"demo-dept-1","uuid":")" + uuid + R"("})");
    }
    std::string docsWith(const std::string& uuid, const std::string& content) {
        return R"(,"disclosureTaskDocList":[)" + docJson("d", "书.pdf", uuid, md5Of(content), std::ssize(content)) +
               "]";
    }
};

TEST_F(FileRules, AFileComesBackAsItWasSent) {
    for (const std::size_t size : {0U, 1U, 262'144U, 262'145U, 3'000'000U}) {
        const std::string content = noise(size);
        const Answer answer = demo.raw(uploadHead(demo.cookie(), length(size), "%E4%B9%A6.PDF") + content);
        const std::string uuid = uuidOf(answer);
        const auto json = answer.json();
        const auto& result = json["result"];
        EXPECT_EQ(result["md5"].GetString(), md5Of(content));
        EXPECT_EQ(result["size"].GetInt64(), std::ssize(content));
        EXPECT_STREQ(result["name"].GetString(), "书.PDF");
        EXPECT_STREQ(result["extension"].GetString(), "pdf");
        const Answer got = demo.get(pathOf(uuid));
        EXPECT_EQ(got.status, 200);
        EXPECT_TRUE(got.body == content) << size;
        EXPECT_EQ(got.etag, "\"" + md5Of(content) + "\"");
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
    EXPECT_EQ(
        demo.post(std::string(FilesPath) + "/delete", R"({"deptId":"demo-dept-1","uuid":")" + uuid + "\"}").code(),
        200);
    EXPECT_EQ(demo.upload(FirstDept, "c.pdf", noise(60'000)).code(), 200);
    expectNothingStays(service, 2);
}

TEST(FileLimits, OnlySoManyUploadsAtOnceAndNoneIsWaitedForLong) {
    Server::Settings settings = TestService::quick();
    settings.limits.pieceTime = std::chrono::milliseconds(400);
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
    EXPECT_EQ(service.loggedIn("zhoujie").get(pathOf(photo)).code(), 404);
    const auto confirm = [&](const std::string& attachment) {
        return by("second", "confirm_by_disclosure_user", "t",
                  R"(,"attachementList":[{"name":"a",)" + attachment + "}]")
            .code();
    };
    EXPECT_EQ(confirm(R"("uuid":")" + photo + "\""), 422) << "somebody else's";
    EXPECT_EQ(confirm(R"("thumbnailUuid":")" + photo + "\""), 422);
    service.run("UPDATE stored_file SET uploaded_by = 'second' WHERE uuid = '" + photo + "'");
    ASSERT_EQ(confirm(R"("uuid":")" + photo + R"(","thumbnailUuid":")" + uuid + "\""), 200);
    EXPECT_EQ(service.loggedIn("zhoujie").get(pathOf(photo)).body, "photo");

    const auto store = service.database().connect();
    Transaction transaction(*store, IStore::Access::Write);
    StoredFile own = *store->file({FirstDept, uuid});
    store->removeFile(own.key);
    own.username = "chenwei";
    store->addFile(own);
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
    std::mutex writers;
    SqlStore store(std::move(sql), "BEGIN IMMEDIATE", writers);
    PendingFile pending{{FirstDept, std::string(32, 'a')}, std::string(3'000'000, 'n'), "pdf", 1, "demo", 1};
    service.addFile(SecondDept, pending.key.uuid, "x");
    service.run("DELETE FROM stored_file WHERE dept_id = 'demo-dept-2'");
    service.database().connect()->addUpload(pending);
    EXPECT_EQ(full.keep(pending, md5Of("x"), store).result_int(), 507U);
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
    EXPECT_EQ(
        save(taskBody("s", "库", R"(,"disclosureTaskDocList":[{"name":"a","refDocId":"r","sourceType":0}])")).code(),
        200);
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

TEST_F(FileRules, WhatNoTaskHasForADayIsSweptAway) {
    constexpr std::chrono::hours Keep{24};
    const auto store = service.database().connect();
    const auto sweep = [&] { sweepFiles(*store, service.files(), Keep, service.now, Always); };
    const auto there = [&](const std::string& uuid) {
        const bool row = store->knowsFile(uuid);
        EXPECT_EQ(row, service.files().open(uuid) != nullptr) << "the row and its content go together";
        return row;
    };
    const std::string loose = stored("loose");
    const std::string used = stored("used");
    ASSERT_EQ(save(taskBody("t", "任务", docsWith(used, "used"))).code(), 200);
    ASSERT_EQ(save(taskBody("u", "任务", docsWith(used, "used"))).code(), 200);
    service.now += ADay - 1;
    sweep();
    EXPECT_TRUE(there(loose));
    service.now += 1;
    sweep();
    EXPECT_FALSE(there(loose));
    EXPECT_TRUE(there(used));

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
    EXPECT_TRUE(there(used)) << "for a day";
    service.now += 1;
    sweep();
    EXPECT_FALSE(there(used));
}

TEST_F(FileRules, WhatACrashHasLeftIsSweptAwayAndNothingElse) {
    const auto age = [](const std::filesystem::path& file, std::chrono::hours hours) {
        std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now() - hours);
    };
    const std::filesystem::path folder = std::filesystem::path(service.file()).parent_path() / "files";
    const std::string kept = stored("kept");
    age(folder / kept.substr(0, 2) / kept, std::chrono::hours(100));
    std::filesystem::create_directories(folder / "aa");
    std::ofstream(folder / "aa" / std::string(32, 'a')) << "old";
    std::ofstream(folder / "aa" / ("aa" + std::string(30, 'b'))) << "new";
    age(folder / "aa" / std::string(32, 'a'), std::chrono::hours(25));
    const auto store = service.database().connect();
    for (const char digit : {'1', '2', '3'})
        store->addUpload({{FirstDept, std::string(32, digit)}, "", "", 10, "demo", service.now});
    for (const char digit : {'1', '2'})
        std::ofstream(folder / "incoming" / std::string(32, digit)) << "half";
    age(folder / "incoming" / std::string(32, '1'), std::chrono::hours(2));

    const auto sweep = [&](const GoOn& goOn) {
        sweepFiles(*store, service.files(), std::chrono::hours(24), service.now, goOn);
    };
    sweep(Always);
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM file_upload"), 3);
    service.now += 6LL * 60 * 1000;
    std::ofstream(folder / "aa" / std::string(32, 'a')) << "old";
    age(folder / "aa" / std::string(32, 'a'), std::chrono::hours(25));
    sweep([] { return false; });
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM file_upload"), 3) << "it ends when it is to";
    EXPECT_EQ(service.filesOnDisk(), 4);
    sweep(Always);
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM file_upload WHERE uuid LIKE '33%'"), 0) << "it has no file";
    service.now += 2LL * 60 * 60 * 1000;
    sweep(Always);
    EXPECT_EQ(service.number("SELECT SUM(1 + 9 * (uuid NOT LIKE '22%')) FROM file_upload"), 1) << "that still grows";
    EXPECT_EQ(service.filesOnDisk(), 3) << "kept, new, and the one that still grows";
    demo.login("demo", "demo");
    EXPECT_EQ(demo.get(pathOf(kept)).body, "kept");
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
        sweepFiles(*store, service.files(), std::chrono::hours(24), service.now, Always);
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
