#include <chrono>

#include "tests/service/TestService.h"

namespace disclosure::testing {
namespace {

class BadInput : public ::testing::Test {
protected:
    void SetUp() override { before = count(); }
    /// Whatever came in: nothing is stored and the service answers as before.
    void TearDown() override {
        EXPECT_EQ(count(), before);
        EXPECT_EQ(demo.get("/rs/platform/current_user").code(), 200);
    }
    long long count() { return service.number("SELECT COUNT(*) FROM catalog"); }
    std::string saveHead(const std::string& more) { return demo.head("POST", SavePath, more); }

    TestService service;
    Client demo{service.loggedIn("demo")};
    long long before = 0;
};

TEST_F(BadInput, BodiesThatAreNotWhatTheyShouldBe) {
    const std::string deep(100'000, '[');
    const std::vector<std::string> bodies{
        "{",
        "nonsense",
        "[]",
        "null",
        "\"text\"",
        "{}",
        R"({"deptId":"demo-dept-1"})",
        R"({"deptId":"demo-dept-1","name":null,"parentId":"demo-catalog-1"})",
        R"({"deptId":"demo-dept-1","name":7,"parentId":"demo-catalog-1"})",
        R"({"deptId":"demo-dept-1","name":["x"],"parentId":"demo-catalog-1"})",
        R"({"deptId":"demo-dept-1","name":"a","name":"b","parentId":"demo-catalog-1"})",
        R"({"deptId":"demo-dept-1","name":"a\u0000b","parentId":"demo-catalog-1"})",
        R"({"deptId":"demo-dept-1","name":"\ud800","parentId":"demo-catalog-1"})",
        R"({"deptId":"demo-dept-1","name":"\udc00x","parentId":"demo-catalog-1"})",
        "{\"deptId\":\"demo-dept-1\",\"name\":\"\xff\xfe\",\"parentId\":\"demo-catalog-1\"}",
        "{\"deptId\":\"demo-dept-1\",\"name\":\"\xed\xa0\x80\",\"parentId\":\"demo-catalog-1\"}",
        "{\"deptId\":\"demo-dept-1\",\"name\":\"\xc0\xaf\",\"parentId\":\"demo-catalog-1\"}",
        R"({"deptId":"demo-dept-1","name":"a","parentId":"demo-catalog-1"} trailing)",
        deep,
        R"({"deptId":"demo-dept-1","name":"a","parentId":"demo-catalog-1","x":)" + deep + std::string(100'000, ']') +
            "}",
    };
    for (const std::string& body : bodies) {
        const Answer answer = demo.post(SavePath, body);
        EXPECT_EQ(answer.status, 400) << body.substr(0, 100);
        EXPECT_EQ(answer.code(), 400);
        EXPECT_FALSE(answer.msg().empty());
    }
    for (const char* body : {R"({"id":"demo-catalog-2","offset":"1"})", R"({"id":"demo-catalog-2","offset":1.5})",
                             R"({"id":"demo-catalog-2","offset":2})", R"({"id":"demo-catalog-2","offset":-1})",
                             R"({"id":"demo-catalog-2","offset":99999999999999999999})", R"({"id":"demo-catalog-2"})",
                             R"({"id":2,"offset":1})"})
        EXPECT_EQ(demo.post(MovePath, body).status, 400) << body;
    for (const char* body :
         {R"({"id":"demo-catalog-2","isContainsTask":2})", R"({"id":"demo-catalog-2","isContainsTask":true})"})
        EXPECT_EQ(demo.del(DeletePath, body).status, 400) << body;
    EXPECT_EQ(demo.post(UpdatePath, R"({"id":"demo-catalog-2' OR '1'='1","name":"x"})").code(), 404);
}

TEST_F(BadInput, MediaTypes) {
    const std::string body = saveBody("none", "", "a", Top);  // refused by a rule once it is read
    for (const char* type :
         {"text/plain", "application/xml", "application/json; charset=gbk", "application/jsonx", ";"})
        EXPECT_EQ(demo.send("POST", SavePath, body, type).status, 415) << type;
    for (const char* type : {"application/json;charset=UTF-8", "Application/JSON ; charset=\"utf-8\""})
        EXPECT_EQ(demo.send("POST", SavePath, body, type).code(), 404) << type;
    EXPECT_EQ(demo.send("POST", SavePath, "").status, 415);
}

TEST_F(BadInput, TargetsMethodsAndHosts) {
    for (const char* target :
         {"/rs/platform/rights?deptId=%", "/rs/platform/rights?deptId=%zz", "/rs/platform/rights?deptId=%4z",
          "/rs/platform/rights?deptId=%00", "/rs/platform/rights?deptId=%ff", "/rs/%c0%af",
          "/rs/platform/rights?deptId=a&deptId=b", "/rs/platform/rights", "*"})
        EXPECT_EQ(demo.get(target).status, 400) << target;
    EXPECT_EQ(demo.get("/rs/platform/rights?deptId=").code(), 404);
    EXPECT_EQ(demo.get("/rs/platform/rights?x=1&deptId=demo%2Ddept-1&y").code(), 200) << "unknown keys do no harm";
    for (const char* target : {"/rs/unknown", "/unknown", "/rs/disclosure/catalog/../catalog/save"})
        EXPECT_EQ(demo.get(target).status, 404) << target;
    for (const char* method : {"GET", "PATCH", "BREW"})
        EXPECT_EQ(demo.send(method, SavePath, "").status, 405) << method;

    const Answer head405 = demo.raw(demo.head("HEAD", "/healthz", "\r\n"));
    EXPECT_EQ(head405.status, 405);
    EXPECT_TRUE(head405.body.empty()) << "or it would be read as the next answer";

    const auto at = [&](const std::string& hosts) {
        return demo.raw("GET /healthz HTTP/1.1\r\n" + hosts + "\r\n").status;
    };
    for (const char* hosts : {"Host: disclosure.example:8780\r\n", "Host: [::1]:80\r\n"})
        EXPECT_EQ(at(hosts), 200) << hosts;
    for (const char* hosts : {"Host: evil.example\r\n", "Host: localhost:80@evil.example\r\n",
                              "Host: localhost\r\nHost: evil.example\r\n", ""})
        EXPECT_EQ(at(hosts), 400) << hosts;
}

TEST_F(BadInput, FramingThatTwoServersCouldReadDifferently) {
    const std::string body = saveBody(FirstDept, "", "夹带", Top);
    const std::string length = "Content-Length: " + std::to_string(body.size()) + "\r\n";
    for (const std::string& more : {length + "Content-Length: 1\r\n", length + "Transfer-Encoding: chunked\r\n",
                                    std::string("Content-Length: -1\r\n"), std::string("Content-Length: 1x\r\n"),
                                    std::string("Content-Length: 99999999999999999999\r\n"),
                                    length + "Bad Header: x\r\n", length + " folded: x\r\n"})
        EXPECT_EQ(demo.raw(saveHead(more) + "\r\n" + body).status, 400) << more;
    const std::string upload = "/rs/platform/files?deptId=demo-dept-1&name=a.pdf";
    for (const char* coding : {"gzip", "identity", "chunked, chunked", "gzip, chunked",
                               "x\r\nTransfer-Encoding: chunked", "chunked\r\nContent-Length: 5"}) {
        const std::string more = std::string("Transfer-Encoding: ") + coding + "\r\n";
        EXPECT_EQ(demo.raw(saveHead(more) + "\r\n" + body).status, 400) << more;
        EXPECT_EQ(demo.raw(saveHead(more + length) + "\r\n" + body).status, 400) << more;
        Wire kept(service.port());
        kept.send(demo.head("POST", upload, more + "\r\n", OctetStream) + demo.head("GET", "/healthz", "\r\n"));
        EXPECT_EQ(kept.answer().status, 400) << more;
        EXPECT_EQ(kept.answer().status, 0) << "nothing behind it is read as a request";
    }
    EXPECT_EQ(demo.raw(saveHead("Transfer-Encoding: chunked\r\n\r\nzz\r\n")).status, 400);
    EXPECT_EQ(demo.raw("GET / HTTP/9.9\r\n\r\n").status, 400);
    EXPECT_EQ(demo.raw(std::string("\0\1\2\3\r\n\r\n", 8)).status, 400);
    EXPECT_EQ(demo.raw(saveHead(length) + "\r\n" + body.substr(0, 20), true).status, 0) << "half a body is no request";
}

TEST_F(BadInput, Sizes) {
    EXPECT_EQ(demo.raw(demo.head("GET", "/healthz", "X-Long: " + std::string(200'000, 'x') + "\r\n\r\n")).status, 431);
    EXPECT_EQ(demo.get("/healthz?" + std::string(100'000, 'q')).status, 431);
    const std::string large(1024 * 1024 + 1, ' ');
    EXPECT_EQ(demo.post(SavePath, large).status, 413);
    std::string chunks;
    for (int i = 0; i < 20; ++i)
        chunks += "10000\r\n" + std::string(0x10000, ' ') + "\r\n";
    EXPECT_EQ(demo.raw(saveHead("Transfer-Encoding: chunked\r\n\r\n") + chunks).status, 413);
    EXPECT_EQ(demo.post(SavePath, std::string(1024 * 1024, ' ')).status, 400) << "as much as may be, but no JSON";
    EXPECT_EQ(demo.post(SavePath, saveBody(FirstDept, "", std::string(900'000, 'n'), Top)).code(), 422);
    EXPECT_EQ(demo.post(SavePath, saveBody(std::string(500'000, 'd'), std::string(400'000, 'i'), "n", Top)).code(),
              404);
}

TEST(SlowClients, AreCutOffAndHoldUpNobody) {
    Server::Settings settings = TestService::quick();
    settings.limits.headerTime = settings.limits.stall = std::chrono::milliseconds(100);
    TestService service(settings);
    Client demo = service.loggedIn("demo");
    std::vector<std::thread> slow;
    for (int i = 0; i < 20; ++i)
        slow.emplace_back([&] {
            EXPECT_EQ(service.client().raw("GET /healthz HT").status, 0);
            EXPECT_EQ(service.client()
                          .raw("POST /rs/auth/login HTTP/1.1\r\nHost: localhost\r\nContent-Length: 9\r\n\r\nx")
                          .status,
                      0);
        });
    EXPECT_EQ(demo.get("/rs/platform/current_user").code(), 200);
    for (std::thread& thread : slow)
        thread.join();
}

}  // namespace
}  // namespace disclosure::testing
