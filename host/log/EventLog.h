#pragma once

#include <mutex>

#include <QObject>
#include <QStringList>

#include "host/log/RotatingFile.h"

namespace workbench {

/// What happens in the workbench, for the log pane (without what the libraries say, which is of no use to a user) and
/// for the files "workbench.log" (Qt's messages) and "function.log" (what the user did) in one folder. Takes Qt's
/// messages in while it lives; they still reach the terminal.
class EventLog : public QObject {
    Q_OBJECT

public:
    static constexpr std::size_t kMaxBytes = std::size_t(1024) * 1024;
    static constexpr std::size_t kOlderFiles = 5;

    explicit EventLog(const QString& folder);
    ~EventLog() override;

    /// False when it could not be written to its file. Line breaks in the texts become blanks: one action, one line.
    bool writeAction(const QString& title, const QString& path);
    /// The latest lines, oldest first.
    QStringList history() const;

signals:
    /// May be emitted on any thread.
    void written(const QString& line);

private:
    static void onQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& message);
    bool add(RotatingFile& file, const QString& kind, const QString& text, bool isForUser);

    RotatingFile m_messages;
    RotatingFile m_actions;
    mutable std::mutex m_mutex;
    QStringList m_history;  // guarded by m_mutex
};

}  // namespace workbench
