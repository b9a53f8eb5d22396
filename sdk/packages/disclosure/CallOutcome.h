#pragma once

#include <string>

#include "sdk/Export.h"

namespace DISCLOSUREPACKAGE {

/// How a call of the service ended.
enum class CallEnd {
    Answered,
    Refused,  // by a rule; the host has shown why
    Failed    // without an answer that could be used; nobody has been told
};

/// What became of the manager's last call, for the screen that got false from it.
struct CallOutcome {
    CallEnd end = CallEnd::Answered;
    std::wstring reason;  // of a failure, for the user
};

/// Process-wide; used on the UI thread only.
HOSTSDK_API const CallOutcome& LastCall();
/// The service layer notes the end of each of its calls; a screen that asks `LastCall` clears it before its call, which
/// may end without any of the service.
HOSTSDK_API void NoteCall(CallOutcome outcome);

}  // namespace DISCLOSUREPACKAGE
