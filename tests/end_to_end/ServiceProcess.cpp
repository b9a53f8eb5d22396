#include "tests/end_to_end/ServiceProcess.h"

#include <csignal>

#include <QCoreApplication>
#include <QFile>

#include "tests/end_to_end/Screen.h"
#include "tests/end_to_end/ServiceProbe.h"

ServiceProcess::ServiceProcess() : m_pid(qEnvironmentVariableIntValue("SMOKE_SERVICE_PID")) {
    QFile file(QStringLiteral("/proc/%1/cmdline").arg(m_pid));
    screen::expect(m_pid > 0 && file.open(QIODevice::ReadOnly), "the service runs");
    const QList<QByteArray> words = file.readAll().split('\0');
    for (const QByteArray& word : words.mid(0, words.size() - 1))
        m_command << QString::fromUtf8(word);
    const int address = m_command.indexOf(QStringLiteral("--listen")) + 1;
    screen::expect(address > 0, "the service was told where to listen");
    m_command[address] = qEnvironmentVariable("SMOKE_SERVICE");
}

void ServiceProcess::stop() {
    ::kill(static_cast<pid_t>(m_pid), SIGKILL);
}

void ServiceProcess::start(ServiceProbe& probe) {
    auto* process = new QProcess(QCoreApplication::instance());
    // Ends with this program, however that ends.
    process->start(QStringLiteral("setpriv"), QStringList{"--pdeathsig", "TERM", "--"} + m_command);
    screen::expectSoon([&] { return probe.isReady(); }, "the service is back");
}
