#include "tests/support/Scene.h"

using support::Scene;

namespace {

TEST(TextArea, NeverHoldsMoreThanItsMaximum) {
    Scene scene(
        "UxTextArea { maxlength: 5; maxlengthEnable: true; property int longest: 0\n"
        "onTextChanged: longest = Math.max(longest, length) }");
    scene.evaluate("forceActiveFocus()");
    scene.type("abcdefgh");
    EXPECT_EQ(scene.evaluate("text"), "abcde");
    scene.evaluate("cursorPosition = 2");
    scene.type("X");
    EXPECT_EQ(scene.evaluate("text"), "abcde") << "typing in the middle must not eat the end";
    scene.evaluate("text = 'a long text from outside'");
    EXPECT_EQ(scene.evaluate("text"), "a lon");
    scene.evaluate("text = 'abcd\\ud83d\\ude00'");
    EXPECT_EQ(scene.evaluate("text"), "abcd") << "no half of a character";
    EXPECT_LE(scene.evaluate("longest").toInt(), 5);
    scene.evaluate("maxlengthEnable = false, text = 'as long as you like'");
    EXPECT_EQ(scene.evaluate("length"), 19);
    scene.evaluate("maxlengthEnable = true");
    EXPECT_EQ(scene.evaluate("text"), "as lo");

    scene.evaluate("text = ''");
    scene.compose("", "六个字的交底");
    EXPECT_EQ(scene.evaluate("text"), "六个字的交");
}

TEST(PagingBar, ShowsItsNumbersAndTakesWhatIsChosen) {
    Scene scene(
        "UxPagingBar { totalCount: 93; currentPage: 2; totalPage: 3; itemsPerPage: 20; property var seen: []\n"
        "onFirstPage: seen.push('first'); onPrevPage: seen.push('previous')\n"
        "onNextPage: seen.push('next'); onLastPage: seen.push('last') }");
    EXPECT_EQ(scene.wrong({"共计93条数据", "/ 3"}), "");
    const QQuickItem* sizes = scene.item("pageSizes");
    EXPECT_EQ(sizes->property("currentText"), "20");
    scene.evaluate("itemsPerPage = 10");
    EXPECT_EQ(sizes->property("currentText"), "10");

    QQuickItem* page = scene.item("page");
    EXPECT_EQ(page->property("text"), "2");
    scene.fill(page, "099").key(Qt::Key_Return);
    EXPECT_EQ(scene.evaluate("currentPage"), 99);
    EXPECT_EQ(page->property("text"), "99");
    scene.evaluate("currentPage = 3");  // the field follows again
    scene.fill(page, "").key(Qt::Key_Return);
    EXPECT_EQ(scene.evaluate("currentPage"), 3);
    EXPECT_EQ(page->property("text"), "3");

    for (const auto& [current, offered] :
         {std::pair(2, "first,previous,next,last"), {1, "next,last"}, {3, "first,previous"}}) {
        scene.evaluate(QString("currentPage = %1, seen = []").arg(current));
        for (const char* name : {"first", "previous", "next", "last"})
            scene.click(scene.item(name));
        EXPECT_EQ(scene.evaluate("seen.join()"), offered);
    }
}

constexpr auto dateField =
    "UxCalendar { property string outside: '2026-11-21'; property var seen: []; text: outside\n"
    "property var told: []; onRefused: told.push(why)\n"
    "minimumDate: '2026-11-10'; maximumDate: new Date(2026, 11, 5); onPicked: seen.push(text) }";

bool shows(const Scene& scene, const QString& name) {
    return QTest::qWaitFor([&] { return scene.item(name) != nullptr; });
}

TEST(Calendar, TakesWhatIsClearAndKeepsAndMarksTheRest) {
    Scene scene(dateField);
    const std::pair<const char*, const char*> typed[] = {
        {"2026-12-1", "2026-12-01"},  {"2026/11/30", "2026-11-30"},      {"20261129", "2026-11-29"},
        {"2026.11.9", "早于2026-11"}, {" 2026年11月28日", "2026-11-28"}, {"２０２６－１１－２７", "2026-11-27"},
        {"2026-12-6", "晚于2026-12"}, {"2026-11-31", "不是日期"},        {"2026", "不是日期"},
        {"11-12-2026", "不是日期"},   {"2026111", "不是日期"},           {"", ""}};
    for (const auto& [text, outcome] : typed) {
        const bool taken = QString(outcome).startsWith("2026") || !*text;
        scene.evaluate("forceActiveFocus(), selectAll(), told = []");
        scene.key(Qt::Key_Delete).type(text).key(Qt::Key_Return).key(Qt::Key_Return);
        EXPECT_EQ(scene.evaluate("text"), taken ? outcome : text);
        EXPECT_EQ(scene.evaluate("marked"), !taken) << text;
        EXPECT_TRUE(taken || scene.evaluate("told.join()").toString().contains(outcome)) << text;
        EXPECT_EQ(scene.evaluate("told.length"), taken ? 0 : 1) << text;
        if (!taken) {
            scene.key(Qt::Key_Escape);
            EXPECT_EQ(scene.evaluate("marked"), false);
            EXPECT_TRUE(scene.evaluate("text").toString().startsWith("2026-11-2")) << "the last that was taken";
        }
    }
    EXPECT_EQ(scene.evaluate("seen.length"), 6);
    scene.evaluate("outside = '2026-11-15'");
    EXPECT_EQ(scene.evaluate("text"), "2026-11-15") << "the screen's binding has to survive";
}

TEST(Calendar, IsPickedWithTheMouse) {
    Scene scene(dateField);
    scene.click(scene.item("openCalendar"));
    ASSERT_TRUE(shows(scene, "day2026-11-21"));
    scene.click(scene.item("day2026-11-09"));
    EXPECT_EQ(scene.evaluate("seen.length"), 0);
    scene.click(scene.item("nextMonth"));
    ASSERT_TRUE(shows(scene, "day2026-12-31"));
    scene.click(scene.item("day2026-12-04"));
    EXPECT_EQ(scene.evaluate("seen.join()"), "2026-12-04");
    EXPECT_EQ(scene.evaluate("text"), "2026-12-04");

    scene.evaluate("openCalendar()");
    ASSERT_TRUE(shows(scene, "clear"));
    scene.click(scene.item("clear"));
    EXPECT_EQ(scene.evaluate("text"), "");
}

TEST(Calendar, IsPickedWithTheKeyboard) {
    Scene scene(dateField);
    scene.evaluate("forceActiveFocus()");
    scene.key(Qt::Key_Down);
    ASSERT_TRUE(shows(scene, "day2026-11-21"));
    scene.key(Qt::Key_PageUp).key(Qt::Key_Down).key(Qt::Key_Right).key(Qt::Key_Return);
    EXPECT_EQ(scene.evaluate("seen.join()"), "2026-11-18") << "October lies before the minimum, so the step ends there";
}

TEST(Calendar, ACellAsksAndShowsItsOwnersDateWholeEvenWhereItIsNotEditable) {
    for (const bool editable : {true, false}) {
        Scene scene(
            "UxCellCalendar { width: 60; y: 50; value: '2026-02-10'; property string asked; onPicked: asked = text }");
        scene.root()->setProperty("editable", editable);
        scene.hover(scene.root());
        EXPECT_TRUE(QTest::qWaitFor([&] { return scene.texts().count("2026-02-10") == 2; })) << editable;
        scene.click(scene.root()).focus(scene.root()).key(Qt::Key_Return);
        ASSERT_EQ(editable ? shows(scene, "day2026-02-28") : scene.item("day2026-02-28") != nullptr, editable);
        if (editable)
            scene.click(scene.item("day2026-02-28"));
        EXPECT_EQ(scene.evaluate("asked"), editable ? "2026-02-28" : "");
        EXPECT_EQ(scene.evaluate("value"), "2026-02-10");
    }
}

TEST(Calendar, BeginsWhenDatesCanBeStored) {
    Scene scene("UxCalendar { text: '2026-11-21'; property string told; onRefused: told = why }");
    scene.evaluate("forceActiveFocus(), selectAll()");
    scene.type("1969-12-31");
    scene.evaluate("takeTyped()");
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(scene.evaluate("told"), "") << "a wait lets posted calls through, and no message";
    EXPECT_TRUE(scene.becomes("told == '日期不能早于1970-01-02'"));
}

TEST(SearchField, IsEmptiedByItsCross) {
    Scene scene("UxSearchField { property int searches: 0; onSearchClicked: ++searches; text: '基坑' }");
    scene.click(scene.item("clear"));
    EXPECT_EQ(scene.evaluate("text + searches"), "1");
    EXPECT_FALSE(scene.item("clear"));
}

TEST(NamedField, MarksWhatHasToBeFilledAndLeavesTheCaptionItsSpace) {
    const Scene scene("UxNameTextField { width: 300; name: '任务名称：'; value: '基坑'; rightSpace: 10 }");
    EXPECT_FALSE(scene.texts().contains("✱"));
    EXPECT_TRUE(scene.evaluate("field.x === editSpace && field.x + field.width === 290").toBool());
    const double before = scene.evaluate("editSpace").toDouble();
    scene.evaluate("mustfill = true");
    EXPECT_TRUE(scene.texts().contains("✱"));
    EXPECT_TRUE(scene.becomes(QString("editSpace > %1").arg(before)));
}

}  // namespace
