#include "sdk/packages/disclosure/LastFailure.h"

namespace DISCLOSUREPACKAGE {
namespace {

struct Failure {
    std::wstring reason;
    bool isShown = false;
};

Failure& Last() {
    static Failure failure;
    return failure;
}

}  // namespace

std::wstring LastFailure() {
    return Last().reason;
}

bool IsLastFailureShown() {
    return Last().isShown;
}

void SetLastFailure(const std::wstring& reason, bool isShown) {
    Last() = {reason, isShown};
}

}  // namespace DISCLOSUREPACKAGE
