#pragma once

#include <optional>
#include <string>
#include <vector>

#include "service/ports/TaskRecords.h"

namespace disclosure {

/// When the departments want to be reminded.
class IPushConfigStore {
public:
    virtual std::optional<PushConfig> pushConfig(const std::string& deptId) = 0;
    virtual std::vector<PushConfig> pushConfigsOfMember(const std::string& username, const std::string& id) = 0;
    virtual void putPushConfig(const PushConfig& config) = 0;
    /// The settings of the departments that want to be reminded of anything.
    virtual std::vector<PushConfig> remindingConfigs() = 0;

protected:
    ~IPushConfigStore() = default;
};

}  // namespace disclosure
