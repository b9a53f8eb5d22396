// Feeds bytes to the real connection over a socket, and with them through the real framing, checks, routes and rules.
// Whatever comes must be answered in known ways, one after the other, and the connection must end.
#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/local/connect_pair.hpp>
#include <boost/asio/local/stream_protocol.hpp>
#include <boost/asio/read.hpp>
#include <boost/asio/strand.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <rapidjson/document.h>
#include <set>
#include <spdlog/spdlog.h>
#include <string>
#include <unistd.h>

#include "service/domain/Demo.h"
#include "service/domain/Passwords.h"
#include "service/http/Connection.h"
#include "service/store/SqliteDatabase.h"
#include "tests/service/TestService.h"

namespace {

using namespace disclosure;
namespace asio = boost::asio;
namespace http = boost::beast::http;

constexpr std::int64_t Now = 1'700'000'000'000;
const std::string SessionId(64, '0');

/// The service with the demonstration's data and a session whose id the corpus knows.
struct Subject {
    disclosure::testing::TempFolder folder;
    SqliteDatabase database{folder.file("fuzz.db")};
    FileFolder files{folder.file("files")};
    Service service{{{}, {}, [] { return Now; }, Passwords::Cost::Lowest}, files};
    Clients clients{{"127.0.0.1"}};
    ConnectionLimits limits;
    asio::io_context io;  // outlives the threads that hand over to it
    asio::executor_work_guard<asio::io_context::executor_type> guard{io.get_executor()};
    std::unique_ptr<IStore> store;
    std::unique_ptr<Dispatcher> dispatcher;

    Subject() {
        spdlog::set_level(spdlog::level::off);
        database.migrate();
        store = database.connect();
        seedDemo(*store, Passwords(Passwords::Cost::Lowest));
        const FileKey known{DemoDept, std::string(32, '0')};
        const auto writer = files.create(known.uuid);
        const std::string md5 = writer->finish();
        Transaction transaction(*store, IStore::Access::Write);
        store->addFile({known, "书.pdf", "pdf", md5, 0, "demo", Now});
        transaction.commit();
        dispatcher = std::make_unique<Dispatcher>(service, database, Dispatcher::Settings{});
    }
    /// Also after an input has logged out.
    void logIn() {
        const std::string hash = digestOf(SessionId);
        if (store->session(hash))
            return;
        Transaction transaction(*store, IStore::Access::Write);
        store->addSession({hash, "demo", Now, Now});
        transaction.commit();
    }

    /// Sends the bytes, says that no more will come, and returns all that is answered until the connection ends.
    std::string answersTo(const std::string& bytes) {
        asio::local::stream_protocol::socket client(io);
        asio::local::stream_protocol::socket server(io);
        asio::local::connect_pair(client, server);
        asio::ip::tcp::socket socket(asio::make_strand(io), asio::ip::tcp::v4(), server.release());
        auto connection = std::make_shared<Connection>(std::move(socket), asio::ip::address_v4::loopback(), *dispatcher,
                                                       clients, limits, nullptr);
        const std::weak_ptr<Connection> open = connection;
        connection->start();
        connection.reset();
        std::string answers;
        bool isRead = false;
        bool isWritten = false;
        asio::async_read(client, asio::dynamic_buffer(answers), [&](auto, auto) { isRead = true; });
        asio::async_write(client, asio::buffer(bytes), [&](auto, auto) {
            boost::system::error_code ignored;
            client.shutdown(asio::socket_base::shutdown_send, ignored);
            isWritten = true;
        });
        while (!isRead || !isWritten || !open.expired())
            io.run_one_for(std::chrono::milliseconds(1));
        return answers;
    }
};

[[noreturn]] void fail(const char* what, const Response& response) {
    std::cerr << what << ": " << response.result_int() << " " << response.body() << '\n';
    std::abort();
}

void check(const Response& response) {
    static const std::set<unsigned> known{100, 200, 302, 400, 401, 404, 405, 411, 413, 415, 429, 431};
    if (!known.contains(response.result_int()))
        fail("a status that says the service is at fault", response);
    const auto type = response[http::field::content_type];
    if (response.result_int() == 100 || response.result_int() == 302 || response[http::field::content_length] == "0" ||
        type.starts_with("application/yaml") || type == OctetStream)
        return;
    rapidjson::Document json;
    json.Parse<rapidjson::kParseValidateEncodingFlag>(response.body().data(), response.body().size());
    if (json.HasParseError() || !json.IsObject() || !json.HasMember("code") || !json.HasMember("result"))
        fail("an answer that is no wrapper", response);
    if (json["success"].GetBool() != (response.result_int() == 200 && json["code"].GetInt() == 200))
        fail("an answer that contradicts itself", response);
}

/// Answers that follow each other without a gap; the last one may be cut off only where the file it holds was.
void checkAll(const std::string& answers) {
    auto rest = asio::buffer(answers);
    while (rest.size() > 0) {
        http::response_parser<http::string_body> parser;
        parser.eager(true);
        boost::beast::error_code error;
        rest += parser.put(rest, error);
        if (error || !parser.is_done())
            fail("half an answer, or what is none", parser.get());
        check(parser.get());
    }
}

/// Few mutations spare all that a request needs to get past the border; most inputs get it back for their first one.
std::string repaired(std::string bytes) {
    const auto line = bytes.find("\r\n");
    if (line == std::string::npos)
        return bytes;
    const bool isUpload = bytes.find("/files?") < line;
    for (const std::string& needed :
         {std::string("Host: localhost\r\n"), "Cookie: JSESSIONID=" + SessionId + "\r\n",
          std::string("Content-Type: ") + (isUpload ? OctetStream : "application/json") + "\r\n"}) {
        const auto name = needed.substr(0, needed.find(' '));
        if (const auto known = bytes.find("\r\n" + name); known != std::string::npos)
            bytes.erase(known, std::min(bytes.find("\r\n", known + 2), bytes.size()) - known);
        bytes.insert(bytes.find("\r\n") + 2, needed);
    }
    // A body whose length is not what its header says would not be looked at: most mutations change the length.
    constexpr std::string_view Length = "\r\nContent-Length: ";
    const auto length = bytes.find(Length);
    const auto body = bytes.find("\r\n\r\n");
    if (length < body && body != std::string::npos) {
        const auto digits = length + Length.size();
        const std::size_t size = bytes.size() - body - 4;
        bytes.replace(digits, bytes.find("\r\n", digits) - digits, std::to_string(size));
    }
    return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static auto subject = std::make_unique<Subject>();
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    subject->logIn();
    checkAll(subject->answersTo(size % 4 == 0 ? bytes : repaired(bytes)));

    static unsigned answered = 0;
    if (++answered % 5000 == 0)
        subject = std::make_unique<Subject>();
    return 0;
}
