#include "tests/service/TestService.h"

#include <array>
#include <boost/asio/write.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/write.hpp>
#include <chrono>
#include <openssl/evp.h>
#include <rapidjson/pointer.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>
#include <sodium.h>
#include <sstream>
#include <stdexcept>
#include <stdlib.h>

#include "service/domain/Demo.h"

namespace disclosure::testing {

namespace asio = boost::asio;
namespace http = boost::beast::http;
using asio::ip::tcp;

TempFolder::TempFolder() {
    std::string path = (std::filesystem::temp_directory_path() / "disclosure-XXXXXX").string();
    if (!::mkdtemp(path.data()))
        throw std::runtime_error("no folder for the test");
    m_path = path;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

rapidjson::Document Answer::json() const {
    rapidjson::Document document;
    document.Parse(body.data(), body.size());
    return document;
}

int Answer::code() const {
    const auto document = json();
    return document.IsObject() && document.HasMember("code") ? document["code"].GetInt() : -1;
}

std::string Answer::msg() const {
    const auto document = json();
    return document.IsObject() && document.HasMember("msg") ? document["msg"].GetString() : "";
}

std::string Answer::at(const std::string& places) const {
    const auto document = json();
    std::istringstream words(places);
    std::string all;
    for (std::string place; words >> place;) {
        const auto* value = rapidjson::Pointer(("/result/" + place).c_str()).Get(document);
        rapidjson::StringBuffer text;
        rapidjson::Writer<rapidjson::StringBuffer> writer(text);
        if (value && value->IsArray())
            writer.Uint(value->Size());
        else if (value && !value->IsString())
            value->Accept(writer);
        all += (value && value->IsString() ? value->GetString() : std::string(text.GetString())) + "|";
    }
    return all.substr(0, all.size() - 1);
}

namespace {

Answer read(tcp::socket& socket, boost::beast::flat_buffer& buffer) {
    boost::system::error_code error;
    http::response_parser<http::string_body> parser;
    parser.body_limit(64 * 1024 * 1024);
    http::read(socket, buffer, parser, error);
    Answer answer;
    if (error)
        return answer;
    const auto& response = parser.get();
    answer.status = static_cast<int>(response.result_int());
    answer.body = response.body();
    answer.etag = std::string(response[http::field::etag]);
    answer.disposition = std::string(response[http::field::content_disposition]);
    answer.retryAfter = std::string(response[http::field::retry_after]);
    answer.hasLocation = response.count(http::field::location) > 0;
    const auto cookie = response[http::field::set_cookie];
    answer.cookie = std::string(cookie.substr(0, cookie.find(';')));
    answer.keepsOpen = parser.keep_alive();
    return answer;
}

}  // namespace

Answer Client::send(const std::string& method, const std::string& target, const std::string& body,
                    const std::string& type) {
    http::request<http::string_body> request;
    request.version(11);
    request.method_string(method);
    request.target(target);
    request.set(http::field::host, "127.0.0.1:" + std::to_string(m_port));
    if (!m_cookie.empty())
        request.set(http::field::cookie, m_cookie);
    if (!body.empty()) {
        request.set(http::field::content_type, type);
        request.body() = body;
    }
    request.prepare_payload();

    boost::system::error_code error;
    if (!m_socket) {
        m_buffer.clear();
        m_socket.emplace(m_io);
        m_socket->connect(tcp::endpoint(asio::ip::address_v4::loopback(), m_port), error);
    }
    if (!error)
        http::write(*m_socket, request, error);
    Answer answer = error ? Answer{} : read(*m_socket, m_buffer);
    if (!answer.keepsOpen)
        m_socket.reset();
    return answer;
}

Wire::Wire(std::uint16_t port) {
    boost::system::error_code error;
    m_socket.connect(tcp::endpoint(asio::ip::address_v4::loopback(), port), error);
}

bool Wire::send(const std::string& bytes) {
    boost::system::error_code error;
    asio::write(m_socket, asio::buffer(bytes), error);
    return !error;
}

void Wire::end() {
    boost::system::error_code error;
    m_socket.shutdown(tcp::socket::shutdown_send, error);
}

Answer Wire::answer() {
    return read(m_socket, m_buffer);
}

Answer Client::raw(const std::string& bytes, bool end) {
    Wire wire(m_port);
    wire.send(bytes);
    if (end)
        wire.end();
    return wire.answer();
}

Answer Client::login(const std::string& username, const std::string& password) {
    Answer answer = post("/rs/auth/login", object({{"username", username}, {"password", password}}));
    if (!answer.cookie.empty())
        m_cookie = answer.cookie;
    return answer;
}

Server::Settings TestService::quick() {
    Server::Settings settings;
    settings.drainTime = std::chrono::seconds(2);
    return settings;
}

TestService::TestService(const Server::Settings& settings, const Dispatcher::Settings& dispatcher, std::int64_t quota) {
    m_database = std::make_unique<SqliteDatabase>(m_file);
    m_database->migrate();
    seedDemo(*m_database->connect(), Passwords(Passwords::Cost::Lowest));
    m_service = std::make_unique<Service>(
        Service::Settings{{"disclosure.example"}, {}, [this] { return now.load(); }, Passwords::Cost::Lowest, quota},
        m_files);
    m_dispatcher = std::make_unique<Dispatcher>(*m_service, *m_database, dispatcher);
    m_server = std::make_unique<Server>(*m_dispatcher, settings);
    m_thread = std::thread([this] { m_server->run(); });
}

TestService::~TestService() {
    end();
}

void TestService::end() {
    if (!m_thread.joinable())
        return;
    m_server->stop();
    m_thread.join();
}

Client TestService::loggedIn(const std::string& username) const {
    Client logger(port());
    if (logger.login(username, username).status != 200)
        throw std::runtime_error(username + " cannot log in");
    return Client(port(), logger.cookie());
}

void TestService::addTask(const std::string& deptId, const std::string& catalogId, const std::string& taskId) {
    Task task;
    task.deptId = deptId;
    task.id = taskId;
    task.catalogId = catalogId;
    task.name = "任务";
    const auto store = m_database->connect();
    Transaction transaction(*store, IStore::Access::Write);
    store->addTask(task);
    transaction.commit();
}

std::string TestService::addFile(const std::string& deptId, const std::string& uuid, const std::string& content) {
    const auto writer = m_files.create(uuid);
    writer->write(content);
    const std::string md5 = writer->finish();
    const auto store = m_database->connect();
    Transaction transaction(*store, IStore::Access::Write);
    store->addFile({{deptId, uuid}, "书.pdf", "pdf", md5, std::ssize(content), "demo", now});
    transaction.commit();
    return md5;
}

long long TestService::filesOnDisk() const {
    long long count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(m_files.path()))
        count += entry.is_regular_file() && entry.path().string().find("/unknown/") == std::string::npos ? 1 : 0;
    return count;
}

long long TestService::number(const std::string& query) const {
    soci::session sql(soci::sqlite3, "dbname=" + m_file);
    long long value = 0;
    sql << query, soci::into(value);
    return value;
}

void TestService::run(const std::string& statement) const {
    soci::session sql(soci::sqlite3, "dbname=" + m_file);
    sql << statement;
}

std::string md5Of(const std::string& content) {
    std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
    unsigned count = 0;
    EVP_Digest(content.data(), content.size(), bytes.data(), &count, EVP_md5(), nullptr);
    std::array<char, 2 * EVP_MAX_MD_SIZE + 1> text{};
    return sodium_bin2hex(text.data(), text.size(), bytes.data(), count);
}

namespace {

std::string joined(const std::vector<std::string>& parts, char open, char close) {
    std::string text(1, open);
    for (const std::string& part : parts)
        text += (text.size() > 1 ? "," : "") + part;
    return text + close;
}

}  // namespace

std::string wrong(std::initializer_list<std::pair<int, int>> steps) {
    std::string all;
    for (int number = 1; const auto& [code, expected] : steps) {
        if (const int step = number++; code != expected)
            all += "step " + std::to_string(step) + ": " + std::to_string(code) + "; ";
    }
    return all;
}

Json object(const Members& members, const Members& more) {
    std::vector<std::string> parts;
    for (const Members* some : {&members, &more}) {
        for (const auto& [key, value] : *some)
            parts.push_back('"' + key + "\":" + std::string(value));
    }
    return Json::written(joined(parts, '{', '}'));
}

Json list(const std::vector<Json>& values) {
    return Json::written(joined({values.begin(), values.end()}, '[', ']'));
}

std::string saveBody(const std::string& deptId, const std::string& id, const std::string& name,
                     const std::string& parentId) {
    return object({{"id", id}, {"deptId", deptId}, {"name", name}, {"parentId", parentId}});
}

}  // namespace disclosure::testing
