#include <gtest/gtest.h>
#include <thread>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "host/log/EventLog.h"
#include "host/log/Messages.h"
#include "host/managers/FunctionLogMgr.h"

namespace {

QString contents(const QString& path) {
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

TEST(RotatingFile, StartsAfreshAndKeepsTheLatestFiles) {
    const QTemporaryDir dir;
    {
        workbench::RotatingFile file(dir.filePath("a.log"), 100, 2);
        for (int i = 0; i < 40; ++i)
            EXPECT_TRUE(file.write(QString("第 %1 行 ........").arg(i)));
    }
    const QStringList files = QDir(dir.path()).entryList(QDir::Files);
    EXPECT_EQ(files, (QStringList{"a.1.log", "a.2.log", "a.log"}));
    for (const QString& name : files)
        EXPECT_LE(QFile(dir.filePath(name)).size(), 100);
    EXPECT_TRUE(contents(dir.filePath("a.log")).contains("第 39 行"));
}

TEST(RotatingFile, SaysWhenItCannotWrite) {
    const QTemporaryDir dir;
    QFile inTheWay(dir.filePath("logs"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    workbench::EventLog log(dir.filePath("logs"));
    workbench::CFunctionLogMgr manager(log);
    EXPECT_NE(manager.GetLogger()->Write(L"新建目录", L"技术→交底管理→新建目录"), 0);
}

TEST(EventLog, KeepsActionsAndMessagesApartAndTellsBoth) {
    const QTemporaryDir dir;
    workbench::EventLog log(dir.path());
    QStringList told;
    QObject::connect(&log, &workbench::EventLog::written, [&](const QString& line) {
        told.append(line);
        qCInfo(workbench::messages, "an echo that must not come back");
    });
    workbench::CFunctionLogMgr manager(log);
    EXPECT_EQ(manager.GetLogger()->Write(L"新建目录", L"技术→交底管理\n→新建目录"), 0);
    qCWarning(workbench::messages, "service gone");
    for (const char* technical : {"qt.qpa.xcb", "qml", "default"}) {
        const QLoggingCategory category(technical);
        qCWarning(category, "BadWindow");
    }
    std::thread([] { qCInfo(workbench::messages, "from another thread"); }).join();

    const QString actions = contents(dir.filePath("function.log"));
    EXPECT_TRUE(actions.contains("新建目录  技术→交底管理 →新建目录")) << actions.toStdString();
    EXPECT_EQ(actions.count('\n'), 1);
    const QString messages = contents(dir.filePath("workbench.log"));
    EXPECT_TRUE(messages.contains("service gone") && messages.contains("from another thread"));
    EXPECT_TRUE(messages.count("BadWindow") == 3 && !log.history().join('\n').contains("BadWindow"));
    EXPECT_GE(told.size(), 3);
    EXPECT_TRUE(log.history().join('\n').contains("service gone"));
}

}  // namespace
