// What the service's work costs at ten times the data, and what a read costs while very much is deleted or made up.
#include <atomic>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <spdlog/spdlog.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <thread>

#include "bench/Client.h"
#include "bench/Report.h"
#include "bench/Served.h"
#include "service/domain/Confirmations.h"
#include "service/domain/Demo.h"
#include "service/domain/LoadData.h"
#include "service/ports/Changing.h"
#include "service/store/SqliteDatabase.h"

namespace {

using namespace disclosure;
using Ticks = std::chrono::steady_clock;

constexpr std::int64_t Now = 1'767'225'600'000;  // 2026-01-01
constexpr auto Dept = "load-dept";
constexpr int Calls = 20;

sqlite3* lastOpened = nullptr;

/// Called for every connection that is opened, since the store does not hand out its own.
int watch(sqlite3* connection, char**, const sqlite3_api_routines*) {
    lastOpened = connection;
    return SQLITE_OK;
}

struct Subject {
    std::string file;
    SqliteDatabase database;
    std::unique_ptr<IStore> store;
    sqlite3* connection;

    explicit Subject(const std::filesystem::path& path) : file(path.string()), database(file) {
        database.migrate();
        store = database.connect();
        connection = lastOpened;
    }
};

std::filesystem::path fresh(const std::filesystem::path& file) {
    for (const char* end : {"", "-wal", "-shm"})
        std::filesystem::remove(file.string() + end);
    return file;
}

double secondsOf(const std::function<void()>& work, int calls = Calls) {
    const auto start = Ticks::now();
    for (int i = 0; i < calls; ++i)
        work();
    return std::chrono::duration<double>(Ticks::now() - start).count() / calls;
}

void addDepartment(IStore& store, const std::string& id, const std::string& parent) {
    store.putDepartment({id, id, parent});
    store.addCatalog({id, id + "-top", "全部", ""});
}

Task taskOf(const std::string& deptId, std::int64_t number) {
    Task task;
    task.deptId = deptId;
    task.id = deptId + "-" + std::to_string(number);
    task.catalogId = deptId + "-top";
    task.name = "三层梁板钢筋绑扎技术交底";
    task.updatedAt = Now - number;
    return task;
}

void benchOwn(const std::filesystem::path& folder) {
    const auto make = [&](const char* name, std::int64_t tasks) {
        auto subject = std::make_unique<Subject>(fresh(folder / name));
        changing(*subject->store, [&] {
            addDepartment(*subject->store, Dept, "");
            std::vector<Task> all;
            for (std::int64_t number = 0; number < tasks; ++number) {
                Task& task = all.emplace_back(taskOf(Dept, number));
                task.published = true;
                // Half of them to disclose, half to receive.
                task.discloser = number % 2 ? "person" : "other";
                task.receivers = {{"r", number % 2 ? "other" : "person", 0}};
            }
            subject->store->addTasks(all);
            subject->store->countTasks(Dept);
        });
        return subject;
    };
    const auto large = make("own-large.db", 100'000);
    const auto small = make("own-small.db", 10'000);
    const auto read = [](Subject& subject) {
        OwnTaskFilter filter;
        filter.username = "person";
        filter.now = Now;
        filter.limit = 30;
        if (subject.store->pageOwnTasks(filter).tasks.size() != 30)
            throw std::runtime_error("no page");
    };
    bench::Row(
        "a page of the own tasks of a person with 100,000 / with 10,000", 1.5,
        [&] { return secondsOf([&] { read(*large); }); }, [&] { return secondsOf([&] { read(*small); }); });
}

void benchStatus(const std::filesystem::path& folder) {
    const auto open = [&](const char* name, std::int64_t tasks) {
        auto subject = std::make_unique<Subject>(folder / name);
        if (!subject->store->department(Dept)) {
            std::cerr << "making " << name << '\n';
            seedLoad(*subject->store, Passwords(Passwords::Cost::Lowest), {Dept, tasks, 4000, 1});
        }
        return subject;
    };
    const auto large = open("large.db", 1'000'000);
    const auto small = open("medium.db", 100'000);
    for (const int status : {1, 2, 3, 4}) {
        TaskFilter filter;
        filter.deptId = Dept;
        filter.now = Now;
        filter.limit = 30;
        filter.status = status;
        const auto ofLarge = large->store->pageTasks(filter).total;
        const auto ofSmall = small->store->pageTasks(filter).total;
        bench::Row(
            "a page of a status that " + std::to_string(ofLarge) + " of 1,000,000 tasks have / " +
                std::to_string(ofSmall) + " of 100,000",
            1.5, [&] { return secondsOf([&] { large->store->pageTasks(filter); }); },
            [&] { return secondsOf([&] { small->store->pageTasks(filter); }); });
    }
}

void benchOrganisation(const std::filesystem::path& folder) {
    const auto make = [&](const char* name, int departments) {
        auto subject = std::make_unique<Subject>(fresh(folder / name));
        changing(*subject->store, [&] {
            addDepartment(*subject->store, "root", "");
            subject->store->putPerson({"head", "负责人", "", "root", ""});
            subject->store->putMember("root", "head");
            for (int i = 0; i < departments; ++i)
                addDepartment(*subject->store, "d" + std::to_string(i), i < 50 ? "root" : "d" + std::to_string(i % 50));
            subject->store->addTask(taskOf("d77", 1));
        });
        return subject;
    };
    const auto large = make("organisation-large.db", 5000);
    const auto small = make("organisation-small.db", 500);
    const auto read = [](Subject& subject) {
        if (subject.store->tasksOfPerson("head", "d77-1").size() != 1 ||
            subject.store->catalogsOfMember("head", "d77-top").size() != 1 ||
            subject.store->pageMessages("head", 0, 20).total != 0)
            throw std::runtime_error("not found");
    };
    bench::Row(
        "finding a task, a catalog and the messages of the head of 5,000 departments / of 500", 1.5,
        [&] { return secondsOf([&] { read(*large); }); }, [&] { return secondsOf([&] { read(*small); }); });
}

/// One task, which many have to confirm.
class Confirmed {
public:
    Confirmed(const std::filesystem::path& file, int receivers) : m_subject(fresh(file)), m_receivers(receivers) {
        changing(*m_subject.store, [&] { addDepartment(*m_subject.store, "d", ""); });
    }
    /// Seconds, rows and bytes of one confirmation, neither the first nor the last.
    struct Cost {
        double seconds;
        double rows;
        double bytes;
    };
    Cost cost() {
        if (m_next == 0 || m_next == m_receivers - 2) {
            Task task = taskOf("d", ++m_number);
            task.published = true;
            task.discloser = "other";
            for (int i = 0; i < m_receivers; ++i)
                task.receivers.push_back({"r" + std::to_string(i), "p" + std::to_string(i), 0});
            m_key = {0, "d", task.id};
            changing(*m_subject.store, [&] { m_subject.store->addTask(task); });
            m_next = 0;
            confirm();
        }
        int pages = 0;
        int ignored = 0;
        sqlite3_db_status(m_subject.connection, SQLITE_DBSTATUS_CACHE_WRITE, &pages, &ignored, 1);
        const auto rows = sqlite3_total_changes(m_subject.connection);
        const double seconds = secondsOf([this] { confirm(); }, 1);
        sqlite3_db_status(m_subject.connection, SQLITE_DBSTATUS_CACHE_WRITE, &pages, &ignored, 0);
        return {seconds, static_cast<double>(sqlite3_total_changes(m_subject.connection) - rows), pages * 4096.0};
    }

private:
    void confirm() {
        const std::string person = "p" + std::to_string(m_next++);
        changing(*m_subject.store,
                 [&] { Confirmations(*m_subject.store, person, Now + m_next).confirmAsReceiver(m_key); });
    }

    Subject m_subject;
    int m_receivers;
    int m_next = 0;
    int m_number = 0;
    TaskKey m_key;
};

void benchConfirmation(const std::filesystem::path& folder) {
    Confirmed large(folder / "confirm-large.db", 500);
    Confirmed small(folder / "confirm-small.db", 50);
    const std::string name = "one confirmation among 500 receivers / among 50";
    bench::Row(
        name, 1.5, [&] { return large.cost().seconds; }, [&] { return small.cost().seconds; });
    const auto ours = large.cost();
    const auto theirs = small.cost();
    std::printf("%s: rows written | %.0f | %.0f | %.2f | <= 1.50\n", name.c_str(), ours.rows, theirs.rows,
                ours.rows / theirs.rows);
    std::printf("%s: bytes written | %.0f | %.0f | %.2f | <= 1.50\n", name.c_str(), ours.bytes, theirs.bytes,
                ours.bytes / theirs.bytes);
}

/// The slowest of the reads that are made, one every few milliseconds, while `goesOn`.
double slowestRead(bench::Client& client, const std::function<bool()>& goesOn) {
    double slowest = 0;
    while (goesOn()) {
        slowest = std::max(slowest, secondsOf(
                                        [&] {
                                            const auto& answer = client.ask(
                                                "GET /rs/disclosure/task/page_disclosure_task_by_deptid_and_catalogid?"
                                                "deptId=demo-dept-1&pageSize=30");
                                            if (answer.find("\"code\":200") == std::string::npos)
                                                throw std::runtime_error(answer);
                                        },
                                        1));
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return slowest;
}

void printSlowest(const char* name, double busy, double idle) {
    std::printf(
        "the slowest read while a million tasks are %s / while nothing is done | %.3f ms | %.3f ms | %.2f | "
        "<= 3.00\n",
        name, busy * 1e3, idle * 1e3, busy / idle);
    std::fflush(stdout);
}

void benchReads(const std::filesystem::path& folder) {
    const std::string file = fresh(folder / "reads.db").string();
    {
        Subject subject(file);
        seedDemo(*subject.store, Passwords(Passwords::Cost::Lowest));
        changing(*subject.store, [&] {
            for (int i = 0; i < 200; ++i) {
                Task task = taskOf(DemoDept, i);
                task.catalogId = "demo-catalog-4";
                subject.store->addTask(task);
            }
        });
    }
    const bench::Served served(file);
    bench::Client reader(served.port(), "");
    reader.login("demo", "demo");
    const auto during = [](std::chrono::seconds time) {
        return [end = Ticks::now() + time] { return Ticks::now() < end; };
    };
    slowestRead(reader, during(std::chrono::seconds(2)));
    const double idle = slowestRead(reader, during(std::chrono::seconds(30)));

    const pid_t seeding =
        bench::start("disclosure-service", {"seed", "--tasks", "1000000", "--database", "sqlite:" + file});
    printSlowest("made up", slowestRead(reader, [&] { return ::waitpid(seeding, nullptr, WNOHANG) == 0; }), idle);

    bench::Client head(served.port(), "");
    head.login(Dept, Dept);
    const double answered = secondsOf(
        [&] {
            head.ask("DELETE /rs/disclosure/catalog/delete",
                     std::string(R"({"isContainsTask":1,"id":")") + Dept + "-c0\"}");
        },
        1);
    printSlowest("deleted", slowestRead(reader, during(std::chrono::seconds(60))), idle);
    std::printf("deleting a million tasks, until it is answered | %.0f ms | 1000 ms | %.2f | <= 1.00\n", answered * 1e3,
                answered);
}

}  // namespace

int main() {
    spdlog::set_level(spdlog::level::warn);
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(&watch));
    const auto build = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path();
    const auto folder = build.parent_path() / "bench-data";
    std::filesystem::create_directories(folder);
    benchOwn(folder);
    benchOrganisation(folder);
    benchConfirmation(folder);
    benchStatus(folder);
    benchReads(folder);
    return 0;
}
