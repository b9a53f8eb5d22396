#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <future>

#include "sdk/Export.h"

namespace BASEUI {

/// What the user sees of a wait, and what he may do.
struct Waiting {
    /// How much of a transfer is done, in bytes; a `total` of 0 is unknown.
    struct Amount {
        int64_t done = 0;
        int64_t total = 0;
    };

    bool canCancel = false;  // for what may be given up halfway: reads and transfers
    std::function<Amount()> amount = {};
    std::chrono::milliseconds busyAfter{300};  // the pointer shows it
    std::chrono::milliseconds dialogAfter{2000};
};

/// Waits in place until `end` is ready; false when the user has given up before. On the UI thread the windows go on
/// being painted meanwhile, but no input, no closing of a window and no timer gets in, so that nothing re-enters the
/// caller; what is typed and clicked before the progress dialog shows is handled afterwards. Only what was posted to
/// objects comes through, which is what Qt makes of `singleShot(0)` and of a queued call too: who has to let a call
/// come to its end does it by a timer that runs. Elsewhere it just waits.
HOSTSDK_API bool Wait(const std::future<void>& end, const Waiting& waiting = {});

}  // namespace BASEUI
