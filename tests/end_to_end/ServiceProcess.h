#pragma once

#include <QProcess>

class ServiceProbe;

/// The service that the walk was started with, as its operator has it in hand.
class ServiceProcess {
public:
    /// Finds it by the process id in SMOKE_SERVICE_PID.
    ServiceProcess();
    /// Ends it like a crash.
    void stop();
    /// Runs it again at the same address on the same data, until the walk's program ends; returns when it answers.
    void start(ServiceProbe& probe);

private:
    qint64 m_pid;
    QStringList m_command;
};
