#include <algorithm>
#include <cmath>

#include <QColor>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include "tests/support/Scene.h"

using support::Scene;

namespace {

TEST(ControlModule, EveryComponentLoadsWithoutAWarning) {
    QFile list(":/ui/imports/UI/qmldir");
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    int components = 0;
    while (!list.atEnd()) {
        const QByteArray line = list.readLine().simplified();
        const QByteArray name = line.left(line.indexOf(' '));
        if (!line.contains(" 1.0 ") || name == "singleton")
            continue;
        SCOPED_TRACE(name.toStdString());
        ++components;
        if (name.endsWith("Style"))
            continue;  // needs the view it belongs to
        Scene scene("Item { width: 400; height: 300; property QtObject made: " + name + " {} }");
    }
    EXPECT_GT(components, 10);
}

TEST(ControlModule, EveryPictureNamedInTheTreeIsCompiledIn) {
    const QRegularExpression picture(R"re(qrc:(/ui/Images/[^"+ ]+\.png))re");
    QStringList missing;
    int named = 0;
    for (const char* folder : {"/ui", "/commands"}) {
        QDirIterator files(QString(SOURCE_ROOT) + folder, {"*.qml", "*.cpp", "*.h"}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            auto matches = picture.globalMatch(QString::fromUtf8(file.readAll()));
            while (matches.hasNext()) {
                const QString path = ":" + matches.next().captured(1);
                ++named;
                if (!QFile::exists(path) || !QFile::exists(QString(path).replace(".png", "@2x.png")))
                    missing += path + " of " + file.fileName();
            }
        }
    }
    EXPECT_TRUE(missing.isEmpty()) << missing.join('\n').toStdString();
    EXPECT_GT(named, 0);
}

TEST(Theme, TextStandsOutFromEveryGroundThatIsNotGiven) {
    const Scene scene("Item { property var theme: UxTheme }");
    const auto luminance = [&](const QString& name) {
        const auto colour = scene.evaluate("theme." + name).value<QColor>();
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
    };
    const QString everywhere =
        "background windowBackground disabledBackground titleBar button menuBackground "
        "menuHighlight buttonHovered alternateRow checkedRow currentRow tableHeader";
    const std::pair<const char*, QString> pairs[] = {{"text", everywhere},
                                                     {"fieldText", everywhere},
                                                     {"disabledText", everywhere},
                                                     {"placeholderText", "background"},
                                                     {"wrong", "background windowBackground"},
                                                     {"requiredMark", "background windowBackground"}};
    for (const auto& [text, grounds] : pairs)
        for (const QString& ground : grounds.split(' ')) {
            if (QString(text) == "disabledText" && (ground == "menuHighlight" || ground == "buttonHovered"))
                continue;  // what is disabled is not pointed at
            const double one = luminance(text) + 0.05;
            const double other = luminance(ground) + 0.05;
            EXPECT_GE(std::max(one, other) / std::min(one, other), 4.5) << text << " on " << ground.toStdString();
        }
}

TEST(Button, IsPressedByEnterToo) {
    Scene scene("UxButton { property int count: 0; onClicked: ++count }");
    scene.evaluate("forceActiveFocus()");
    scene.key(Qt::Key_Return).key(Qt::Key_Space);
    EXPECT_EQ(scene.evaluate("count"), 2);
}

TEST(ToolTip, ShowsTheWholeTextAsItIsOnlyWhereItIsCut) {
    for (const char* name : {"一个放不进这一列里的很长的名字", "<b>粗</b><img src=qrc:/none.png> &lt;柱&gt;"}) {
        Scene scene(
            "Column { UxToolTipText { objectName: 'cut'; width: 60; text: name }\n"
            "UxToolTipText { objectName: 'whole'; width: 400; text: name } }",
            {{"name", name}});
        const auto shown = [&] { return scene.items(support::has("text", name)); };
        EXPECT_EQ(shown().size(), 2);
        scene.hover(scene.item("whole"));
        EXPECT_EQ(scene.item("whole")->property("hovered"), true);
        EXPECT_EQ(scene.item("whole")->property("tooltipVisible"), false);
        scene.hover(scene.item("cut"));
        EXPECT_EQ(scene.item("cut")->property("tooltipVisible"), true);
        EXPECT_TRUE(QTest::qWaitFor([&] { return shown().size() == 3; }));
        for (const QQuickItem* text : shown())
            EXPECT_GT(text->implicitWidth(), 4 * QString(name).size()) << "markup is text like any other";
    }
}

TEST(ToolTip, StaysInsideANarrowWindow) {
    Scene scene("Item { width: 10; height: 10; property QtObject tip: UxToolTip { text: '名'.repeat(128) } }");
    scene.window().setWidth(250);
    for (const bool wraps : {false, true}) {
        scene.evaluate(
            QString("tip.parent = this, tip.wrapText = %1, tip.visible = true").arg(wraps ? "true" : "false"));
        for (const char* rule : {"tip.width <= 250", "tip.contentItem.lineCount > 1", "!tip.contentItem.truncated",
                                 "tip.height === tip.contentItem.lineCount * 22",
                                 "tip.contentItem.height >= tip.contentItem.paintedHeight"})
            EXPECT_TRUE(scene.becomes(rule)) << rule;
    }
}

TEST(TitleBar, TellsWhatTheMouseDoes) {
    Scene scene(
        "WindowTitleBar { width: 400; title: '交底管理'; property var seen: []\n"
        "onTitlebarPressed: seen.push('press ' + mouseX); onTitlebarPositionChanged: seen.push('move ' + mouseX)\n"
        "onTitlebarDbClick: seen.push('double'); onToggleMaximized: seen.push('maximize')\n"
        "onClosing: seen.push('closing'); onClose: seen.push('close') }");
    scene.drag({30, 15}, {38, 15});
    EXPECT_EQ(scene.evaluate("seen.join()"),
              "press 30,move 31,move 32,move 33,move 34,move 35,move 36,move 37,move 38");
    scene.evaluate("seen = []");
    for (const int x : {350, 390})
        QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, {x, 15});
    EXPECT_EQ(scene.evaluate("seen.join()"), "maximize,closing,close");
    QTest::mouseDClick(&scene.window(), Qt::LeftButton, {}, {30, 15});
    EXPECT_EQ(scene.evaluate("seen.indexOf('double') > 0"), true);
}

}  // namespace
