#include "host/shell/Options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace workbench {
namespace {

constexpr char kPasswordVariable[] = "WORKBENCH_PASSWORD";

QString tr(const char* text) {
    return QCoreApplication::translate("workbench::Options", text);
}

}  // namespace

Options readOptions() {
    const QCommandLineOption service("service", tr("服务地址。"), "HOST:PORT");
    const QCommandLineOption user("user", tr("用户名；与密码一起给出时不显示登录窗口。"), "NAME");
    const QCommandLineOption password(
        "password", tr("密码；其他用户可能看到命令行，因此最好用环境变量 %1。").arg(kPasswordVariable), "PASSWORD");
    const QCommandLineOption plugIns("plugins", tr("插件目录，可多次给出。"), "DIR");
    const QCommandLineOption data("data", tr("存放配置、日志和缓存的目录。"), "DIR");
    const QCommandLineOption run("run", tr("就绪后执行的命令。"), "COMMAND");
    QCommandLineParser parser;
    parser.setApplicationDescription(tr("加载插件并为其提供宿主服务的工作台。"));
    parser.addOptions({service, user, password, plugIns, data, run});
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(*QCoreApplication::instance());

    Options options;
    options.service = parser.value(service);
    options.userName = parser.value(user);
    options.password = qEnvironmentVariable(kPasswordVariable, parser.value(password));
    qunsetenv(kPasswordVariable);  // no child needs it
    options.plugInFolders = parser.values(plugIns);
    if (options.plugInFolders.isEmpty())
        options.plugInFolders = QStringList{QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../plugins")};
    options.dataFolder = parser.isSet(data) ? QDir(parser.value(data)).absolutePath()
                                            : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    options.command = parser.value(run);
    return options;
}

}  // namespace workbench
