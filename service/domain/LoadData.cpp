#include "service/domain/LoadData.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <random>
#include <span>
#include <stdexcept>
#include <thread>
#include <vector>

#include "service/domain/Catalogs.h"
#include "service/ports/Changing.h"

namespace disclosure {

namespace {

constexpr std::int64_t FirstDay = 1'704'067'200'000;  // 2024-01-01; the dates lie in the four years from it
constexpr int Days = 4 * 365;
constexpr int People = 200;
constexpr int Receivers = 3;
constexpr std::int32_t ProjectNumber = 9001;
constexpr std::int64_t Models = 200;  // so many tasks are set as an example, however many there are
constexpr std::size_t CatalogsAtOnce = 200;
constexpr std::chrono::milliseconds Piece{500};   // of work, as far as can be foreseen
constexpr std::chrono::milliseconds Breath{150};  // longer than any writer sleeps before it looks again
constexpr auto Unfinished = "压力测试项目部（未完成）";
constexpr int Buildings = 10;
constexpr int Trades = 100;

constexpr std::array Surnames{"王", "李", "张", "刘", "陈", "杨", "赵", "黄", "周", "吴", "徐", "孙", "胡", "朱", "高"};
constexpr std::array GivenNames{"建国", "志强", "海燕", "丽华", "晓东", "秀英", "国庆", "文博", "思远", "雨桐"};
constexpr std::array Parts{"梁板", "剪力墙", "框架柱", "楼梯间", "地下室外墙", "屋面", "基础筏板", "后浇带"};
constexpr std::array Works{"钢筋绑扎", "模板安装",   "混凝土浇筑", "防水卷材铺贴", "砌体砌筑",
                           "抹灰",     "脚手架搭设", "管道预埋",   "桥架安装",     "保温板粘贴"};
constexpr std::array Kinds{"安全技术交底", "质量技术交底", "施工技术交底", "专项方案交底"};

/// Numbers that are the same on every machine, which the standard distributions are not.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : m_engine(seed) {}
    int below(int bound) { return static_cast<int>(m_engine() % static_cast<std::uint32_t>(bound)); }
    template <class List>
    std::string of(const List& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
    }

private:
    std::mt19937 m_engine;
};

class Maker {
public:
    explicit Maker(const LoadSettings& settings) : m_settings(settings), m_dice(settings.seed) {
        for (int i = 0; i < People; ++i)
            m_people.push_back({settings.deptId + "-" + std::to_string(i), m_dice.of(Surnames) + m_dice.of(GivenNames),
                                "", settings.deptId, ""});
        for (int i = 0; i < settings.catalogs; ++i)
            m_catalogs.push_back(catalog(i));
    }

    const std::vector<Person>& people() const { return m_people; }
    /// A top, the buildings, the trades in them, and the rest below the trades.
    const std::vector<Catalog>& catalogs() const { return m_catalogs; }

    bool next(Task& task) {
        if (m_number == m_settings.tasks)
            return false;
        const std::int64_t number = m_number++;
        task = {};
        task.deptId = m_settings.deptId;
        task.id = m_settings.deptId + "-t" + std::to_string(number);
        task.catalogId = catalogId(firstLeaf() + static_cast<int>(number % (m_settings.catalogs - firstLeaf())));
        task.name = std::to_string(1 + m_dice.below(30)) + "号楼" + std::to_string(1 + m_dice.below(33)) + "层" +
                    m_dice.of(Parts) + m_dice.of(Works) + m_dice.of(Kinds);
        const std::int64_t step = std::max<std::int64_t>(1, m_settings.tasks / Models);
        if (number % step == 0)
            task.name += "（样板引路）";
        task.discloser = person(0);
        const std::int64_t plan = day(m_dice.below(Days));
        task.planDisclosure = plan + 9 * Day / 24 + m_dice.below(8 * 3600) * 1000LL;
        task.constructionStart = plan + m_dice.below(10) * Day;
        task.constructionEnd = task.constructionStart + (5 + m_dice.below(60)) * Day;
        task.expiry = plan + (1 + m_dice.below(400)) * Day;
        task.updatedBy = task.discloser;
        task.updatedAt = FirstDay + number * (Days * Day / m_settings.tasks);
        addLists(task, number);
        progress(task);
        return true;
    }

private:
    Catalog catalog(int number) {
        const bool building = number <= Buildings;
        const bool trade = !building && number <= Buildings + Trades;
        const int parent = building ? 0 : trade ? 1 + (number - 1) % Buildings : Buildings + 1 + (number - 1) % Trades;
        const std::string name = number == 0 ? "全部"
                                 : building  ? std::to_string(number) + "号楼"
                                            : m_dice.of(Works) + std::to_string(number) + (trade ? "分部" : "检验批");
        return {m_settings.deptId, catalogId(number), name, number == 0 ? "" : catalogId(parent)};
    }
    std::string catalogId(int number) const { return m_settings.deptId + "-c" + std::to_string(number); }
    static std::int64_t day(int number) { return FirstDay + number * Day; }
    /// The catalogs from this one on have nothing below them.
    int firstLeaf() const {
        if (m_settings.catalogs > Buildings + Trades + Trades)
            return Buildings + Trades + 1;
        return std::min(m_settings.catalogs - 1, Buildings + 1);
    }
    std::string person(int offset) { return m_people[static_cast<std::size_t>((m_first + offset) % People)].username; }

    void addLists(Task& task, std::int64_t number) {
        m_first = m_dice.below(People);
        for (int i = 1; i <= Receivers; ++i)
            task.receivers.push_back({task.id + "-r" + std::to_string(i), person(i), 0, {}, {}});
        if (number % 4 == 0)
            task.viewports.push_back({task.id + "-v", ProjectNumber, "view-" + std::to_string(m_dice.below(500))});
        if (number % 5 == 0)
            task.nodes.push_back({task.id + "-n", ProjectNumber, "node-" + std::to_string(m_dice.below(5000))});
        if (number % 2 == 0)
            task.docs.push_back({task.id + "-d", ProjectNumber, "交底书.pdf", "file-" + std::to_string(number), "",
                                 1 << 20, "pdf", 1, ""});
    }

    /// Three in ten are plans, the others published; of those some are confirmed by few and some by all.
    void progress(Task& task) {
        const int share = m_dice.below(10);
        task.published = share >= 3;
        const bool all = share >= 7;
        if (share >= 5) {
            task.receivers.front().confirmedAt = task.planDisclosure + Day;
        }
        if (all) {
            for (TaskReceiver& receiver : task.receivers)
                receiver.confirmedAt = task.planDisclosure + Day;
            task.confirmedAt = task.planDisclosure + Day;
            task.actualDisclosure = task.planDisclosure + Day;
        }
    }

    LoadSettings m_settings;
    Dice m_dice;
    std::vector<Person> m_people;
    std::vector<Catalog> m_catalogs;
    std::int64_t m_number = 0;
    int m_first = 0;
};

/// A short transaction, after which others may write. Returns how long it took.
template <class Work>
std::chrono::steady_clock::duration addPiece(IStore& store, Work&& work) {
    const auto begun = std::chrono::steady_clock::now();
    changing(store, work);
    const auto took = std::chrono::steady_clock::now() - begun;
    std::this_thread::sleep_for(std::max<std::chrono::steady_clock::duration>(took / 4, Breath));
    return took;
}

}  // namespace

void seedLoad(IStore& store, const Passwords& passwords, const LoadSettings& settings) {
    const std::string hash = passwords.hash(settings.deptId);
    const std::string& dept = settings.deptId;
    Maker maker(settings);
    const bool isBegun = changing(store, [&] {
        const auto known = store.department(dept);
        if (store.person(dept) || (known && known->name != Unfinished))
            throw std::invalid_argument("there is a department " + dept + " already");
        store.putDepartment({dept, Unfinished, ""});
        for (const Person& person : maker.people())
            store.putPerson(person);
        return known.has_value();
    });
    for (std::size_t i = 0; i < maker.catalogs().size(); i += CatalogsAtOnce)
        addPiece(store, [&] {
            Catalogs catalogs(store);
            for (const Catalog& c :
                 std::span(maker.catalogs()).subspan(i).first(std::min(CatalogsAtOnce, maker.catalogs().size() - i)))
                catalogs.save(dept, c.id, c.name, c.parentId);
        });
    std::size_t atOnce = 500;
    for (std::vector<Task> tasks(1); !tasks.empty();) {
        tasks.clear();
        for (Task task; tasks.size() < atOnce && maker.next(task);) {
            if (!isBegun || !store.task(dept, task.id))
                tasks.push_back(task);
        }
        const auto took = addPiece(store, [&] { store.addTasks(tasks); });
        atOnce = took < Piece ? std::min<std::size_t>(2 * atOnce, 10'000) : std::max<std::size_t>(atOnce / 2, 100);
    }
    changing(store, [&] {
        store.countTasks(dept);
        store.putDepartment({dept, "压力测试项目部", ""});
        store.putProject({ProjectNumber, "压力测试工程", dept});
        store.putPerson({dept, "负责人", "", dept, hash});
        store.putMember(dept, dept);
        store.putRights(dept, dept, {Right::EditCatalogs, Right::EditTasks, Right::DeleteTasks});
        for (Person person : maker.people()) {
            person.passwordHash = hash;
            store.putPerson(person);
            store.putMember(dept, person.username);
        }
    });
}

}  // namespace disclosure
