#pragma once

#include <QString>

#include "sdk/packages/disclosure/LastFailure.h"

/// Why the last call of the manager failed, for the user; never empty.
QString FailureReason();
/// The same where nobody has told the user; empty where the host has or nothing is known.
QString UntoldFailure();
/// Tells the user that `what` was in vain, unless somebody has.
void SayFailure(const QString& what);

/// A command's call of the manager. Where it fails the user is told that `what` was in vain.
template <class Call>
bool Commanded(const QString& what, Call call) {
    DISCLOSUREPACKAGE::SetLastFailure({});
    const bool succeeded = call();
    if (!succeeded)
        SayFailure(what);
    return succeeded;
}
