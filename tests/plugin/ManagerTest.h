#pragma once

#include <gmock/gmock.h>

#include "plugin/service/CDisclosureManageMgr.h"
#include "tests/support/FakeHost.h"
#include "tests/support/Golden.h"
#include "tests/support/RawHttpServer.h"

namespace support {

const RawHttpServer::Answer kDone =
    RawHttpServer::json(R"({"code":200,"success":true,"result":{"resultState":false}})");
const RawHttpServer::Answer kExpired = RawHttpServer::text("302 Found", {}, {});

/// The manager in a host whose managers are all there, logged in to a service that the test scripts.
class ManagerTest : public testing::Test {
protected:
    ManagerTest() { host.web.address = std::wstring(L"127.0.0.1:") + port(); }

    std::wstring port() const {
        const std::string address = server.address();
        return std::wstring(address.begin() + static_cast<std::ptrdiff_t>(address.find(':')) + 1, address.end());
    }

    static RawHttpServer::Answer answerOf(const std::string& result) {
        return RawHttpServer::json(R"({"code":200,"result":)" + result + "}");
    }
    void answer(const RawHttpServer::Answer& next) {
        server.reset();
        server.then(next);
    }
    RawHttpServer::Request last() const { return server.requests().back(); }
    std::string lastCall() const { return last().method + " " + last().target + " " + last().body; }

    RawHttpServer server;
    FakeHost host;
    DISCLOSUREPACKAGE::CDisclosureManageMgr object{BASECORE::NAMES::kDisclosure};
    DISCLOSUREPACKAGE::IDisclosureManageMgr& manager = object;
};

}  // namespace support
