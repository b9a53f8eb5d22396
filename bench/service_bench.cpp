// The service's page of tasks: a department of a million against one of ten thousand with the same number of matches,
// the store against the same statements in bare SQLite, and requests over HTTP against the same work without it.
#include <atomic>
#include <chrono>
#include <filesystem>
#include <future>
#include <iostream>
#include <spdlog/spdlog.h>
#include <thread>
#include <utility>

#include "bench/Bare.h"
#include "bench/Client.h"
#include "bench/Report.h"
#include "bench/Served.h"
#include "service/domain/LoadData.h"
#include "service/http/Dispatcher.h"
#include "service/store/SqliteDatabase.h"

namespace {

using namespace disclosure;
using bench::Client;
using bench::Served;
using Clock_ = std::chrono::steady_clock;

constexpr auto Dept = "load-dept";
constexpr std::int64_t Now = 1'767'225'600'000;  // 2026-01-01, in the middle of the made-up dates
constexpr int Calls = 8;
constexpr int Runs = 11;

double secondsSince(Clock_::time_point start) {
    return std::chrono::duration<double>(Clock_::now() - start).count();
}

/// A made-up department in a file that is kept for the next time.
struct Subject {
    std::string file;
    SqliteDatabase database;
    std::unique_ptr<IStore> store;

    Subject(const std::string& name, std::int64_t tasks, int catalogs) : file(name), database(file) {
        database.migrate();
        store = database.connect();
        if (!store->department(Dept)) {
            std::cerr << "making " << file << '\n';
            seedLoad(*store, Passwords(Passwords::Cost::Lowest), {Dept, tasks, catalogs, 1});
        }
    }

    TaskPage page(const TaskFilter& filter) const {
        Transaction transaction(*store, IStore::Access::Read);
        TaskPage found = store->pageTasks(filter);
        transaction.commit();
        return found;
    }
    double time(const TaskFilter& filter) const {
        const auto start = Clock_::now();
        for (int i = 0; i < Calls; ++i)
            page(filter);
        return secondsSince(start) / Calls;
    }
};

struct Query {
    const char* name;
    TaskFilter large;
    TaskFilter small;
};

TaskFilter everything() {
    TaskFilter filter;
    filter.deptId = Dept;
    filter.now = Now;
    filter.limit = 30;
    return filter;
}

std::vector<Query> queries() {
    std::vector<Query> all;
    const auto add = [&](const char* name, auto&& change) {
        Query query{name, everything(), everything()};
        change(query.large);
        change(query.small);
        all.push_back(query);
        return &all.back();
    };
    using Order = TaskFilter::Order;
    add("a leaf catalog", [](TaskFilter& f) { f.catalogId = std::string(Dept) + "-c"; });
    all.back().large.catalogId += "3000";
    all.back().small.catalogId += "30";
    add("the top catalog", [](TaskFilter& f) { f.catalogId = std::string(Dept) + "-c0"; });
    const std::pair<const char*, Order> orders[] = {{"by name", Order::Name},
                                                    {"by discloser", Order::Discloser},
                                                    {"by construction start", Order::ConstructionStart},
                                                    {"by construction end", Order::ConstructionEnd},
                                                    {"by planned date", Order::Plan},
                                                    {"by actual date", Order::Actual},
                                                    {"by last change", Order::Updated}};
    for (const auto& [name, order] : orders)
        add(name, [order = order](TaskFilter& f) { f.order = order, f.descending = false; });
    add("status and date range", [](TaskFilter& f) {
        f.status = 1;
        f.date = TaskFilter::Date::Plan;
        f.from = 1'783'000'000'000;
        f.to = f.from + 50 * Day;
    });
    all.back().large.to = all.back().large.from + Day / 2;
    add("a keyword of 2 characters", [](TaskFilter& f) { f.keyword = "样板"; });
    add("a keyword of 4 characters", [](TaskFilter& f) { f.keyword = "样板引路"; });
    // Few to a page, so that it lies in the first half of both: the second is read from its end.
    add("page 1000 of 4", [](TaskFilter& f) { f.limit = 4, f.offset = 999LL * 4; });
    return all;
}

std::string pageTarget(unsigned number) {
    return std::string("/rs/disclosure/task/page_disclosure_task_by_deptid_and_catalogid?deptId=") + Dept +
           "&disclosureCatalogId=" + Dept + "-c" + std::to_string(111 + number % 3889) +
           "&status=0&keyword=&dateType=-1&startDateMills=-1&endDateMills=-1&currentPage=1&pageSize=30&orderKey=&"
           "orderType=";
}

constexpr int Connections = 8;
constexpr unsigned Requests = 400;  // of one connection in one run

/// Seconds for one request over HTTP with all connections busy; their single times are added to `times`.
double overHttp(std::uint16_t port, const std::string& cookie, std::vector<double>& times) {
    std::vector<std::thread> threads;
    std::mutex mutex;
    const auto start = Clock_::now();
    for (unsigned c = 0; c < Connections; ++c)
        threads.emplace_back([&, c] {
            Client client(port, cookie);
            std::vector<double> own;
            for (unsigned i = 0; i < Requests; ++i) {
                const auto before = Clock_::now();
                if (client.ask("GET " + pageTarget(i * Connections + c)).find("\"code\":200") == std::string::npos)
                    throw std::runtime_error("not answered");
                own.push_back(secondsSince(before));
            }
            const std::lock_guard lock(mutex);
            times.insert(times.end(), own.begin(), own.end());
        });
    for (std::thread& thread : threads)
        thread.join();
    return secondsSince(start) / (Connections * Requests);
}

/// The same by the same workers, handed over within the process.
double withoutHttp(Dispatcher& dispatcher, const std::string& cookie) {
    std::atomic<unsigned> next{0};
    std::atomic<unsigned> left{Connections * Requests};
    std::promise<void> finished;
    const std::function<void()> more = [&] {
        const unsigned number = next++;
        if (number >= Connections * Requests)
            return;
        Request request(boost::beast::http::verb::get, pageTarget(number), 11);
        request.set(boost::beast::http::field::host, "localhost");
        request.set(boost::beast::http::field::cookie, cookie);
        dispatcher.dispatch(std::move(request), "127.0.0.1", [&](const Reply& reply) {
            if (reply.message.result_int() != 200)
                std::abort();
            more();
            if (--left == 0)
                finished.set_value();
        });
    };
    const auto start = Clock_::now();
    for (int i = 0; i < Connections; ++i)
        more();
    finished.get_future().wait();
    return secondsSince(start) / (Connections * Requests);
}

void benchHttp(Subject& large) {
    const Served served(large.file);
    Client visitor(served.port(), "");
    visitor.login(Dept, Dept);
    const std::string cookie = visitor.cookie();
    const auto now = [] {
        using namespace std::chrono;
        return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
    };
    const FileFolder files(std::filesystem::path(large.file).parent_path() / "files");
    const Service service({{}, {}, now, Passwords::Cost::Lowest}, files);
    Dispatcher dispatcher(service, large.database, {});
    std::vector<double> times;
    const auto ours = [&, isWarm = false]() mutable {
        if (!std::exchange(isWarm, true)) {
            std::vector<double> warmingUp;
            return overHttp(served.port(), cookie, warmingUp);
        }
        return overHttp(served.port(), cookie, times);
    };
    bench::Row(
        "a page over HTTP, 8 connections / the same work without HTTP", 1 / 0.7, ours,
        [&] { return withoutHttp(dispatcher, cookie); }, 5);
    std::sort(times.begin(), times.end());
    const double median = times[times.size() / 2];
    const double slow = times[times.size() * 99 / 100];
    std::printf("p99 of a page over HTTP, 8 connections / the median | %.3f ms | %.3f ms | %.2f | <= 10.00\n",
                slow * 1e3, median * 1e3, slow / median);
    const double memory = bench::memory(served.pid(), "VmHWM:");
    std::printf("memory at a million tasks under load | %.1f MB | 200.0 MB | %.2f | <= 1.00\n", memory, memory / 200);
}

void benchPages(const Subject& large, const Subject& small) {
    for (const Query& query : queries()) {
        const auto matches = large.page(query.large).total;
        const auto others = small.page(query.small).total;
        const std::string name = std::string(query.name) + ", " + std::to_string(matches);
        bench::Row(
            "page: " + name + " matches of 1,000,000 / " + std::to_string(others) + " of 10,000", 1.5,
            [&] { return large.time(query.large); }, [&] { return small.time(query.small); }, Runs);
        bench::Bare bare(large.file, [&] { large.page(query.large); });
        bench::Row(
            "page: " + name + " matches / the bare SQL", 1.5, [&] { return large.time(query.large); },
            [&] {
                const auto start = Clock_::now();
                for (int i = 0; i < Calls; ++i)
                    bare.run();
                return secondsSince(start) / Calls;
            },
            Runs);
    }
}

}  // namespace

int main() {
    spdlog::set_level(spdlog::level::warn);
    bench::watchStatements();
    const auto build = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path();
    const auto folder = build.parent_path() / "bench-data";
    std::filesystem::create_directories(folder);
    Subject large((folder / "large.db").string(), 1'000'000, 4000);
    const Subject small((folder / "small.db").string(), 10'000, 50);
    benchPages(large, small);
    benchHttp(large);
    return 0;
}
