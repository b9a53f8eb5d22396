#pragma once

#include "service/http/Route.h"

namespace disclosure {

/// The messages of the person who asks.
Response pageMessages(Call& call);
Response unreadMessages(Call& call);
Response markMessagesRead(Call& call);

}  // namespace disclosure
