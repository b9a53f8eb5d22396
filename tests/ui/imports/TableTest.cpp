#include "tests/support/Scene.h"
#include "ui/common/ObservableCollection.h"

using support::Scene;

namespace {

/// One row's object, as the lists of the screens hold them.
class Row : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name CONSTANT)
    Q_PROPERTY(QString status MEMBER m_status NOTIFY statusChanged)
    Q_PROPERTY(bool selected MEMBER m_selected NOTIFY selectedChanged)
public:
    Row(QString name, QObject* parent) : QObject(parent), m_name(std::move(name)) {}

signals:
    void statusChanged();
    void selectedChanged();

private:
    QString m_name;
    QString m_status = "待交底";
    bool m_selected = false;
};

class Rows : public ObservableCollection<Row*> {
public:
    explicit Rows(const QStringList& names) {
        for (const QString& name : names)
            add(name);
    }
    void add(const QString& name) { append(new Row(name, this)); }
    bool selected(int row) const { return at(row)->property("selected").toBool(); }
    QVariantMap context() { return {{"rows", QVariant::fromValue<QObject*>(this)}}; }
};

constexpr auto imports = "import QtQuick.Controls 1.4\n";
constexpr auto table =
    "UxCheckBoxTableView { width: 500; height: 300; model: rows; property var seen: []\n"
    "UxTableColumn { title: '任务名称'; role: 'name'; width: 100 }\n"
    "UxTableColumn { title: '状态'; role: 'status'; width: 100 }\n"
    "Component { id: extra; UxTableColumn { title: '更新人'; role: 'name'; width: 80 } }\n"
    "onHeaderClicked: seen.push(column + title); onClicked: seen.push('clicked')\n"
    "onDoubleClicked: seen.push('double ' + row); onActivated: seen.push('activated ' + row) }";

class TableTest : public testing::Test {
protected:
    Rows rows{QStringList{"甲", "乙", "丙"}};
    Scene scene{table, rows.context(), imports};

    void SetUp() override {
        ASSERT_TRUE(QTest::qWaitFor([&] { return scene.texts().count("待交底") == 3; }));
    }
    int selectAllState() { return scene.evaluate("selectAllState").toInt(); }
    /// Where the arrow of a sorted column stands; negative without one.
    double arrowAt(const QString& direction) {
        const auto arrows = scene.items(
            [&](QQuickItem* item) { return item->property("source").toString().contains("sort/" + direction); });
        EXPECT_LE(arrows.size(), 1);
        return arrows.isEmpty() ? -1 : arrows.first()->mapToScene({}).x();
    }
    void clickAt(int x, int y) { QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, {x, y}); }
};

constexpr int header = 15;
constexpr int firstRow = 45;
constexpr int secondRow = 75;
constexpr int checkBox = 17;
constexpr int nameColumn = 80;

TEST_F(TableTest, SelectAllKnowsThreeStates) {
    EXPECT_EQ(selectAllState(), Qt::Unchecked);
    clickAt(checkBox, secondRow);
    EXPECT_TRUE(rows.selected(1));
    EXPECT_EQ(selectAllState(), Qt::PartiallyChecked);
    EXPECT_EQ(scene.evaluate("checkedRowNumbers().join()"), "1");
    clickAt(checkBox, header);
    EXPECT_TRUE(rows.selected(0) && rows.selected(1) && rows.selected(2));
    EXPECT_EQ(selectAllState(), Qt::Checked);
    clickAt(checkBox, header);
    EXPECT_EQ(scene.evaluate("checkedCount"), 0);
}

TEST_F(TableTest, CountsChecksThroughRowsThatComeAndGo) {
    rows.at(0)->setProperty("selected", true);
    rows.add("丁");
    EXPECT_EQ(selectAllState(), Qt::PartiallyChecked);
    rows.pop_front();
    EXPECT_EQ(selectAllState(), Qt::Unchecked);
    for (int row = 0; row < 3; ++row)
        rows.at(row)->setProperty("selected", true);
    EXPECT_EQ(selectAllState(), Qt::Checked);
    Rows same({"甲", "乙", "丙"});
    same.at(0)->setProperty("selected", true);
    scene.root()->setProperty("model", QVariant::fromValue<QObject*>(&same));
    EXPECT_EQ(selectAllState(), Qt::PartiallyChecked) << "one of as many rows as before";
    Rows other({});
    scene.root()->setProperty("model", QVariant::fromValue<QObject*>(&other));
    EXPECT_EQ(selectAllState(), Qt::Unchecked);
    EXPECT_FALSE(scene.item("selectAll")->isEnabled());
    other.add("戊");
    EXPECT_TRUE(QTest::qWaitFor([&] { return scene.texts().contains("戊"); }));
    EXPECT_TRUE(scene.item("selectAll")->isEnabled());
    scene.root()->setProperty("model", QVariant());
}

TEST_F(TableTest, ColumnsCountWithoutTheCheckBoxes) {
    scene.evaluate("insertColumnAt(1, extra)");
    EXPECT_EQ(scene.evaluate("getColumn(0).title + getColumn(1).title + getColumn(2).title + getColumn(3).title"),
              "任务名称更新人状态");
    EXPECT_TRUE(scene.becomes("__listView.columnAt(150) == 2"));
    clickAt(nameColumn, header);
    clickAt(230, header);
    clickAt(checkBox, header);
    EXPECT_EQ(scene.evaluate("seen.join()"), "0任务名称,2状态");
    scene.evaluate("sortColumn = 2, sortAscending = false");
    EXPECT_GT(arrowAt("descending"), 215);
}

TEST_F(TableTest, ColumnsAreResizedFittedAndDraggedWithTheirArrow) {
    scene.evaluate("sortColumn = 0");
    const auto widths = [&] { return scene.evaluate("getColumn(1).width + ' ' + getColumn(2).width"); };
    const auto titles = [&] { return scene.evaluate("getColumn(1).title + getColumn(2).title"); };
    scene.drag({134, header}, {174, header});
    EXPECT_EQ(widths(), "140 100");
    EXPECT_TRUE(QTest::qWaitFor([&] { return arrowAt("ascending") > 140; }));
    QTest::mouseDClick(&scene.window(), Qt::LeftButton, {}, {174, header});
    const int fitted = scene.evaluate("getColumn(1).width").toInt();
    EXPECT_TRUE(fitted > 50 && fitted < 100) << fitted;
    EXPECT_EQ(scene.evaluate("seen.length"), 0) << "a border sorts nothing";

    scene.drag({60, header}, {60 + fitted + 60, header});
    EXPECT_EQ(titles(), "状态任务名称");
    EXPECT_TRUE(QTest::qWaitFor([&] { return arrowAt("ascending") > 135; })) << "the arrow goes with its column";
    clickAt(60, header);
    EXPECT_EQ(scene.evaluate("seen.join()"), "1状态") << "a column keeps its number";
    scene.drag({60, header}, {10, header});
    EXPECT_EQ(titles(), "状态任务名称") << "nothing goes before the check boxes";
    QTest::mouseDClick(&scene.window(), Qt::LeftButton, {}, {134, header});
    EXPECT_LT(scene.evaluate("getColumn(1).width").toInt(), 100) << "its own cells are measured";
}

TEST_F(TableTest, OneToolTipOpensUnderARestingMouseAndGoesWithIt) {
    const QString longName(30, QChar(u'名'));
    const QStringList names{longName + "1", longName + "2", longName + "3"};
    const auto tips = [&] { return scene.texts().filter(longName).size() - names.size(); };
    for (const int row : {firstRow, secondRow}) {
        Rows some(names);
        QTest::mouseMove(&scene.window(), {nameColumn, row});
        for (int reading = 0; reading < 3; ++reading) {
            scene.root()->setProperty("model", QVariant());
            scene.root()->setProperty("model", QVariant::fromValue<QObject*>(&some));
            EXPECT_TRUE(QTest::qWaitFor([&] { return tips() >= 0; }));
        }
        QTest::mouseMove(&scene.window(), {nameColumn + 1, row});
        EXPECT_EQ(tips(), 0) << "it takes its time";
        EXPECT_FALSE(QTest::qWaitFor([&] { return tips() > 1; }, 600)) << row;
        EXPECT_EQ(tips(), 1) << row;
        QTest::mouseMove(&scene.window(), {nameColumn, 250});
        EXPECT_TRUE(QTest::qWaitFor([&] { return tips() == 0; })) << row;
        scene.root()->setProperty("model", QVariant());
    }
}

TEST_F(TableTest, ACutTitleIsShownWholeUnderTheMouse) {
    const auto titles = [&] { return scene.texts().count("任务名称"); };
    QTest::mouseMove(&scene.window(), {nameColumn, header});
    EXPECT_FALSE(QTest::qWaitFor([&] { return titles() > 1; }, 600)) << "it is not cut";
    scene.evaluate("getColumn(1).width = 30");
    QTest::mouseMove(&scene.window(), {checkBox, secondRow});
    QTest::mouseMove(&scene.window(), {checkBox + 30, header});
    EXPECT_TRUE(QTest::qWaitFor([&] { return titles() > 1; }));
}

TEST(Table, PlainValuesAreShownAsTheyAre) {
    ObservableCollection<QString> names;
    names.append("甲");
    names.append("乙");
    const Scene scene("UxTableView { width: 300; height: 200; model: rows; UxTableColumn { role: 'item' } }",
                      {{"rows", QVariant::fromValue<QObject*>(&names)}}, imports);
    EXPECT_TRUE(QTest::qWaitFor([&] { return scene.wrong({"甲", "乙"}).empty(); }));
}

TEST_F(TableTest, TellsClicksAndKeepsTheCurrentRow) {
    clickAt(nameColumn, firstRow);
    EXPECT_EQ(scene.evaluate("currentRow"), 0);
    QTest::mouseDClick(&scene.window(), Qt::LeftButton, {}, {nameColumn, secondRow});
    EXPECT_EQ(scene.evaluate("currentRow"), 1);
    EXPECT_TRUE(scene.evaluate("seen.indexOf('clicked') >= 0 && seen.indexOf('double 1') >= 0").toBool());
    scene.evaluate("selectByMouse = true");
    scene.drag({nameColumn, secondRow}, {nameColumn, firstRow});
    EXPECT_EQ(scene.evaluate("currentRow"), 0);
    clickAt(nameColumn, secondRow);
    scene.evaluate("rowMouseSelectable = false");
    clickAt(nameColumn, firstRow);
    EXPECT_EQ(scene.evaluate("currentRow"), 1);
}

TEST_F(TableTest, IsWorkedByKeyboardAndFollowsItsRows) {
    rows.at(1)->setProperty("status", "已交底");
    EXPECT_TRUE(scene.texts().contains("已交底"));
    scene.evaluate("forceActiveFocus()");
    scene.key(Qt::Key_Home).key(Qt::Key_Down).key(Qt::Key_Space);
    EXPECT_TRUE(rows.selected(1));
    scene.key(Qt::Key_End).key(Qt::Key_Return);
    EXPECT_EQ(scene.evaluate("seen.join()"), "activated 2");
}

}  // namespace

#include "TableTest.moc"
