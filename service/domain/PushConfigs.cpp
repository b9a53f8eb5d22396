#include "service/domain/PushConfigs.h"

#include "service/domain/NewId.h"
#include "service/domain/Refusal.h"
#include "service/domain/TaskChecks.h"
#include "service/text/Text.h"

namespace disclosure {

void savePushConfig(IPushConfigStore& store, PushConfig config) {
    checkReminders(config);
    if (config.id.empty())
        config.id = newId();
    else if (!isId(config.id))
        throw Refusal(reasons::BadElementId);
    if (const auto known = store.pushConfig(config.deptId)) {
        if (*known == config)
            return;
        throw Refusal(reasons::PushConfigExists);
    }
    store.putPushConfig(config);
}

void updatePushConfig(IPushConfigStore& store, const PushConfig& stored, PushConfig config) {
    checkReminders(config);
    config.id = stored.id;
    config.deptId = stored.deptId;
    store.putPushConfig(config);
}

}  // namespace disclosure
