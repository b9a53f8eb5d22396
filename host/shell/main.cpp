#include <cstdio>

#include <QApplication>
#include <QTextCodec>

#include "host/shell/EndSignals.h"
#include "host/shell/Look.h"
#include "host/shell/Workbench.h"

int main(int argc, char* argv[]) {
    // Without a language setting every Chinese path and message would be unreadable.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));

    // Dialogs hold native windows of Qt Quick beside ordinary widgets, which must not become native with them.
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName("disclosure-workbench");
    QCoreApplication::setApplicationVersion(WORKBENCH_VERSION);
    workbench::look::apply(application);
    const workbench::EndSignals endSignals;

    workbench::Workbench bench(workbench::readOptions());
    QString why;
    if (!bench.logIn(why)) {
        if (why.isEmpty())
            return 0;
        std::fprintf(stderr, "%s\n", qUtf8Printable(why));
        return 1;
    }
    bench.start();
    return QApplication::exec();
}
