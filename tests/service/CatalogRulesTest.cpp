
#include "tests/service/TestService.h"

namespace disclosure::testing {
namespace {

class CatalogRules : public ::testing::Test {
protected:
    int save(const std::string& id, const std::string& name, const std::string& parentId) {
        return demo.post(SavePath, saveBody(FirstDept, id, name, parentId)).code();
    }
    int rename(const std::string& id, const std::string& name) {
        return demo.post(UpdatePath, R"({"id":")" + id + R"(","name":")" + name + R"("})").code();
    }
    int move(const std::string& id, int offset) {
        return demo.post(MovePath, R"({"id":")" + id + R"(","offset":)" + std::to_string(offset) + "}").code();
    }
    Answer remove(const std::string& id, int withTasks) {
        return demo.del(DeletePath, R"({"id":")" + id + R"(","isContainsTask":)" + std::to_string(withTasks) + "}");
    }
    std::vector<Catalog> list(const std::string& deptId = FirstDept) { return store->catalogs(deptId); }
    std::vector<std::string> childrenOf(const std::string& parentId) {
        std::vector<std::string> names;
        for (const Catalog& c : list()) {
            if (c.parentId == parentId)
                names.push_back(c.name);
        }
        return names;
    }

    TestService service;
    Client demo{service.loggedIn("demo")};
    std::unique_ptr<IStore> store = service.database().connect();
};

TEST_F(CatalogRules, ListsParentsBeforeChildrenAndSiblingsInOrder) {
    std::set<std::string> seen;
    const auto json = demo.get(std::string(ListPath) + FirstDept).json();
    for (const auto& c : json["result"].GetArray()) {
        const std::string parent = c["parentId"].GetString();
        EXPECT_TRUE(parent.empty() ? seen.empty() : seen.contains(parent)) << c["name"].GetString();
        seen.insert(c["id"].GetString());
    }
    EXPECT_EQ(seen.size(), 29U);
    EXPECT_EQ(childrenOf(Top), (std::vector<std::string>{"土建工程", "机电安装", "装饰装修", "安全文明施工"}));
}

TEST_F(CatalogRules, ARepeatedSaveIsNoErrorAndADifferentOneIs) {
    // Blanks do not count, but capitals do; the names of siblings are unique.
    EXPECT_EQ(wrong({{save("new", "屋面工程", Top), 200},
                     {save("new", " 屋面工程　", Top), 200},
                     {save("new", "地面工程", Top), 409},
                     {save("new", "屋面工程", "demo-catalog-2"), 409},
                     {save("other", "屋面工程", Top), 409},
                     {save("other", "屋面工程", "demo-catalog-2"), 200},
                     {save("third", "A", Top), 200},
                     {save("fourth", "a", Top), 200}}),
              "");
    EXPECT_EQ(childrenOf(Top).size(), 7U);
}

TEST_F(CatalogRules, NamesAndIdsHaveLimits) {
    const auto times = [](const std::string& text, int n) {
        std::string result;
        for (int i = 0; i < n; ++i)
            result += text;
        return result;
    };
    // An emoji is two UTF-16 units.
    EXPECT_EQ(wrong({{save("a", times("层", 128), Top), 200},
                     {save("b", times("层", 129), Top), 422},
                     {save("c", times("😀", 64), Top), 200},
                     {save("d", times("😀", 65), Top), 422},
                     {save(times("i", 64), "长编号", Top), 200},
                     {save(times("i", 65), "过长编号", Top), 422},
                     {save("f", "孤儿", "missing"), 404}}),
              "");
    for (const char* name :
         {"", "  　", "a/b", "a\\\\b", "a:b", "a*", "a?", "a\\\"", "<", ">", "|", "a\\u0001", "\\u007f", "\\u0085"})
        EXPECT_EQ(save("e", name, Top), 422) << name;
    for (const char* id : {"a b", "../x", "编号", "a\\u0027--"})
        EXPECT_EQ(save(id, "名称", Top), 422) << id;
}

TEST_F(CatalogRules, DepthIsBounded) {
    std::string parent = Top;
    for (int depth = 2; depth <= 32; ++depth) {
        const std::string id = "level-" + std::to_string(depth);
        ASSERT_EQ(save(id, "层", parent), 200) << depth;
        parent = id;
    }
    EXPECT_EQ(save("level-33", "层", parent), 409);
    EXPECT_EQ(remove("level-2", 1).code(), 200) << "a subtree of every depth goes";
}

TEST_F(CatalogRules, RenameKeepsSiblingsApartAndTheTopAsItIs) {
    EXPECT_EQ(wrong({{rename("demo-catalog-2", "土建"), 200},
                     {rename("demo-catalog-2", "机电安装"), 409},
                     {rename("demo-catalog-2", "a?"), 422},
                     {rename(Top, "其他"), 409},
                     {rename(Top, "全部"), 200},
                     {rename("missing", "其他"), 404}}),
              "");
    EXPECT_EQ(childrenOf(Top)[0], "土建");
}

TEST_F(CatalogRules, MovesByOnePlaceAndStopsAtTheEnds) {
    const std::string first = "demo-catalog-2";
    EXPECT_EQ(wrong({{move(first, 0), 409}, {move(first, 1), 200}}), "");
    EXPECT_EQ(childrenOf(Top)[1], "土建工程");
    EXPECT_EQ(wrong({{move(first, 1), 200},
                     {move(first, 1), 200},
                     {move(first, 1), 409},
                     {move(first, 0), 200},
                     {move(Top, 0), 409}}),
              "");
    EXPECT_EQ(childrenOf(Top), (std::vector<std::string>{"机电安装", "装饰装修", "土建工程", "安全文明施工"}));
    ASSERT_EQ(remove("demo-catalog-17", 0).code(), 200);
    EXPECT_EQ(save("last", "最后", Top), 200) << "after a gap in the order";
    EXPECT_EQ(childrenOf(Top).back(), "最后");
}

TEST_F(CatalogRules, DeleteTakesTheSubtreeAndItsTasksOrNothing) {
    service.addTask(FirstDept, "demo-catalog-4", "t1");
    service.addTask(FirstDept, "demo-catalog-17", "t2");
    for (const Catalog& c : list())
        EXPECT_EQ(c.taskNumber, c.id == "demo-catalog-4" || c.id == "demo-catalog-17" ? 1 : 0) << c.name;

    EXPECT_EQ(remove("demo-catalog-3", 0).code(), 409);
    EXPECT_EQ(demo.del(DeletePath, R"({"id":"demo-catalog-3"})").code(), 409) << "the flag is off when absent";
    EXPECT_EQ(service.loggedIn("editor").del(DeletePath, R"({"id":"demo-catalog-3","isContainsTask":1})").code(), 403);
    EXPECT_EQ(list().size(), 29U);
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM task_log"), 0);
    EXPECT_EQ(remove("demo-catalog-3", 1).code(), 200);
    EXPECT_EQ(list().size(), 25U);
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM task"), 1);
    EXPECT_EQ(remove("demo-catalog-3", 1).code(), 404);

    EXPECT_EQ(remove(Top, 1).code(), 200);
    EXPECT_TRUE(list().empty());
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM task"), 0);
    EXPECT_EQ(save("", "全部", ""), 200) << "the department can begin anew";
}

TEST_F(CatalogRules, OneIdInTwoDepartmentsStaysApart) {
    Client second = service.loggedIn("second");
    ASSERT_EQ(second.post(SavePath, saveBody(SecondDept, Top, "全部", "")).code(), 200);
    EXPECT_EQ(second.post(SavePath, saveBody(SecondDept, "", "另一", "")).code(), 409) << "a second top";
    EXPECT_EQ(second.post(SavePath, saveBody(SecondDept, "", "技术交底", Top)).code(), 200);
    EXPECT_EQ(list(SecondDept).back().id.size(), 36U) << "given by the service";
    EXPECT_EQ(save("mine", "我的", Top), 200);
    EXPECT_EQ(list(SecondDept).size(), 2U);
    EXPECT_EQ(second.del(DeletePath, R"({"id":"demo-catalog-1","isContainsTask":1})").code(), 200);
    EXPECT_EQ(list().size(), 30U);
}

TEST_F(CatalogRules, ConcurrentSavesOfOneNameLeaveOne) {
    constexpr int Clients = 8;
    std::vector<std::thread> threads;
    std::atomic<int> accepted{0};
    for (int i = 0; i < Clients; ++i)
        threads.emplace_back([&, i] {
            Client own(service.port(), demo.cookie());
            for (int n = 0; n < 10; ++n) {
                const std::string id = "c" + std::to_string(i) + "-" + std::to_string(n);
                const int code = own.post(SavePath, saveBody(FirstDept, id, "同名" + std::to_string(n), Top)).code();
                EXPECT_TRUE(code == 200 || code == 409) << code;
                accepted += code == 200;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(accepted, 10);
    EXPECT_EQ(childrenOf(Top).size(), 14U);
    EXPECT_EQ(service.number("SELECT COUNT(DISTINCT sort) FROM catalog WHERE parent_id = 'demo-catalog-1'"), 14);
}

}  // namespace
}  // namespace disclosure::testing
