#pragma once

#include <memory>

#include "client/api/ApiClient.h"

namespace DISCLOSUREPACKAGE {

/// Makes the client of the disclosure service out of what the host knows: the address and the session. One in the
/// process, created on first use and never destroyed; used from the UI thread only.
class ServiceClientProvider {
public:
    static ServiceClientProvider& Instance();

    /// A client with the host's present address and session. Without a web manager or a session the client made
    /// before; null when there never was one.
    std::shared_ptr<io::swagger::client::api::ApiClient> GetClient();

private:
    ServiceClientProvider() = default;

    std::shared_ptr<io::swagger::client::api::ApiConfiguration> m_configuration;
    std::shared_ptr<io::swagger::client::api::ApiClient> m_client;
};

}  // namespace DISCLOSUREPACKAGE
