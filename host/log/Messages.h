#pragma once

#include <QLoggingCategory>

namespace workbench {

/// What the workbench itself has to say to its user; messages of no category are the libraries' own.
Q_DECLARE_LOGGING_CATEGORY(messages)

}  // namespace workbench
