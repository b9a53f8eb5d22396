#pragma once

#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>
#include <string>

#include "tests/support/ScriptedServer.h"

namespace support {

inline ScriptedServer::Reply result(const std::string& json) {
    return {200, R"({"code":200,"success":true,"msg":"","result":)" + json + "}"};
}

inline ScriptedServer::Reply refusal(int status, int code, const std::string& msg) {
    return {status, R"({"code":)" + std::to_string(code) + R"(,"success":false,"msg":")" + msg + R"(","result":null})"};
}

inline ScriptedServer::Reply sessionExpired() {
    return {302, "", ""};
}

/// Answers as the service does: a login gives a new session, everything else asks for the latest one.
class TestPlatform {
public:
    explicit TestPlatform(std::string projects = R"([{"ppid":1,"name":"一号楼","deptId":"D1"},)"
                                                 R"({"ppid":2,"name":"二号楼","deptId":"D2"}])")
        : m_projects(std::move(projects)), server([this](const auto& request) { return answer(request); }) {}

    /// All sessions so far end.
    void expireSessions() { ++m_generation; }

    ScriptedServer::Reply answer(const ScriptedServer::Request& request) {
        const std::string path = request.target.substr(0, request.target.find('?'));
        const std::string session = "S" + std::to_string(m_generation);
        if (path == "/healthz")
            return {200, "{}"};
        if (path == "/rs/auth/login") {
            if (request.body.find(R"("password":"demo")") == std::string::npos)
                return refusal(401, 401, "用户名或密码不正确");
            auto reply = result(kUser);
            reply.headers = {"Set-Cookie: JSESSIONID=" + session + "; Path=/; HttpOnly"};
            return reply;
        }
        const auto cookie = request.headers.find("cookie");
        if (cookie == request.headers.end() || cookie->second != "JSESSIONID=" + session)
            return sessionExpired();
        if (path == "/rs/platform/current_user")
            return result(kUser);
        if (path == "/rs/platform/projects")
            return result(m_projects);
        if (path == "/rs/platform/rights")
            return result(request.target.find("deptId=D1") == std::string::npos
                              ? "[]"
                              : R"(["AUTH_JIAODIGUANLI_EDITMULU","AUTH_OF_SOMETHING_ELSE"])");
        if (path == "/rs/platform/departments")
            return result(R"([{"deptId":"D1","deptName":"第一项目部","parentId":null},)"
                          R"({"deptId":"D11","deptName":"钢筋班","parentId":"D1"}])");
        if (path == "/rs/platform/users")
            return result(std::string("[") + kUser + "]");
        return result("null");
    }

    static constexpr char kUser[] = R"({"username":"demo","realname":"张工","userHeadUuid":null,"deptId":"D1"})";

private:
    std::string m_projects;
    std::atomic<int> m_generation = 1;

public:
    ScriptedServer server;  // last: its thread uses everything above
};

}  // namespace support
