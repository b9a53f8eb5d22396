#include "commands/DisclosureManage/ui/task/SelectOwnerWnd.h"
#include "commands/DisclosureManage/ui/task/SelectReceiverWnd.h"
#include "tests/commands/TaskWindow.h"
#include "ui/common/NameTreeNode.h"

using BASEPACKAGE::UserRecord;

namespace {

class Pickers : public testing::Test {
protected:
    /// The tree of the search, "部门[login login]".
    static std::string outline(PeopleDirectory directory, const QString& search) {
        directory.read();
        std::unique_ptr<NameTreeNode> top(directory.createTree<NameTreeNode>(search));
        return top ? outline(top.get()).toStdString() : "nobody";
    }
    static QString outline(const TreeNode* node) {
        QStringList below;
        for (const TreeNode* child : node->children())
            below << outline(child);
        const QString name = static_cast<const NameTreeNode*>(node)->nodeName();
        return below.isEmpty() ? name : name + "[" + below.join(' ') + "]";
    }
    static void search(ModalWindow& window, const QString& text) {
        window.fill(window.find("placeholderText", "搜索联系人"), text).key(Qt::Key_Return);
    }
    std::wstring chooseOwner(const ModalWindow::Steps& steps, const std::wstring& before = {}) {
        UserRecord person{before, L"", L"", L""};
        bool chosen = false;
        ModalWindow::run([&] { chosen = CSelectOwnerWnd::choose(person, {}); }, steps);
        return (chosen ? L"" : L"not ") + person.userName + L" " + person.realName;
    }
    std::wstring chooseReceivers(const ModalWindow::Steps& steps, std::vector<UserRecord> chosen = {}) {
        ModalWindow::run([&] { CSelectReceiverWnd::choose(chosen, {}); }, steps);
        std::wstring logins;
        for (const UserRecord& person : chosen)
            logins += (logins.empty() ? L"" : L" ") + person.userName;
        return logins;
    }
    /// The check box of the department of that name or the person of that login name.
    static QQuickItem* box(const ModalWindow& window, const QString& name) {
        return window.find([&](QQuickItem* item) {
            const auto* node = item->parentItem()->property("node").value<QObject*>();
            return item->property("checkState").isValid() && node && node->property("nodeName") == name;
        });
    }
    static int state(const ModalWindow& window, const QString& name) {
        return box(window, name)->property("checkState").toInt();
    }
    static void check(ModalWindow& window, const QString& name) { window.click(box(window, name)); }
    static QStringList chips(const ModalWindow& window) {
        return window.context("theSelectReceiverWnd")->property("receiverName").toStringList();
    }

    void fillPeople(const std::function<std::wstring(int)>& deptOf) {
        people.users.clear();
        for (int i = 0; i < 5000; ++i)
            people.users.push_back({L"user" + std::to_wstring(i), L"人员" + std::to_wstring(i), L"", deptOf(i)});
    }

    support::ScreenHost host;
    support::FakeOrgDeptMgr& people = host.people;
};

}  // namespace

TEST_F(Pickers, SearchKeepsTheDepartmentsOfThoseFound) {
    PeopleDirectory all;
    const std::pair<const char*, const char*> searches[] = {
        {"", "总公司[一分部[钢筋组[zhangwei zhangwei2 noname] lina] 二分部[ZhaoLei]]"},
        {"张", "总公司[一分部[钢筋组[zhangwei zhangwei2]]]"},
        {" zHaOl ", "总公司[二分部[ZhaoLei]]"},
        {"一分部", "nobody"}};
    for (const auto& [text, found] : searches)
        EXPECT_EQ(outline(all, text), found);
    EXPECT_EQ(outline(PeopleDirectory({"zhangwei", "lina"}), ""),
              "总公司[一分部[钢筋组[zhangwei2 noname]] 二分部[ZhaoLei]]");
}

TEST_F(Pickers, ABadOrganisationLosesNobody) {
    people.users.push_back({L"lina", L"李娜", L"", L"two"});  // twice
    people.users.push_back({L"astray", L"迷路", L"", L"nowhere"});
    people.users.push_back({L"", L"无名", L"", L"two"});
    people.departments[1].parentId = L"steel";  // a circle
    EXPECT_EQ(outline(PeopleDirectory(), ""),
              "总公司[二分部[ZhaoLei] astray 一分部[钢筋组[zhangwei zhangwei2 noname] lina]]");
    people.isReadable = false;
    EXPECT_EQ(outline(PeopleDirectory(), ""), "nobody");
    host.core.managers.erase(BASECORE::NAMES::kDepartments);
    EXPECT_EQ(outline(PeopleDirectory(), ""), "nobody");
    chooseOwner([&](ModalWindow& window) {
        EXPECT_TRUE(window.text("未能读取：没有得到应答"));
        search(window, "zhao");
        EXPECT_TRUE(window.text("未能读取：没有得到应答"));
        host.core.managers[BASECORE::NAMES::kDepartments] = &people;
        people.isReadable = true;
        host.service.become({});
        window.settle();
        EXPECT_EQ(window.wrong({"赵磊(ZhaoLei)", "!李娜(lina)"}), "") << "the search is the same";
        search(window, "nobody");
        EXPECT_TRUE(window.text("没有找到“nobody”"));
        window.click("清除搜索");
        EXPECT_TRUE(window.text("李娜(lina)"));
    });
    host.core.managers.clear();
    UserRecord person;
    ModalWindow::expectNone([&] { EXPECT_FALSE(CSelectOwnerWnd::choose(person, {})); });
    std::vector<UserRecord> receivers;
    ModalWindow::expectNone([&] { EXPECT_FALSE(CSelectReceiverWnd::choose(receivers, {})); });
}

TEST_F(Pickers, OwnerIsAPersonNeverADepartment) {
    EXPECT_EQ(chooseOwner([](ModalWindow& window) {
                  EXPECT_EQ(window.dialog()->minimumSize(), QSize(250, 450));
                  EXPECT_TRUE(window.text("  选择交底人"));
                  const auto highlighted = [&](const char* row) {
                      return window.text(row)->parentItem()->property("highlighted").toBool();
                  };
                  window.click("钢筋组");
                  EXPECT_FALSE(highlighted("钢筋组"));
                  window.click("张伟(zhangwei2)");
                  EXPECT_TRUE(highlighted("张伟(zhangwei2)"));
                  const QQuickItem* ok = window.text("确定")->parentItem();
                  EXPECT_EQ(ok->mapToScene({0, ok->height()}).y(), window.view()->height() - 10);
                  QTest::mouseDClick(window.view(), Qt::LeftButton, {}, {30, 15});
                  EXPECT_TRUE(window.dialog()->isMaximized());
                  window.click("确定");
              }),
              L"zhangwei2 张伟");
    EXPECT_EQ(chooseOwner([](ModalWindow& window) { window.click("钢筋组").click("确定"); }), L"not  ");
    EXPECT_EQ(chooseOwner([](ModalWindow& window) { window.click("确定"); }, L"lina"), L"lina 李娜");
    EXPECT_EQ(chooseOwner([](ModalWindow& window) { window.key(Qt::Key_Escape); }, L"lina"), L"not lina ");
}

TEST_F(Pickers, TheSameTextIsSearchedOnce) {
    EXPECT_EQ(chooseOwner([](ModalWindow& window) {
                  int searches = 0;
                  QObject::connect(static_cast<CSelectOwnerWnd*>(window.context("theSelectOwnerWnd")),
                                   &CSelectOwnerWnd::ownerDataChanged, window.dialog(), [&] { ++searches; });
                  search(window, "zhao");
                  window.key(Qt::Key_Return);
                  EXPECT_EQ(searches, 1);
                  EXPECT_FALSE(window.text("李娜(lina)"));
                  window.click("赵磊(ZhaoLei)").key(Qt::Key_Return);
              }),
              L"ZhaoLei 赵磊");
}

TEST_F(Pickers, ReceiversAreCheckedSearchedAndTakenOut) {
    const std::vector<UserRecord> before{{L"gone", L"离职者", L"", L""}, {L"lina", L"李娜", L"", L""}};
    const std::wstring chosen = chooseReceivers(
        [](ModalWindow& window) {
            EXPECT_TRUE(window.text("  选择接受交底人"));
            EXPECT_EQ(chips(window), (QStringList{"离职者", "李娜"}));
            EXPECT_EQ(window.button("展开一级")->height(), window.find("placeholderText", "搜索联系人")->height());
            check(window, "钢筋组");
            EXPECT_EQ(chips(window), (QStringList{"离职者", "李娜", "张伟(zhangwei)", "张伟(zhangwei2)", "noname"}));
            EXPECT_TRUE(window.text("已选择（人）：5"));
            EXPECT_EQ(state(window, "一分部"), Qt::Checked);

            search(window, "zhangwei");
            EXPECT_EQ(state(window, "钢筋组"), Qt::Checked);
            check(window, "zhangwei");
            search(window, "");
            EXPECT_EQ(chips(window), (QStringList{"离职者", "李娜", "张伟(zhangwei2)", "noname"}))
                << "those hidden stay chosen";

            for (const char* chip : {"离职者", "李娜"})
                window.click(window.text(chip)->parentItem()->childItems().last());
            EXPECT_TRUE(window.text("已选择（人）：2"));
            EXPECT_EQ(state(window, "lina"), Qt::Unchecked);
            EXPECT_EQ(state(window, "总公司"), Qt::PartiallyChecked);
            window.click("确定");
        },
        before);
    EXPECT_EQ(chosen, L"zhangwei2 noname");
    EXPECT_EQ(chooseReceivers(
                  [](ModalWindow& window) {
                      check(window, "总公司");
                      window.click("取消");
                  },
                  before),
              L"gone lina");
}

TEST_F(Pickers, TheTreeOpensAndClosesByLevels) {
    chooseReceivers([](ModalWindow& window) {
        EXPECT_EQ(window.wrong({"一分部", "钢筋组", "张伟(zhangwei)"}), "");
        window.press("收起一级");
        EXPECT_EQ(window.wrong({"一分部", "钢筋组", "!张伟(zhangwei)"}), "");
        window.press("收起一级").press("收起一级").press("收起一级");
        EXPECT_EQ(window.wrong({"!一分部", "!钢筋组", "!张伟(zhangwei)"}), "");
        window.press("展开一级");
        EXPECT_EQ(window.wrong({"一分部", "!钢筋组"}), "");
    });
}

TEST_F(Pickers, NobodyOfALargeOrganisationIsMissing) {
    people.departments.resize(1);
    for (int i = 0; i < 200; ++i) {
        const std::wstring above = i < 20 ? L"dept" : L"d" + std::to_wstring(i / 10);
        people.departments.push_back({L"d" + std::to_wstring(i), L"班组" + std::to_wstring(i), above});
    }
    fillPeople([](int i) { return L"d" + std::to_wstring(i % 203); });  // a few in departments that nobody lists
    PeopleDirectory all;
    EXPECT_EQ(QString::fromStdString(outline(all, "")).count("user"), 5000);
    EXPECT_EQ(outline(all, "USER4999"), "总公司[班组12[班组127[user4999]]]");
}

TEST_F(Pickers, WholeCompanyIsChosenAndTakenOutAgain) {
    fillPeople([](int) { return L"steel"; });
    EXPECT_EQ(chooseReceivers([](ModalWindow& window) {
                  check(window, "总公司");
                  EXPECT_EQ(window.wrong({"已选择（人）：5000", "人员1", "!人员4999"}), "")
                      << "only the chips in sight are made";
                  search(window, "人员4321");
                  EXPECT_TRUE(window.text("人员4321(user4321)"));
                  search(window, "");
                  check(window, "总公司");
                  EXPECT_TRUE(window.text("已选择（人）：0"));
                  check(window, "user0");
                  window.click("确定");
              }),
              L"user0");
}
