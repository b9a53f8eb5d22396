#pragma once

#include <QSocketNotifier>

namespace workbench {

/// Turns SIGTERM, SIGINT and SIGHUP into an orderly end of the application: plug-ins are shut down, the user logged
/// out. One at a time, after the application was made.
class EndSignals {
public:
    EndSignals();
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    QSocketNotifier m_notifier;
};

}  // namespace workbench
