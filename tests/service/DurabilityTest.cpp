#include <algorithm>

#include "tests/service/ServedProgram.h"
#include "tests/service/TaskTest.h"

namespace disclosure::testing {
namespace {

/// Something that the program did; see tests/support/SyncRecorder.cpp.
struct Event {
    std::string thread;
    std::string what;
    std::string path;
    std::string to;
};

using Events = std::vector<Event>;

/// What the program did until now, the first `from` left out.
Events recorded(const std::string& file, std::size_t from) {
    Events events;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        std::istringstream parts(line);
        Event& event = events.emplace_back();
        std::getline(parts, event.thread, '\t');
        std::getline(parts, event.what, '\t');
        std::getline(parts, event.path, '\t');
        std::getline(parts, event.to, '\t');
    }
    return {events.begin() + static_cast<std::ptrdiff_t>(from), events.end()};
}

/// The first of the steps, each "what path's end", that did not happen after the one before; empty when all did.
std::string missing(const Events& events, const std::vector<std::pair<std::string, std::string>>& steps) {
    auto at = events.begin();
    for (const auto& [what, end] : steps) {
        const auto isStep = [&](const Event& event) { return event.what == what && event.path.ends_with(end); };
        at = std::find_if(at, events.end(), isStep);
        if (at == events.end())
            return what + " " + end;
        ++at;
    }
    return {};
}

/// The real program with the recorder. A crash of the process alone cannot tell what a loss of power would, since the
/// system keeps what was written without a sync.
class Durability : public ::testing::Test {
protected:
    Durability() {
        const std::string seed = "'" + Program + "' --database '" + database + "' seed --demo > /dev/null 2>&1";
        if (std::system(seed.c_str()) != 0)
            throw std::runtime_error("cannot seed");
        served = std::make_unique<Served>(
            folder, database, std::vector<std::string>(), "",
            std::vector<std::string>{"SYNC_RECORD=" + record, "LD_PRELOAD=" BINARY_ROOT "/tests/sync_recorder.so",
                                     "ASAN_OPTIONS=verify_asan_link_order=0"});
        client = std::make_unique<Client>(served->port());
        client->login("demo", "demo");
    }
    /// What was done before the request was answered; whole only until the next one is sent.
    template <class Request>
    Events before(Request&& request) {
        const std::size_t from = recorded(record, 0).size();
        answer = request();
        Events events = recorded(record, from);
        const auto sent = std::find_if(events.begin(), events.end(), [](const Event& e) { return e.what == "send"; });
        EXPECT_NE(sent, events.end());
        events.erase(sent, events.end());
        return events;
    }

    TempFolder folder;
    std::string database = "sqlite:" + folder.file("disclosure.db");
    std::string record = folder.file("record");
    std::unique_ptr<Served> served;
    std::unique_ptr<Client> client;
    Answer answer;
};

TEST_F(Durability, AChangeIsSyncedBeforeItsAnswer) {
    for (const auto& [target, body] :
         {std::pair<std::string, std::string>{SavePath, saveBody(FirstDept, "c", "新", Top)},
          {TaskPath + "save", publishedBody("t")},
          {TaskPath + "update", object({{"id", "t"}, {"disclosureCatalogId", "c"}})},
          {TaskPath + "confirm_by_receive_user", object({{"taskId", "t"}})}}) {
        if (target.ends_with("user"))
            client->login("liuyang", "liuyang");
        const Events events = before([&] { return client->post(target, body); });
        EXPECT_EQ(answer.code(), 200) << target;
        EXPECT_EQ(missing(events, {{"write", "-wal"}, {"sync", "-wal"}}), "") << target;
    }
}

TEST_F(Durability, AFileIsSyncedBeforeItsRowAndOutlivesIt) {
    const Events events = before([&] { return client->upload(FirstDept, "a.pdf", std::string(700'000, 'x')); });
    ASSERT_EQ(answer.code(), 200);
    const std::string uuid = answer.json()["result"]["uuid"].GetString();
    const auto moved = std::find_if(events.begin(), events.end(), [&](const Event& event) {
        return event.what == "rename" && event.to.ends_with(uuid);
    });
    ASSERT_NE(moved, events.end());
    const std::filesystem::path place = moved->to;
    const std::string content = moved->path;
    const std::string parent = place.parent_path();
    EXPECT_EQ(missing(events, {{"write", content},
                               {"sync", content},
                               {"rename", content},
                               {"sync", parent},
                               {"write", "-wal"},
                               {"sync", "-wal"}}),
              "");
    EXPECT_EQ(missing(events, {{"sync", place.parent_path().parent_path()}, {"sync", parent}}), "")
        << "the folder is new itself";
    EXPECT_NE(missing(events, {{"sync", content}, {"write", content}}), "") << "all of it was written by then";

    const std::size_t from = recorded(record, 0).size();
    const std::string body = object({{"deptId", FirstDept}, {"uuid", uuid}});
    ASSERT_EQ(client->post("/rs/platform/files/delete", body).code(), 200);
    served->end(SIGTERM);  // it may be removed after the answer
    EXPECT_EQ(missing(recorded(record, from), {{"write", "-wal"}, {"sync", "-wal"}, {"unlink", uuid}}), "");
}

}  // namespace
}  // namespace disclosure::testing
