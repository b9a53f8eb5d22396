// The pages of a store of 200,000 documents in 5,000 folders against one of 2,000 in 50, and against the same
// statements in bare SQLite.
#include <chrono>
#include <filesystem>
#include <iostream>
#include <spdlog/spdlog.h>

#include "bench/Bare.h"
#include "bench/Report.h"
#include "service/ports/Changing.h"
#include "service/store/SqliteDatabase.h"

namespace {

using namespace disclosure;
using Ticks = std::chrono::steady_clock;

constexpr auto Dept = "documents";
constexpr std::int64_t Now = 1'767'225'600'000;  // 2026-01-01
constexpr int People = 20;
constexpr int InFolder = 40;
constexpr int Wanted = 40;  // documents that the search is for, however many there are
constexpr int Calls = 20;

std::string numbered(const char* start, std::int64_t number) {
    return start + std::to_string(number);
}

/// A made-up store in a file that is kept for the next time.
struct Subject {
    std::string file;
    SqliteDatabase database;
    std::unique_ptr<IStore> store;

    Subject(const std::filesystem::path& path, std::int64_t documents) : file(path.string()), database(file) {
        database.migrate();
        store = database.connect();
        if (store->department(Dept))
            return;
        std::cerr << "making " << file << '\n';
        changing(*store, [&] {
            store->putDepartment({Dept, Dept, ""});
            for (std::int64_t i = 0; i < documents / InFolder; ++i)
                store->addFolder({Dept, numbered("f", i), TopFolder, numbered("分部", i)});
            for (int i = 0; i < 10; ++i)
                store->addTag(Dept, {numbered("t", i), numbered("标签", i)});
            for (std::int64_t i = 0; i < documents; ++i)
                store->addDocument(made(i, documents));
        });
    }

    static Document made(std::int64_t number, std::int64_t documents) {
        const char* extensions[] = {"pdf", "dwg", "docx", "png", "xlsx"};
        const char* works[] = {"梁板钢筋", "高支模", "地下防水", "大体积混凝土", "外墙保温", "脚手架", "临时用电"};
        Document d;
        d.deptId = Dept;
        d.id = numbered("d", number);
        d.folderId = numbered("f", number / InFolder);
        d.extension = extensions[number % 5];
        d.name = numbered(works[number % 7], number) + "号施工方案";
        d.uuid = numbered("u", number);
        d.md5 = std::string(32, 'a');
        d.size = 1 << 20;
        d.updatedBy = numbered("p", number % People);
        // As they would be: what is changed lies anywhere.
        d.updatedAt = Now - number * 7919 % documents * 1000;
        d.wovenAt = number % 3 ? Now - number * 31 % documents * 60'000 : 0;
        if (number % 3)
            d.tags = {{numbered("t", number % 10), numbered("标签", number % 10)}};
        if (number % (documents / Wanted) == 0) {
            d.name += "（样板引路）";
            d.extension = "pdf";
            d.tags = {{"t1", "标签1"}, {"t2", "标签2"}};
            d.wovenAt = Now;
        }
        d.name += "." + d.extension;
        return d;
    }

    std::int64_t page(const DocumentFilter& filter) const {
        Transaction transaction(*store, IStore::Access::Read);
        const DocumentPage found = store->pageDocuments(filter);
        transaction.commit();
        if (found.documents.empty())
            throw std::runtime_error("no page");
        return found.total;
    }
};

double secondsOf(const std::function<void()>& work) {
    const auto start = Ticks::now();
    for (int i = 0; i < Calls; ++i)
        work();
    return std::chrono::duration<double>(Ticks::now() - start).count() / Calls;
}

void benchPage(const std::string& name, const Subject& large, const Subject& small, const DocumentFilter& filter) {
    const auto ours = [&] { return secondsOf([&] { large.page(filter); }); };
    bench::Row(name + ", " + std::to_string(large.page(filter)) + " of 200,000 documents / " +
                   std::to_string(small.page(filter)) + " of 2,000",
               1.5, ours, [&] { return secondsOf([&] { small.page(filter); }); });
    bench::Bare bare(large.file, [&] { large.page(filter); });
    bench::Row(name + " / the bare SQL", 1.3, ours, [&] { return secondsOf([&] { bare.run(); }); });
}

}  // namespace

int main() {
    spdlog::set_level(spdlog::level::warn);
    bench::watchStatements();
    const auto build = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path();
    const auto folder = build.parent_path() / "bench-data";
    std::filesystem::create_directories(folder);
    const Subject large(folder / "documents-large.db", 200'000);
    const Subject small(folder / "documents-small.db", 2000);

    DocumentFilter all;
    all.deptId = Dept;
    all.limit = 15;
    benchPage("first page of all folders", large, small, all);
    DocumentFilter one = all;
    one.folderId = "f7";
    benchPage("first page of a folder", large, small, one);
    DocumentFilter kind = all;
    kind.extensions = {"docx", "pdf"};
    kind.updatedBy = "p2";
    benchPage("first page of a type and an updater", large, small, kind);
    DocumentFilter searched = all;
    searched.extensions = {"pdf"};
    searched.tagId = "t1";
    searched.keyword = "样板引";
    searched.from = Now - Day;
    searched.to = Now + Day;
    benchPage("a filtered, tagged, named search", large, small, searched);
    return 0;
}
