#include <boost/asio/read.hpp>
#include <boost/asio/write.hpp>
#include <chrono>
#include <future>

#include "tests/service/TestService.h"

namespace disclosure::testing {
namespace {

using std::chrono::milliseconds;

/// Holds the database against every other writer.
class Lock {
public:
    explicit Lock(const TestService& service) : m_sql(soci::sqlite3, "dbname=" + service.file()) {
        m_sql << "BEGIN IMMEDIATE";
    }
    void release() { m_sql << "ROLLBACK"; }

private:
    soci::session m_sql;
};

TEST(Connections, WhatAStrangerSendsIsBoundedAndASessionIsLookedAtBeforeABody) {
    TestService service;
    const Client demo = service.loggedIn("demo");
    const Client stranger = service.client();
    const auto save = [](const Client& client, const std::string& more) {
        return client.head("POST", SavePath, more + "\r\n");
    };
    const std::string chunked = "Transfer-Encoding: chunked\r\n";
    const std::string large = "Content-Length: 1000000\r\n";
    const std::string body = saveBody(FirstDept, "", "尾部", Top);
    const std::string length = "Content-Length: " + std::to_string(body.size());
    char size[16];
    std::snprintf(size, sizeof size, "%zx", body.size());
    const std::string chunk = std::string(size) + "\r\n" + body + "\r\n0\r\n";
    // Nothing is said of the end of what is sent: who waits for more would not answer.
    const std::tuple<const char*, std::string, int> rows[] = {
        {"an extension without an end", save(demo, chunked) + "5;" + std::string(100'000, 'x'), 400},
        {"any extension", save(demo, chunked) + "5;x\r\n", 400},
        {"trailers without an end", save(demo, chunked) + "0\r\n" + std::string(100'000, 'x'), 400},
        {"a trailer", save(demo, chunked) + chunk + "X-Late: 1\r\n\r\n", 400},
        {"a trailer announced", save(demo, chunked + "Trailer: X\r\n") + chunk + "\r\n", 400},
        {"a chunked body without more", save(demo, chunked) + chunk + "\r\n", 200},
        {"no session, a large body", save(stranger, large), 302},
        {"no session, leave for it", save(stranger, large + "Expect: 100-continue\r\n"), 302},
        {"no session, chunks", save(Client(0, "JSESSIONID=x"), chunked), 302},
        {"a session, leave for it", save(demo, large + "Expect: 100-continue\r\n"), 100},
        {"a session, no such operation", demo.head("POST", "/rs/none", large + "\r\n"), 404},
        {"a log-in's large body", stranger.head("POST", "/rs/auth/login", "Content-Length: 9000\r\n\r\n"), 413},
        {"a log-in's chunks", stranger.head("POST", "/rs/auth/login", chunked + "\r\n") + "2329\r\n", 413},
        {"a large body for nothing", stranger.head("POST", "/none", large + "\r\n"), 413},
        {"the same length twice", save(demo, length + "\r\n" + length + "\r\n") + body, 400},
        {"a list of equal lengths", save(demo, length + ", " + std::to_string(body.size()) + "\r\n") + body, 400},
    };
    for (const auto& [what, bytes, status] : rows) {
        Wire wire(service.port());
        wire.send(bytes);
        EXPECT_EQ(wire.answer().status, status) << what;
    }
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM catalog WHERE name = '尾部'"), 1);
}

TEST(Connections, WhoReadsSlowlyGetsEverythingAndWhoStopsIsCutOff) {
    Server::Settings settings = TestService::quick();
    settings.limits.stall = milliseconds(1000);
    TestService service(settings);
    service.run(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 4000) INSERT INTO catalog "
        "(dept_id, catalog_id, parent_id, name, sort, depth) SELECT 'demo-dept-1', 'x' || i, "
        "'demo-catalog-1', i || hex(zeroblob(200)), 1000 + i, 2 FROM n");
    Client demo = service.loggedIn("demo");
    const std::size_t size = demo.get(std::string(ListPath) + FirstDept).body.size();
    ASSERT_GT(size, 1'500'000U);
    namespace asio = boost::asio;
    asio::io_context io;
    const auto request = demo.head("GET", std::string(ListPath) + FirstDept, "\r\n");
    // How much can be read with a pause after each piece, and one before the first.
    const auto read = [&](milliseconds pause, milliseconds first) {
        asio::ip::tcp::socket socket(io, asio::ip::tcp::v4());
        socket.set_option(asio::socket_base::receive_buffer_size(32 * 1024));
        socket.connect({asio::ip::address_v4::loopback(), service.port()});
        asio::write(socket, asio::buffer(request));
        std::this_thread::sleep_for(first);
        std::vector<char> piece(64UL * 1024);
        std::size_t all = 0;
        boost::system::error_code error;
        while (!error && all < size) {
            all += asio::read(socket, asio::buffer(piece), asio::transfer_at_least(1), error);
            std::this_thread::sleep_for(pause);
        }
        return all;
    };
    auto slow = std::async(std::launch::async, [&] { return read(milliseconds(30), milliseconds(0)); });
    EXPECT_LT(read(milliseconds(0), milliseconds(3000)), size) << "it stood still";
    EXPECT_GE(slow.get(), size);
}

TEST(Connections, OneClientHasAShareOfThemAndAProxyHasAll) {
    for (const bool isProxy : {false, true}) {
        Server::Settings settings = TestService::quick();
        settings.connectionsOfOne = 3;
        if (isProxy)
            settings.proxies = {"127.0.0.0/8"};
        TestService service(settings);
        const std::string asked = "GET /healthz HTTP/1.1\r\nHost: localhost\r\n\r\n";
        std::list<Wire> open;
        for (int i = 1; i <= 5; ++i) {
            open.emplace_back(service.port()).send(asked);
            EXPECT_EQ(open.back().answer().status, isProxy || i <= 3 ? 200 : 0) << i;
        }
        open.clear();
        for (int i = 0; i < 1000 && service.client().get("/healthz").status != 200; ++i)
            std::this_thread::sleep_for(milliseconds(5));
        EXPECT_EQ(service.client().get("/healthz").status, 200) << "a place is given back";
    }
}

TEST(Connections, TheEndDropsWhatIsStillWaiting) {
    Server::Settings settings = TestService::quick();
    settings.drainTime = milliseconds(100);
    auto service = std::make_unique<TestService>(settings);
    const auto number = [&] { return service->number("SELECT COUNT(*) FROM catalog"); };
    const long long before = number();
    const Client demo = service->loggedIn("demo");
    Lock lock(*service);
    std::list<Wire> waiting;
    for (int i = 0; i < 4; ++i) {
        const std::string body = saveBody(FirstDept, "", "名" + std::to_string(i), Top);
        waiting.emplace_back(service->port())
            .send(demo.head("POST", SavePath, "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n") + body);
    }
    std::this_thread::sleep_for(milliseconds(300));
    std::thread release([&] {
        std::this_thread::sleep_for(milliseconds(1000));
        lock.release();
    });
    service->end();
    release.join();
    EXPECT_LE(number(), before + 1) << "only what was in hand";
}

/// The service's own threads, with requests handed over within the process.
class Dispatching : public ::testing::Test {
protected:
    Request asked(const std::string& target, const std::string& body = {}) {
        Request request(body.empty() ? boost::beast::http::verb::get : boost::beast::http::verb::post, target, 11);
        request.set(boost::beast::http::field::host, "localhost");
        request.set(boost::beast::http::field::cookie, cookie);
        request.set(boost::beast::http::field::content_type, "application/json");
        request.body() = body;
        return request;
    }
    std::future<Reply> dispatch(Dispatcher& dispatcher, Request request, const std::string& client) {
        auto reply = std::make_shared<std::promise<Reply>>();
        dispatcher.dispatch(std::move(request), client, [reply](Reply given) { reply->set_value(std::move(given)); });
        return reply->get_future();
    }

    TestService service;
    std::string cookie = service.loggedIn("demo").cookie();
    Service own{{{}, {}, [this] { return service.now.load(); }, Passwords::Cost::Lowest}, service.files()};
};

TEST_F(Dispatching, NoClientFillsTheQueueOfLogIns) {
    Dispatcher::Settings settings;
    settings.loginsOfOne = 2;
    Dispatcher dispatcher(own, service.database(), settings);
    Lock lock(service);
    const std::string body = R"({"username":"demo","password":"demo"})";
    auto first = dispatch(dispatcher, asked("/rs/auth/login", body), "a");
    auto second = dispatch(dispatcher, asked("/rs/auth/login", body), "a");
    EXPECT_EQ(dispatch(dispatcher, asked("/rs/auth/login", body), "a").get().message.result_int(), 503U);
    auto other = dispatch(dispatcher, asked("/rs/auth/login", body), "b");
    lock.release();
    for (auto* reply : {&first, &second, &other})
        EXPECT_EQ(reply->get().message.result_int(), 200U);
}

TEST_F(Dispatching, AChangeThatHasWaitedTooLongForItsTurnIsToComeBackAndReadingGoesOn) {
    Dispatcher::Settings settings;
    settings.patience = std::chrono::milliseconds(-1);
    Dispatcher dispatcher(own, service.database(), settings);
    const Response late = dispatch(dispatcher, asked(SavePath, saveBody(FirstDept, "", "迟", Top)), "a").get().message;
    EXPECT_EQ(late.result_int(), 503U);
    EXPECT_EQ(late[boost::beast::http::field::retry_after], "1");
    EXPECT_EQ(dispatch(dispatcher, asked("/rs/platform/current_user"), "a").get().message.result_int(), 200U);
}

TEST_F(Dispatching, NobodyTakesAllTheDownloads) {
    const std::string uuid(32, 'a');
    service.addFile(FirstDept, uuid, "content");
    Dispatcher::Settings settings;
    settings.downloads = 3;
    settings.downloadsOfOne = 2;
    Dispatcher dispatcher(own, service.database(), settings);
    const auto download = [&] {
        return dispatch(dispatcher, asked("/rs/platform/files/" + uuid + "?deptId=demo-dept-1"), "a").get();
    };
    std::list<Reply> mine{download(), download()};
    EXPECT_TRUE(mine.back().file.content);
    EXPECT_EQ(download().message.result_int(), 503U);
    cookie = service.loggedIn("reader").cookie();
    const Reply others = download();
    EXPECT_TRUE(others.file.content);
    cookie = service.loggedIn("editor").cookie();
    EXPECT_EQ(download().message.result_int(), 503U) << "there are three in all";
    mine.clear();
    EXPECT_TRUE(download().file.content);
}

TEST_F(Dispatching, ABusyDatabaseIsNoFaultOfTheService) {
    Lock lock(service);
    soci::session hasty(soci::sqlite3, "dbname=" + service.file());
    try {
        hasty << "BEGIN IMMEDIATE";
        FAIL();
    } catch (...) {
        const Response answer = answerToFailure("test");
        EXPECT_EQ(answer.result_int(), 503U);
        EXPECT_EQ(answer[boost::beast::http::field::retry_after], "1");
    }
}

TEST_F(Dispatching, BehindTlsTheCookieIsSecure) {
    const auto store = service.database().connect();
    for (const bool secure : {true, false}) {
        const Service subject(
            {{}, {}, [this] { return service.now.load(); }, Passwords::Cost::Lowest, 1'000'000, secure},
            service.files());
        for (const Request& request :
             {asked("/rs/auth/login", R"({"username":"demo","password":"demo"})"), asked("/rs/auth/logout", "{}")}) {
            const Reply reply = subject.answer(request, "a", store.get());
            const auto set = reply.message[boost::beast::http::field::set_cookie];
            EXPECT_EQ(set.find("; Secure") != set.npos, secure) << set;
        }
        cookie = service.loggedIn("demo").cookie();
    }
}

TEST(ClientAddresses, AreThoseThatCanBeBelieved) {
    const Clients clients({"10.0.0.0/8", "192.168.1.7", "fd00::/16"});
    // Peer, what X-Forwarded-For says, what counts as the client.
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"1.2.3.4", "", "1.2.3.4"},
        {"1.2.3.4", "5.6.7.8", "1.2.3.4"},
        {"192.168.1.8", "5.6.7.8", "192.168.1.8"},
        {"192.168.1.7", "5.6.7.8", "5.6.7.8"},
        {"::ffff:192.168.1.7", "9.9.9.9 ,\t5.6.7.8 ", "5.6.7.8"},
        {"10.9.8.7", "9.9.9.9, 5.6.7.8, 10.1.1.1", "5.6.7.8"},
        {"10.9.8.7", "9.9.9.9, nonsense, 10.1.1.1", "10.1.1.1"},
        {"10.9.8.7", "", "10.9.8.7"},
        {"fd00::1", "2001:db8:1:2:3:4:5:6", "2001:db8:1:2::/64"},
        {"2001:db8:1:2:ffff::1", "5.6.7.8", "2001:db8:1:2::/64"},
        {"2001:db8:1:3::1", "", "2001:db8:1:3::/64"},
        {"::ffff:1.2.3.4", "", "1.2.3.4"},
    };
    for (const auto& [peer, forwarded, client] : rows)
        EXPECT_EQ(Clients::keyOf(clients.behind(boost::asio::ip::make_address(peer), forwarded)), client)
            << peer << " " << forwarded;
    for (const char* wrong : {"", "localhost", "10.0.0.0/33", "10.0.0/8", "fd00::/129", "10.0.0.1/"})
        EXPECT_THROW(Clients({wrong}), std::invalid_argument) << wrong;
}

}  // namespace
}  // namespace disclosure::testing
