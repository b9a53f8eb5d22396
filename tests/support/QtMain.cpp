#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>

/// The entry of every test program that shows windows.
int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QFont::insertSubstitutions(QStringLiteral("微软雅黑"),
                               {QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("Noto Sans CJK SC")});
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
