#include "host/log/EventLog.h"

#include <atomic>

#include <QDateTime>
#include <QDir>

#include "host/log/Messages.h"

namespace workbench {

Q_LOGGING_CATEGORY(messages, "workbench")

namespace {

constexpr int kHistoryLines = 500;

std::atomic<EventLog*> g_log = nullptr;
QtMessageHandler g_previousHandler = nullptr;

QString nameOf(QtMsgType type) {
    switch (type) {
        case QtDebugMsg:
            return EventLog::tr("调试");
        case QtInfoMsg:
            return EventLog::tr("信息");
        case QtWarningMsg:
            return EventLog::tr("警告");
        case QtCriticalMsg:
        case QtFatalMsg:
            break;
    }
    return EventLog::tr("错误");
}

/// Of a library: Qt's categories, those of QML, or none.
bool isTechnical(const char* category) {
    const QLatin1String name(category);
    for (const char* technical : {"", "default", "qml", "js"})
        if (name == QLatin1String(technical))
            return true;
    return name.startsWith(QLatin1String("qt."));
}

QString fileIn(const QString& folder, const char* name) {
    QDir().mkpath(folder);
    return QDir(folder).filePath(name);
}

}  // namespace

EventLog::EventLog(const QString& folder)
    : m_messages(fileIn(folder, "workbench.log"), kMaxBytes, kOlderFiles),
      m_actions(fileIn(folder, "function.log"), kMaxBytes, kOlderFiles) {
    g_log = this;
    g_previousHandler = qInstallMessageHandler(onQtMessage);
}

EventLog::~EventLog() {
    qInstallMessageHandler(g_previousHandler);
    g_log = nullptr;
}

bool EventLog::writeAction(const QString& title, const QString& path) {
    return add(m_actions, tr("操作"), title + "  " + path, true);
}

QStringList EventLog::history() const {
    const std::lock_guard lock(m_mutex);
    return m_history;
}

void EventLog::onQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (g_previousHandler)
        g_previousHandler(type, context, message);
    // What a receiver of `written` says about itself would come back here without end.
    static thread_local bool inside = false;
    EventLog* log = g_log;
    if (!log || inside)
        return;
    inside = true;
    log->add(log->m_messages, nameOf(type), message, !isTechnical(context.category));
    inside = false;
}

bool EventLog::add(RotatingFile& file, const QString& kind, const QString& text, bool isForUser) {
    QString line = QDateTime::currentDateTime().toString("yyyy-MM-dd HH:mm:ss.zzz") + "  " + kind + "  " + text;
    line.replace('\n', ' ').replace('\r', ' ');
    const bool stored = file.write(line);
    if (!isForUser)
        return stored;
    {
        const std::lock_guard lock(m_mutex);
        m_history.append(line);
        if (m_history.size() > kHistoryLines)
            m_history.removeFirst();
    }
    emit written(line);
    return stored;
}

}  // namespace workbench
