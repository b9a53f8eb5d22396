#pragma once

#include <gtest/gtest.h>
#include <utility>

#include <QStringList>

namespace support {

/// Fails the test when anything warns while it lives.
class NoWarnings {
public:
    NoWarnings() : m_outer(std::exchange(s_told, {})), m_handler(qInstallMessageHandler(note)) {}
    ~NoWarnings() {
        qInstallMessageHandler(m_handler);
        EXPECT_TRUE(s_told.isEmpty()) << s_told.join('\n').toStdString();
        s_told = m_outer;
    }
    NoWarnings(const NoWarnings&) = delete;
    NoWarnings& operator=(const NoWarnings&) = delete;

private:
    static void note(QtMsgType type, const QMessageLogContext&, const QString& message) {
        // Qt's own: what the platform cannot do, an animation that outlives its window by a moment, a combo box that
        // opens its list from a view inside a dialog, and a row of a table that still looks at its list while it goes.
        const bool isQts = message.startsWith("This plugin does not support") ||
                           message.startsWith("QUnifiedTimer::stopAnimationDriver") ||
                           message.endsWith("must be a top level window.") ||
                           (message.contains("/Controls/Private/BasicTableView.qml") &&
                            message.endsWith("Cannot read property 'activeFocus' of null"));
        if (type != QtDebugMsg && type != QtInfoMsg && !isQts)
            s_told << message;
    }

    static inline QStringList s_told;
    QStringList m_outer;
    QtMessageHandler m_handler;
};

}  // namespace support
