#pragma once

#include "service/ports/IPushConfigStore.h"

namespace disclosure {

/// Sets when the department's people are reminded, once; saying the same again changes nothing. Throws `Refusal`.
void savePushConfig(IPushConfigStore& store, PushConfig config);
/// Changes what is `stored`.
void updatePushConfig(IPushConfigStore& store, const PushConfig& stored, PushConfig config);

}  // namespace disclosure
