#include "sdk/packages/disclosure/LastFailure.h"

namespace DISCLOSUREPACKAGE {
namespace {

std::wstring& Reason() {
    static std::wstring reason;
    return reason;
}

}  // namespace

std::wstring LastFailure() {
    return Reason();
}

void SetLastFailure(const std::wstring& reason) {
    Reason() = reason;
}

}  // namespace DISCLOSUREPACKAGE
