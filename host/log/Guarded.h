#pragma once

#include <exception>

#include <QLoggingCategory>
#include <QString>

namespace workbench {

/// Runs code of a plug-in; what it throws is logged under `what` and answered with false.
template <class Work>
bool guarded(const QString& what, Work work) {
    try {
        work();
        return true;
    } catch (const std::exception& e) {
        qCritical().noquote() << what << e.what();
    } catch (...) {
        qCritical().noquote() << what << "unknown exception";
    }
    return false;
}

}  // namespace workbench
