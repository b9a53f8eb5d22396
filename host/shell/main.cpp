#include <algorithm>
#include <cstdio>
#include <string_view>

#include <QApplication>
#include <QTextCodec>

#include "host/shell/EndSignals.h"
#include "host/shell/Look.h"
#include "host/shell/Workbench.h"

namespace {

void nameApplication() {
    QCoreApplication::setApplicationName("disclosure-workbench");
    QCoreApplication::setApplicationVersion(WORKBENCH_VERSION);
}

bool wantsWordsOnly(int argc, char* argv[]) {
    return std::any_of(argv + 1, argv + argc, [](const std::string_view argument) {
        return argument == "-h" || argument == "--help" || argument == "--help-all" || argument == "-v" ||
               argument == "--version";
    });
}

}  // namespace

int main(int argc, char* argv[]) {
    // Without a language setting every Chinese path and message would be unreadable.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));

    if (wantsWordsOnly(argc, argv)) {  // which need no display
        const QCoreApplication application(argc, argv);
        nameApplication();
        workbench::readOptions();
        return 0;
    }

    // Dialogs hold native windows of Qt Quick beside ordinary widgets, which must not become native with them.
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    nameApplication();
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
