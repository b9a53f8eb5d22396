#include <random>
#include <set>

#include "service/domain/Documents.h"
#include "service/files/Sweep.h"
#include "service/ports/Changing.h"
#include "tests/service/TaskTest.h"

namespace disclosure::testing {
namespace {

class DocumentRules : public TaskTest {
protected:
    std::string upload(const std::string& content, const std::string& name = "a.pdf") {
        const Answer answer = demo.upload(FirstDept, name, content);
        EXPECT_EQ(answer.code(), 200) << answer.body;
        return answer.code() == 200 ? answer.json()["result"]["uuid"].GetString() : "";
    }
    Answer post(const std::string& operation, const Members& members) {
        return demo.post(DocumentsPath + operation, object({{"deptId", FirstDept}}, members));
    }
    /// A document of this content; returns the uuid.
    std::string add(const std::string& id, const std::string& content, const Members& more = {}) {
        const std::string uuid = upload(content);
        Members members{{"id", id}, {"name", id}, {"uuid", uuid}};
        members.insert(members.end(), more.begin(), more.end());
        EXPECT_EQ(post("save", members).code(), 200);
        return uuid;
    }
    rapidjson::Document get(const std::string& what) {
        auto json =
            demo.get(DocumentsPath + what + (what.find('?') == std::string::npos ? "?" : "&") + "deptId=" + FirstDept)
                .json();
        EXPECT_EQ(json["code"].GetInt(), 200) << what;
        return json;
    }
    /// What `find` says of one document.
    rapidjson::Document found(const std::string& id) { return get("find?ids=" + id); }
    Answer link(const std::string& task, const std::string& document, const std::string& uuid,
                const std::string& content, const char* linkId = "l") {
        return update(task, {{"saveDisclosureTaskDocList",
                              list({filedJson(linkId, document, uuid, md5Of(content), std::ssize(content))})}});
    }
    int codeOf(const std::string& username, const std::string& uuid) {
        return service.loggedIn(username).get("/rs/platform/files/" + uuid + "?deptId=" + FirstDept).etag.empty() ? 404
                                                                                                                  : 200;
    }
    /// A turn of the hourly sweep.
    void sweep() {
        const GoOn always = [] { return true; };
        const auto store = service.database().connect();
        clearDeletedDocuments(*store, service.now - 30 * ADay, always);
        sweepFiles(*store, service.files(), std::chrono::hours(24), service.now, always);
    }
};

TEST_F(DocumentRules, WhatMayNotBeIsRefusedAndSaysWhy) {
    const std::string uuid = upload("text");
    add("doc", "content");
    add("gone", "other");
    post("delete", {{"ids", list({"gone"})}});
    post("folders/save", {{"id", "a"}, {"name", "图纸"}});
    post("folders/save", {{"id", "b"}, {"name", "结构"}, {"parentId", "a"}});
    std::string deep = "a";
    for (int i = 2; i < 32; ++i) {
        const std::string id = "n" + std::to_string(i);
        ASSERT_EQ(post("folders/save", {{"id", id}, {"name", "层"}, {"parentId", deep}}).code(), 200);
        deep = id;
    }
    const std::string wide(129, 'n');
    const auto saved = [&](const std::string& name) { return Members{{"id", "x"}, {"name", name}, {"uuid", uuid}}; };
    const auto tagged = [](const std::vector<Json>& tags) {
        return Members{{"ids", list({"doc"})}, {"tags", list(tags)}};
    };
    std::vector<Json> eleven;
    for (int i = 0; i < 11; ++i)
        eleven.emplace_back(std::to_string(i));
    const std::string before = demo.get("/rs/platform/documents?deptId=demo-dept-1").body;
    const std::tuple<const char*, Members, int, const char*> refused[] = {
        {"save", saved("../图"), 422, "资料名称不能包含控制字符和\\/:*?\"<>|"},
        {"save", saved("a\\u0007"), 422, "资料名称不能包含控制字符和\\/:*?\"<>|"},
        {"save", saved("　 "), 422, "资料名称不能为空"},
        {"save", saved(wide), 422, "资料名称不能超过128个字符"},
        {"save", saved(wide.substr(1)), 422, "资料名称不能超过128个字符"},
        {"save",
         {{"id", "a/b"}, {"name", "n"}, {"uuid", uuid}},
         422,
         "资料编号只能由字母、数字、下划线和连字符组成，且不超过64个字符"},
        {"save", {{"id", "x"}, {"name", "n"}, {"uuid", "none"}}, 422, "资料尚未上传或已失效，请重新上传"},
        {"save", {{"id", "x"}, {"name", "n"}, {"uuid", uuid}, {"folderId", "none"}}, 404, "文件夹不存在或已被删除"},
        {"save", {{"id", "gone"}, {"name", "n"}, {"uuid", uuid}}, 404, "资料不存在或已被删除"},
        {"save",
         {{"id", "x"}, {"name", "n"}, {"uuid", uuid}, {"weaveDateMills", 253402300800000}},
         422,
         "日期超出允许的范围"},
        {"update", {{"ids", list({"gone"})}, {"name", "n"}}, 404, "资料不存在或已被删除"},
        {"update", {{"ids", list({"doc", "none"})}, {"folderId", "a"}}, 404, "资料不存在或已被删除"},
        {"update", {{"ids", list({"doc", "gone"})}, {"name", "n"}}, 422, "一次只能重命名一份资料"},
        {"update", {{"ids", list({})}}, 422, "请选择资料"},
        {"update", tagged({"none"}), 422, nullptr},
        {"update", tagged({"ALL"}), 422, nullptr},
        {"update", tagged({"一、二"}), 422, nullptr},
        {"update", tagged({" "}), 422, nullptr},
        {"update", tagged({std::string(33, 't')}), 422, nullptr},
        {"update", tagged(eleven), 422, "一份资料最多10个标签"},
        {"restore", {{"ids", list({"none"})}}, 404, "资料不存在或已被删除"},
        {"folders/save", {{"id", "x"}, {"name", " 图纸 "}}, 409, "同一文件夹下已有同名文件夹"},
        {"folders/save", {{"id", "a"}, {"name", "其它"}}, 409, "文件夹编号已被使用"},
        {"folders/save", {{"id", "0"}, {"name", "其它"}}, 422, nullptr},
        {"folders/save", {{"id", "x"}, {"name", "a:b"}}, 422, "文件夹名称不能包含控制字符和\\/:*?\"<>|"},
        {"folders/save", {{"id", "x"}, {"name", "层"}, {"parentId", "n31"}}, 200, ""},
        {"folders/save", {{"id", "y"}, {"name", "层"}, {"parentId", "x"}}, 409, "文件夹层级不能超过32层"},
        {"folders/update", {{"id", "a"}, {"parentId", "n9"}}, 409, "不能将文件夹移动到其自身或下级文件夹中"},
        {"folders/update", {{"id", "0"}, {"name", "x"}}, 404, "文件夹不存在或已被删除"},
        {"folders/delete", {{"id", "a"}}, 409, "文件夹不为空，不能删除"},
    };
    for (const auto& [operation, members, code, msg] : refused) {
        const Answer answer = post(operation, members);
        EXPECT_EQ(answer.status, 200) << operation << answer.body;
        EXPECT_EQ(answer.code(), code) << operation << answer.body;
        if (msg) {
            EXPECT_EQ(answer.msg(), msg) << operation;
        }
    }
    for (const char* none : {"", "&startSeconds=-9223372036854776"})
        EXPECT_EQ(demo.get(std::string("/rs/platform/documents?deptId=demo-dept-1") + none).body, before) << none;
    for (const char* query : {"type=x", "deleted=2", "pageSize=201", "startSeconds=x"})
        EXPECT_EQ(demo.get(std::string("/rs/platform/documents?deptId=demo-dept-1&") + query).status, 400) << query;
    EXPECT_EQ(demo.post("/rs/platform/files/delete", object({{"deptId", FirstDept}, {"uuid", uuid}})).code(), 200);
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM doc_tag"), 0) << "none of a refused change";
}

TEST_F(DocumentRules, FoldersKeepWhatIsInThemWhereverTheyGo) {
    for (const auto& [id, parent] : {std::pair("a", "0"), {"b", "a"}, {"c", "b"}, {"z", ""}})
        ASSERT_EQ(post("folders/save", {{"id", id}, {"name", id}, {"parentId", parent}}).code(), 200);
    EXPECT_EQ(post("folders/save", {{"id", "c"}, {"name", "c"}, {"parentId", "b"}}).code(), 200) << "said again";
    add("doc", "1", {{"folderId", "c"}});
    ASSERT_EQ(post("folders/update", {{"id", "b"}, {"parentId", "z"}, {"name", "新"}}).code(), 200);
    const auto folders = get("folders");
    std::string all;
    for (const auto& f : folders["result"].GetArray())
        all += std::string(f["id"].GetString()) + f["parentId"].GetString() +
               std::to_string(f["documentNumber"].GetInt()) + " ";
    EXPECT_EQ(all, "a00 z00 bz0 cb1 ");
    EXPECT_EQ(service.number("SELECT depth FROM doc_folder WHERE folder_id = 'c'"), 3);
    EXPECT_EQ(post("folders/delete", {{"id", "c"}}).code(), 409);

    // What is deleted does not hold its folder, and then lies in the top.
    post("delete", {{"ids", list({"doc"})}});
    ASSERT_EQ(post("folders/delete", {{"id", "c"}}).code(), 200);
    ASSERT_EQ(post("restore", {{"ids", list({"doc"})}}).code(), 200);
    EXPECT_STREQ(found("doc")["result"][0]["folderId"].GetString(), "0");
    EXPECT_EQ(service.number(CountersAreWrong), 0);
}

TEST_F(DocumentRules, ContentsStayAndATaskSaysWhichItLinks) {
    const std::string first = add("doc", "first", {{"tags", list({"甲", "乙", "甲"})}, {"weaveDateMills", 5}});
    EXPECT_STREQ(found("doc")["result"][0]["name"].GetString(), "doc.pdf");
    const std::string second = upload("second", "b.TXT");
    const Members replacing{{"id", "doc"}, {"name", "ignored"}, {"uuid", second}};
    ASSERT_EQ(post("save", replacing).code(), 200);
    EXPECT_EQ(post("save", replacing).code(), 200) << "the answer was lost";
    EXPECT_EQ(post("save", {{"id", "doc"}, {"name", "x"}, {"uuid", first}}).code(), 200) << "an older one, late";
    const auto now = found("doc");
    EXPECT_STREQ(now["result"][0]["name"].GetString(), "doc.txt");
    EXPECT_EQ(now["result"][0]["uuid"].GetString(), second);
    EXPECT_EQ(now["result"][0]["md5"].GetString(), md5Of("second"));
    EXPECT_EQ(now["result"][0]["contentNumber"].GetInt(), 2);
    EXPECT_EQ(now["result"][0]["tags"].Size(), 2U);
    EXPECT_EQ(now["result"][0]["weaveDateMills"].GetInt(), 5);
    const auto contents = get("contents?id=doc");
    EXPECT_EQ(contents["result"][0]["uuid"].GetString(), second);
    EXPECT_EQ(contents["result"][1]["uuid"].GetString(), first);
    add("other", "other");

    ASSERT_EQ(save(taskBody("t", "任务")).code(), 200);
    EXPECT_EQ(link("t", "doc", first, "first").code(), 200) << "an earlier content";
    EXPECT_EQ(link("t", "doc", second, "second").code(), 200);
    for (const Answer& wrong : {link("t", "other", first, "first"), link("t", "doc", second, "first"),
                                link("t", "none", first, "first"), link("t", "doc", "none", "first")}) {
        EXPECT_EQ(wrong.code(), 422);
        EXPECT_EQ(wrong.msg(), "资料库中没有该资料或该版本，请重新选择：图.pdf");
    }
    EXPECT_EQ(link("t", "doc", second, "second", "m").msg(), "关联的资料重复");
    EXPECT_EQ(demo.post("/rs/platform/files/delete", object({{"deptId", FirstDept}, {"uuid", first}})).msg(),
              "文件已被引用，不能删除");

    // Deleted by somebody else in between: what was linked stays, and nothing new is.
    const Answer asked = post("delete", {{"ids", list({"doc", "other"})}});
    EXPECT_EQ(asked.code(), 409);
    EXPECT_EQ(asked.msg(), "资料已被交底任务关联：1份资料，1个任务");
    EXPECT_EQ(asked.json()["result"]["documents"].GetInt(), 1);
    EXPECT_EQ(found("other")["result"][0]["isDeleted"].GetInt(), 0) << "all or none";
    ASSERT_EQ(post("delete", {{"ids", list({"doc", "other"})}, {"isForced", 1}}).code(), 200);
    EXPECT_EQ(found("doc")["result"][0]["isDeleted"].GetInt(), 1);
    EXPECT_EQ(link("t", "other", found("other")["result"][0]["uuid"].GetString(), "other", "m").msg(),
              "资料已被删除，不能关联：图.pdf");
    EXPECT_EQ(link("t", "doc", second, "second").code(), 200) << "as it was";
    EXPECT_EQ(update("t", {{"name", "改"}}).code(), 200);
    EXPECT_EQ(link("t", "doc", first, "first").code(), 422) << "another content is a new link";
    EXPECT_EQ(get("tags")["result"].Size(), 0U) << "no document that is there has one";
    ASSERT_EQ(post("restore", {{"ids", list({"doc", "other"})}}).code(), 200);
    EXPECT_EQ(get("tags")["result"].Size(), 2U);
    EXPECT_EQ(service.number(CountersAreWrong), 0);
}

TEST_F(DocumentRules, WhoAPublishedTaskIsForReadsExactlyTheContentsItShows) {
    const std::string first = add("doc", "first");
    const std::string second = upload("second");
    ASSERT_EQ(post("save", {{"id", "doc"}, {"name", "x"}, {"uuid", second}}).code(), 200);
    ASSERT_EQ(save(taskBody("t", "任务",
                            {{"disclosureUserName", "chenwei"},
                             {"disclosureTaskReceiveUserList", people({{"r", "zhoujie"}})}}))
                  .code(),
              200);
    ASSERT_EQ(link("t", "doc", first, "first").code(), 200);
    EXPECT_EQ(codeOf("zhoujie", first), 404) << "not published yet";
    ASSERT_EQ(update("t", {{"isPublish", 1}}).code(), 200);
    EXPECT_EQ(codeOf("zhoujie", first), 200);
    EXPECT_EQ(codeOf("zhoujie", second), 404);
    EXPECT_EQ(codeOf("second", first), 404);
    EXPECT_EQ(codeOf("reader", second), 200);
    post("delete", {{"ids", list({"doc"})}, {"isForced", 1}});
    EXPECT_EQ(codeOf("zhoujie", first), 200);
}

TEST_F(DocumentRules, ContentsGoWithADocumentThatNoTaskLinksALongTimeAfterItWasDeleted) {
    const std::string first = add("doc", "first");
    const std::string second = upload("second");
    ASSERT_EQ(post("save", {{"id", "doc"}, {"name", "x"}, {"uuid", second}}).code(), 200);
    const std::string lone = add("lone", "lone");
    ASSERT_EQ(save(taskBody("t", "任务")).code(), 200);
    ASSERT_EQ(link("t", "doc", first, "first").code(), 200);
    const auto knows = [&](const std::string& uuid) { return service.database().connect()->knowsFile(uuid); };
    const auto pass = [&](int days) {
        for (int day = 0; day < days; ++day) {
            service.now += ADay;
            sweep();
        }
        demo.login("demo", "demo");  // the session has ended
    };
    pass(3);
    EXPECT_TRUE(knows(first) && knows(second) && knows(lone)) << "a document's contents, and earlier ones";
    post("delete", {{"ids", list({"doc", "lone"})}, {"isForced", 1}});
    pass(29);
    EXPECT_TRUE(knows(lone));
    pass(4);
    EXPECT_FALSE(knows(lone));
    EXPECT_TRUE(std::filesystem::exists(service.placeOf(lone, "unknown"))) << "set aside";
    EXPECT_TRUE(knows(first) && knows(second)) << "a task links it";
    EXPECT_EQ(service.number("SELECT loose_since FROM document WHERE doc_id = 'doc'"), 0) << "not looked at again";
    ASSERT_EQ(update("t", {{"delDisclosureTaskDocIds", list({"l"})}}).code(), 200);
    pass(3);
    EXPECT_FALSE(knows(first) || knows(second));
    EXPECT_EQ(service.number("SELECT (SELECT COUNT(*) FROM document) + (SELECT COUNT(*) FROM doc_content) + (SELECT "
                             "COUNT(*) FROM doc_tally WHERE number <> 0)"),
              0);
}

/// Many documents in few folders, of few kinds and people, so that every filter meets the others.
class DocumentLists : public ::testing::Test {
protected:
    DocumentLists() {
        changing(*store, [&] {
            for (const char* id : {"f1", "f2"})
                store->addFolder({FirstDept, id, TopFolder, id});
            for (const char* tag : {"t1", "t2", "t3"})
                store->addTag(FirstDept, {tag, tag});
            for (int i = 0; i < 2500; ++i) {
                Document d;
                d.deptId = FirstDept;
                d.id = "d" + std::to_string(i);
                set(d);
                d.isDeleted = dice(10) == 0;
                d.rid = store->addDocument(d);
                all.push_back(d);
            }
        });
    }
    int dice(int sides) { return static_cast<int>(random() % static_cast<unsigned>(sides)); }
    void set(Document& d) {
        const char* extensions[] = {"pdf", "pdf", "txt", "dwg", "png"};
        const char* words[] = {"图", "钢筋", "方案Ⅱ", "Plan", "模板"};
        d.folderId = std::vector{"0", "f1", "f2", "f2", "f2"}[static_cast<std::size_t>(dice(5))];
        d.extension = extensions[dice(5)];
        d.name = std::string(words[dice(5)]) + words[dice(5)] + std::to_string(dice(40)) + "." + d.extension;
        d.uuid = "u" + std::to_string(random());
        d.updatedBy = std::vector{"demo", "demo", "demo", "editor", "nobody"}[static_cast<std::size_t>(dice(5))];
        d.updatedAt = 1000 + dice(500);
        d.wovenAt = dice(3) ? 1 + dice(1000) : 0;
        d.tags.clear();
        for (const char* tag : {"t1", "t2", "t3"})
            if (dice(tag[1] == '3' ? 40 : 3) == 0)
                d.tags.push_back({tag, tag});
    }
    DocumentFilter anyFilter() {
        const std::vector<std::string> extensions[] = {{}, {"pdf"}, {"dwg", "png"}, {"mp4"}};
        DocumentFilter f;
        f.deptId = FirstDept;
        f.folderId = std::vector{"0", "0", "f1", "f2", "none"}[static_cast<std::size_t>(dice(5))];
        f.extensions = extensions[dice(4) * dice(2)];
        f.updatedBy = std::vector{"", "", "", "editor", "nobody"}[static_cast<std::size_t>(dice(5))];
        f.tagId = std::vector{"", "", "none", "t1", "t3", "t9"}[static_cast<std::size_t>(dice(6))];
        f.keyword = std::vector{"", "", "图", "钢筋", "lan图", "方案ⅱ1", "7."}[static_cast<std::size_t>(dice(7))];
        if (dice(3) == 0) {
            f.from = 1 + dice(1000);
            f.to = f.from + dice(1000);
        }
        f.deleted = dice(6) == 0;
        f.limit = 1 + dice(20);
        f.offset = dice(3) ? 0 : dice(600);
        return f;
    }
    static bool lets(const DocumentFilter& f, const Document& d) {
        const auto has = [&](const std::string& tag) {
            return std::any_of(d.tags.begin(), d.tags.end(), [&](const DocumentTag& t) { return t.id == tag; });
        };
        const auto small = [](const std::string& text) {
            std::string form = text;
            for (auto at = form.find("Ⅱ"); at != std::string::npos; at = form.find("Ⅱ"))
                form.replace(at, std::string("Ⅱ").size(), "ⅱ");
            std::transform(form.begin(), form.end(), form.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
            return form;
        };
        return d.isDeleted == f.deleted && (f.folderId == "0" || f.folderId == d.folderId) &&
               (f.extensions.empty() ||
                std::find(f.extensions.begin(), f.extensions.end(), d.extension) != f.extensions.end()) &&
               (f.updatedBy.empty() || f.updatedBy == d.updatedBy) &&
               (f.tagId.empty() || (f.tagId == "none" ? d.tags.empty() : has(f.tagId))) &&
               small(d.name).find(small(f.keyword)) != std::string::npos &&
               (f.to == Never || (d.wovenAt >= f.from && d.wovenAt <= f.to));
    }
    void compare(int filters) {
        for (int i = 0; i < filters && !HasFailure(); ++i) {
            const DocumentFilter filter = anyFilter();
            std::vector<const Document*> expected;
            for (const Document& d : all)
                if (lets(filter, d))
                    expected.push_back(&d);
            std::sort(expected.begin(), expected.end(), [](const Document* a, const Document* b) {
                return std::pair(a->updatedAt, a->rid) > std::pair(b->updatedAt, b->rid);
            });
            const auto page = store->pageDocuments(filter);
            const std::string which = filter.folderId + " " + filter.updatedBy + " " + filter.tagId + " " +
                                      filter.keyword + " " + std::to_string(filter.from) + " " +
                                      std::to_string(filter.extensions.size()) + (filter.deleted ? " deleted" : "");
            ASSERT_EQ(page.total, std::ssize(expected)) << which;
            const auto rest = std::max<std::int64_t>(0, std::ssize(expected) - filter.offset);
            ASSERT_EQ(std::ssize(page.documents), std::min(filter.limit, rest)) << which;
            for (std::size_t d = 0; d < page.documents.size(); ++d) {
                const Document& wanted = *expected[d + static_cast<std::size_t>(filter.offset)];
                EXPECT_EQ(page.documents[d].id, wanted.id) << which;
                EXPECT_EQ(page.documents[d].tags, wanted.tags);
            }
        }
        EXPECT_EQ(service.number(CountersAreWrong), 0);
    }

    TestService service;
    std::unique_ptr<IStore> store = service.database().connect();
    std::mt19937 random{20240601};
    std::vector<Document> all;
};

TEST_F(DocumentLists, APageIsWhatItsFiltersLetInBeforeAndAfterChanges) {
    compare(300);
    changing(*store, [&] {
        for (int i = 0; i < 800; ++i) {
            Document& d = all[static_cast<std::size_t>(dice(static_cast<int>(all.size())))];
            const Document before = d;
            set(d);
            d.isDeleted = dice(4) == 0;
            ++d.contentNumber;
            store->putDocument(d, before);
        }
    });
    compare(300);
    std::string updaters;
    for (const Person& person : store->updatersIn(FirstDept, "f1"))
        updaters += person.username + " ";
    EXPECT_EQ(updaters, "nobody demo editor ") << "by shown name";
    changing(*store, [&] {
        for (Document& d : all)
            store->removeDocument(d);
    });
    all.clear();
    compare(20);
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM doc_tag"), 0) << "no document has one any more";
}

}  // namespace
}  // namespace disclosure::testing
