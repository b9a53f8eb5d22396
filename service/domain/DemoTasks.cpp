#include "service/domain/DemoTasks.h"

#include <array>
#include <set>

#include "service/domain/Confirmations.h"
#include "service/domain/Files.h"
#include "service/domain/Tasks.h"
#include "service/ports/Changing.h"

namespace disclosure {

namespace {

constexpr std::array Subjects{"施工准备与技术要求", "工序流程与质量控制", "安全措施与应急处置", "成品保护与验收标准"};
constexpr std::array People{"demo", "editor", "chenwei", "liuyang", "sunli"};

/// How far a task has come.
enum Progress { Planned, Published, Begun, Done, Stages };

/// The beginning of the day, where the demonstration's site is: eight hours ahead of UTC.
std::int64_t dayOf(std::int64_t now) {
    constexpr std::int64_t Ahead = Day / 3;
    return (now + Ahead) / Day * Day - Ahead;
}

/// The catalogs that have none below them.
std::vector<Catalog> leavesOf(const std::vector<Catalog>& catalogs) {
    std::set<std::string> parents;
    for (const Catalog& catalog : catalogs)
        parents.insert(catalog.parentId);
    std::vector<Catalog> leaves;
    for (const Catalog& catalog : catalogs)
        if (!parents.contains(catalog.id))
            leaves.push_back(catalog);
    return leaves;
}

TaskContent contentOf(const Catalog& catalog, int number, std::int64_t today, Progress progress) {
    // Three weeks around today, so that some are overdue and some are to come.
    const std::int64_t start = today + (number * 5 % 21 - 10) * Day;
    TaskContent content;
    content.catalogId = catalog.id;
    content.name = catalog.name + Subjects[number % Subjects.size()] + "技术交底";
    content.discloser = People[number % People.size()];
    content.constructionStart = start;
    content.constructionEnd = start + (7 + number % 5) * Day;
    content.planDisclosure = start - 2 * Day;
    content.expiry = start + 4 * Day;
    content.published = progress != Planned;
    content.remark = "交底完成后由接受人逐一确认。";
    for (int i = 1; i <= 3; ++i)
        content.receivers.push_back(
            {.id = "", .username = People[(number + i) % People.size()], .realname = "", .headUuid = ""});
    return content;
}

std::string documentText(const Catalog& catalog, const std::string& title) {
    return title + "\n\n适用范围：" + catalog.name +
           "\n\n一、施工准备\n1. 图纸会审完毕，人员、机具、材料到位并经检查合格。\n2. "
           "作业面已验收，临边和洞口防护齐全。\n"
           "\n二、操作要点\n1. 按经审批的方案和样板施工，每道工序自检合格后方可进入下一道工序。\n"
           "2. 隐蔽部位留存影像，报验后再覆盖。\n"
           "\n三、安全要求\n1. 进入现场佩戴安全帽，高处作业系挂安全带。\n2. 发现险情立即停止作业，撤离并报告。\n";
}

/// Stores the task's document, its content first, and returns the link to it.
TaskDoc addDocument(IStore& store, const Catalog& catalog, const std::string& title, std::int64_t time,
                    const KeepContent& keep) {
    const std::string text = documentText(catalog, title);
    StoredFile file{{DemoDept, newFileUuid()}, title + ".txt", "txt", "", std::ssize(text), People[0], time};
    file.md5 = keep(file.key.uuid, text);
    store.addFile(file);
    return {"", 0, file.name, file.key.uuid, file.md5, static_cast<std::int32_t>(file.size), "txt", TaskDoc::Uploaded,
            ""};
}

/// Those about the catalog's work, and any other.
void linkDocuments(TaskContent& content, const Catalog& catalog, const std::vector<Document>& documents, int number) {
    constexpr std::size_t Most = 2;
    std::vector<const Document*> chosen{&documents[static_cast<std::size_t>(number) % documents.size()]};
    for (const Document& document : documents)
        if (chosen.size() < Most && document.name.starts_with(catalog.name) && &document != chosen.front())
            chosen.push_back(&document);
    for (const Document* d : chosen)
        content.docs.push_back(
            {"", 0, d->name, d->uuid, d->md5, static_cast<std::int32_t>(d->size), d->extension, TaskDoc::Filed, d->id});
}

}  // namespace

void seedDemoTasks(IStore& store, std::int64_t now, const std::vector<Document>& documents, const KeepContent& keep) {
    // A repetition stores the documents anew; the contents of the first try are left to the sweep.
    changing(store, [&] {
        int number = 0;
        for (const Catalog& catalog : leavesOf(store.catalogs(DemoDept)))
            for (int i = 0; i < 2 + number % 2; ++i, ++number) {
                const auto progress = static_cast<Progress>(number / 3 % Stages);
                const std::string id = "demo-task-" + std::to_string(number);
                // Filed a little apart, so that the latest change first is an order.
                const std::int64_t filed = now - (200 - number) * 60'000LL;
                TaskContent content = contentOf(catalog, number, dayOf(now), progress);
                content.docs.push_back(addDocument(store, catalog, content.name, filed, keep));
                linkDocuments(content, catalog, documents, number);
                Tasks(store, People[0], filed).save(DemoDept, id, content);
                const TaskKey key{store.task(DemoDept, id)->rid, DemoDept, id};
                if (progress == Begun || progress == Done)
                    Confirmations(store, content.receivers[0].username, filed).confirmAsReceiver(key);
                if (progress != Done)
                    continue;
                for (std::size_t r = 1; r < content.receivers.size(); ++r)
                    Confirmations(store, content.receivers[r].username, filed).confirmAsReceiver(key);
                Confirmations(store, content.discloser, filed).confirmAsDiscloser(key, "已按方案交底。", {});
            }
    });
}

}  // namespace disclosure
