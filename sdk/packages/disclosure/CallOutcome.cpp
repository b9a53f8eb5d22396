#include "sdk/packages/disclosure/CallOutcome.h"

#include <utility>

namespace DISCLOSUREPACKAGE {
namespace {

CallOutcome& Last() {
    static CallOutcome outcome;
    return outcome;
}

}  // namespace

const CallOutcome& LastCall() {
    return Last();
}

void NoteCall(CallOutcome outcome) {
    Last() = std::move(outcome);
}

}  // namespace DISCLOSUREPACKAGE
