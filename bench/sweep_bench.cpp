// What going through the stored files costs: the hourly sweep with nothing to do among ten times the files, and the
// daily look through the whole folder, for each file, against one query and one look at the file for each.
#include <fcntl.h>
#include <filesystem>
#include <iostream>
#include <sodium.h>
#include <stdexcept>
#include <stdlib.h>
#include <unistd.h>

#include "bench/Report.h"
#include "service/domain/Demo.h"
#include "service/files/Sweep.h"
#include "service/store/SqliteDatabase.h"

namespace {

using namespace disclosure;

constexpr int Few = 20'000;
constexpr int Many = 200'000;
constexpr std::chrono::hours Keep{24};
constexpr std::chrono::hours Aside{14 * 24};
const GoOn Always = [] { return true; };

template <class Work>
double secondsOf(Work&& work) {
    const auto begun = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
}

/// A database and a folder with so many files, all in use and old.
class Stored {
public:
    Stored(const std::filesystem::path& folder, int count)
        : m_database((folder / "service.db").string()), m_files(folder / "service.files") {
        m_database.migrate();
        m_store = m_database.connect();
        seedDemo(*m_store, Passwords(Passwords::Cost::Lowest));
        Transaction transaction(*m_store, IStore::Access::Write);
        const auto yesterday = std::filesystem::file_time_type::clock::now() - 2 * Keep;
        for (int i = 0; i < count; ++i) {
            unsigned char bytes[16];
            randombytes_buf(bytes, sizeof bytes);
            char text[33];
            const std::string uuid = sodium_bin2hex(text, sizeof text, bytes, sizeof bytes);
            m_store->addFile({{DemoDept, uuid}, "a.pdf", "pdf", "", 1, "demo", 1});
            m_store->setLoose({DemoDept, uuid}, LooseFile::Held);
            const auto place = m_files.path() / uuid.substr(0, 2) / uuid;
            std::filesystem::create_directory(place.parent_path());
            ::close(::open(place.c_str(), O_WRONLY | O_CREAT, 0600));
            std::filesystem::last_write_time(place, yesterday);
        }
        transaction.commit();
    }

    double sweep() {
        return secondsOf([&] { sweepFiles(*m_store, m_files, Keep, Now, Always); });
    }
    double sort() {
        return secondsOf([&] { sortFolder(*m_store, m_files, Keep, Aside, Always); });
    }
    double oneByOne() {
        using Where = FileFolder::Where;
        return secondsOf([&] {
            for (const std::string& shelf : m_files.shelves(Where::Kept))
                for (const std::string& uuid : m_files.contents(Where::Kept, shelf))
                    if (m_files.age(Where::Kept, uuid) > Keep && !m_store->knowsFile(uuid))
                        throw std::runtime_error("a file is not known");
        });
    }

private:
    static constexpr std::int64_t Now = 1'800'000'000'000;

    SqliteDatabase m_database;
    FileFolder m_files;
    std::unique_ptr<IStore> m_store;
};

void run(const std::filesystem::path& folder) {
    for (const char* name : {"few", "many"})
        std::filesystem::create_directory(folder / name);
    Stored few(folder / "few", Few);
    Stored many(folder / "many", Many);
    bench::Row(
        "hourly sweep among 200,000 files / among 20,000", 1.5, [&] { return many.sweep(); },
        [&] { return few.sweep(); });
    bench::Row(
        "daily look at 200,000 files, a thousand of them / of 20,000", 1.5, [&] { return many.sort() * 1000 / Many; },
        [&] { return few.sort() * 1000 / Few; }, 5);
    bench::Row(
        "daily look at 200,000 files / a query and a look for each", 0.5, [&] { return many.sort(); },
        [&] { return many.oneByOne(); }, 5);
}

}  // namespace

int main() {
    std::string folder = (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "sweep-XXXXXX").string();
    int failed = 0;
    try {
        if (!::mkdtemp(folder.data()))
            throw std::runtime_error("no folder for the data");
        run(folder);
    } catch (const std::exception& e) {
        std::cerr << "sweep_bench: " << e.what() << '\n';
        failed = 1;
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return failed;
}
