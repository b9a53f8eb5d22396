#pragma once

#include <exception>

#include <QString>

#include "host/log/Messages.h"

namespace workbench {

/// Runs code of a plug-in; what it throws is logged under `what` and answered with false.
template <class Work>
bool guarded(const QString& what, Work work) {
    try {
        work();
        return true;
    } catch (const std::exception& e) {
        qCCritical(messages).noquote() << what << e.what();
    } catch (...) {
        qCCritical(messages).noquote() << what << "unknown exception";
    }
    return false;
}

}  // namespace workbench
