// Feeds bytes, as they might come over a connection, through the real parser, checks, routes and rules on a database in
// memory. Any bytes at all must be answered in one of the known ways.
#include <boost/asio/buffer.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <rapidjson/document.h>
#include <set>
#include <spdlog/spdlog.h>
#include <string>

#include "service/domain/Demo.h"
#include "service/domain/Passwords.h"
#include "service/http/Service.h"
#include "service/http/Upload.h"
#include "service/store/SqliteDatabase.h"
#include "tests/service/TestService.h"

namespace {

using namespace disclosure;
namespace http = boost::beast::http;

/// The service with the demonstration's data and a session whose id the corpus knows: 64 times "0".
struct Subject {
    SqliteDatabase database{":memory:"};
    std::unique_ptr<IStore> store = database.connect();
    testing::TempFolder folder;
    FileFolder files{folder.file("files")};
    Service service{{{}, {}, [] { return std::int64_t{1'700'000'000'000}; }, Passwords::Cost::Lowest}, files};

    Subject() {
        spdlog::set_level(spdlog::level::off);
        seedDemo(*store, Passwords(Passwords::Cost::Lowest));
        const FileKey known{DemoDept, std::string(32, '0')};
        const auto writer = files.create(known.uuid);
        store->addFile({known, "书.pdf", "pdf", writer->finish(), 0, "demo", 1'700'000'000'000});
    }
    /// Also after an input has logged out.
    void logIn() {
        const std::string hash = digestOf(std::string(64, '0'));
        if (!store->session(hash))
            store->addSession({hash, "demo", 1'700'000'000'000, 1'700'000'000'000});
    }
};

[[noreturn]] void fail(const char* what, const Response& response) {
    std::cerr << what << ": " << response.result_int() << " " << response.body() << '\n';
    std::abort();
}

void check(const Response& response) {
    static const std::set<unsigned> known{200, 302, 400, 401, 404, 405, 411, 415, 429};
    if (!known.contains(response.result_int()))
        fail("a status that says the service is at fault", response);
    if (response.result_int() == 302 || response[http::field::content_type].starts_with("application/yaml"))
        return;
    rapidjson::Document json;
    json.Parse<rapidjson::kParseValidateEncodingFlag>(response.body().data(), response.body().size());
    if (json.HasParseError() || !json.IsObject() || !json.HasMember("code") || !json.HasMember("result"))
        fail("an answer that is no wrapper", response);
    if (json["success"].GetBool() != (response.result_int() == 200 && json["code"].GetInt() == 200))
        fail("an answer that contradicts itself", response);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static auto subject = std::make_unique<Subject>();
    http::request_parser<http::string_body> parser;
    parser.header_limit(16 * 1024);
    parser.body_limit(1024 * 1024);
    parser.eager(true);
    boost::beast::error_code error;
    parser.put(boost::asio::buffer(data, size), error);
    // A body whose length is not what its header says still goes on: most mutations change the length.
    if (!parser.is_header_done() || (error && error != http::error::need_more))
        return 0;
    Request request = parser.release();
    // Few mutations spare all that a request needs to get past the border; most inputs get it back.
    if (size % 4 != 0) {
        const bool upload = subject->service.workFor(request) == Work::Upload;
        request.set(http::field::host, "localhost");
        request.set(http::field::cookie, "JSESSIONID=" + std::string(64, '0'));
        request.set(http::field::content_type, upload ? OctetStream : "application/json");
    }
    subject->logIn();
    const bool needsStore = subject->service.workFor(request) != Work::None;
    const Reply reply = subject->service.answer(request, "127.0.0.1", needsStore ? subject->store.get() : nullptr);
    if (reply.file.upload) {
        try {
            reply.file.upload->take(request.body());
        } catch (const Refusal& refusal) {
            check(answerTo(refusal));
        }
        subject->service.giveUp(reply.file.upload->pending(), *subject->store);
    } else if (!reply.file.content) {
        check(reply.message);
    }

    static unsigned answered = 0;
    if (++answered % 5000 == 0)
        subject = std::make_unique<Subject>();
    return 0;
}
