
#include <QDir>

#include "host/log/EventLog.h"
#include "host/shell/PlugInLoader.h"
#include "host/shell/Registry.h"
#include "sdk/basecore/CmdObject.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/IFunctionLogMgr.h"
#include "tests/host/Windows.h"

namespace {

using Notes = std::vector<std::wstring>;

/// The host's function log as the plug-ins find it; keeps what they note.
class Recorder : public BASECORE::FRAME::CMgrObject,
                 public PROJECTPACKAGE::IFunctionLogMgr,
                 private PROJECTPACKAGE::IFunctionLogger {
public:
    explicit Recorder(Notes& notes) : CMgrObject(BASECORE::NAMES::kFunctionLog), m_notes(notes) {}
    IFunctionLogger* GetLogger() override { return this; }

private:
    int Write(const std::wstring& title, const std::wstring& path) override {
        m_notes.push_back(title + L" " + path);
        return 0;
    }
    Notes& m_notes;
};

class Loader : public testing::Test {
protected:
    Loader() { registry->add(std::make_unique<Recorder>(notes)); }

    int load(const QStringList& plugIns) {
        QStringList folders;
        for (const QString& plugIn : plugIns)
            folders.append(QDir(BINARY_ROOT "/tests/plugins").filePath(plugIn));
        return workbench::PlugInLoader(*registry, dir.path()).loadAll(folders);
    }
    bool logged(const QString& what, const QString& why) const {
        const QStringList lines = log.history().filter(what);
        return !lines.filter(why).isEmpty();
    }

    QTemporaryDir dir;
    workbench::EventLog log{dir.filePath("logs")};
    Notes notes;
    std::unique_ptr<workbench::Registry> registry = std::make_unique<workbench::Registry>();
};

TEST_F(Loader, LeadsAPlugInThroughItsLifeInOrder) {
    EXPECT_EQ(load({"Good"}), 1);
    EXPECT_TRUE(notes.empty());
    registry->start();
    EXPECT_EQ(std::exchange(notes, {}), (Notes{L"GOOD_1 Init", L"GOOD_2 Init", L"GOOD_1 Startup", L"GOOD_2 Startup",
                                               L"command core", L"command types", L"command views"}));
    EXPECT_NE(registry->LookupManager(L"GOOD_2"), nullptr);
    EXPECT_EQ(registry->LookupManager(L"GOOD_2 "), nullptr);
    ASSERT_NE(registry->command(L"GOOD_Cmd"), nullptr);
    EXPECT_TRUE(registry->command(L"GOOD_Cmd")->Execute());
    QCoreApplication::processEvents();
    EXPECT_EQ(std::exchange(notes, {}), Notes{L"command run"});
    registry.reset();
    EXPECT_EQ(notes, (Notes{L"GOOD_2 Shutdown", L"GOOD_1 Shutdown", L"command end", L"GOOD_2 end", L"GOOD_1 end"}));
    EXPECT_EQ(BASECORE::FRAME::GetMainBaseCore(), nullptr);
}

TEST_F(Loader, NamesWhatItSkipsAndGoesOn) {
    QFile garbage(dir.filePath("garbage.so"));
    ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
    garbage.close();
    EXPECT_EQ(load({dir.path(), "Bare", "Throwing", "missing", "Good"}), 1);
    EXPECT_TRUE(logged("garbage.so", "无法加载"));
    EXPECT_TRUE(logged("Bare.so", "GetManagers"));
    EXPECT_TRUE(logged("Throwing.so", "no second manager"));
    EXPECT_TRUE(logged("missing", "不存在"));
    EXPECT_EQ(registry->LookupManager(L"THROWING_1"), nullptr);
    EXPECT_NE(registry->LookupManager(L"GOOD_1"), nullptr);
}

TEST_F(Loader, TheFirstManagerOfANameStays) {
    EXPECT_EQ(load({"Good", "Duplicate"}), 2);
    EXPECT_TRUE(logged("GOOD_1", "已被占用"));
    EXPECT_NE(registry->LookupManager(L"DUPLICATE_1"), nullptr);
    registry->start();
    EXPECT_EQ(std::count(notes.begin(), notes.end(), L"GOOD_1 Init"), 1);
    EXPECT_EQ(load({"Good"}), 1) << "the same library once more";
    EXPECT_EQ(registry->commands().size(), 1U);
}

TEST_F(Loader, ACrashWhileLoadingSkipsThatPlugInOnce) {
    EXPECT_DEATH(load({"Crashing"}), "");
    EXPECT_EQ(load({"Crashing", "Good"}), 1);
    EXPECT_TRUE(logged("Crashing.so", "异常终止"));
    EXPECT_DEATH(load({"Crashing"}), "") << "it is given another chance";
}

/// Fails at its name, in Init or in Startup.
class Failing : public BASECORE::FRAME::CMgrObject {
public:
    Failing(const wchar_t* name, Notes& notes) : CMgrObject(name), m_notes(notes) {}
    std::wstring GetName() const override {
        return CMgrObject::GetName().empty() ? throw std::runtime_error("no manager's name") : CMgrObject::GetName();
    }
    void Init() override {
        if (GetName() == L"IN_INIT")
            throw std::runtime_error("Init failed");
    }
    void Startup() override {
        m_notes.push_back(GetName() + L" Startup");
        throw 1;
    }
    void Shutdown() override { m_notes.push_back(GetName() + L" Shutdown"); }

private:
    Notes& m_notes;
};

TEST_F(Loader, AManagerThatFailsToStartIsTakenOutAlone) {
    registry->add(std::make_unique<Failing>(L"IN_INIT", notes));
    registry->add(std::make_unique<Failing>(L"IN_STARTUP", notes));
    registry->start();
    registry->shutdown();
    EXPECT_EQ(notes, Notes{L"IN_STARTUP Startup"});
    EXPECT_EQ(registry->LookupManager(L"IN_INIT"), nullptr);
    EXPECT_EQ(registry->LookupManager(L"IN_STARTUP"), nullptr);
    EXPECT_TRUE(logged("IN_INIT", "Init failed"));
    EXPECT_FALSE(registry->add(std::make_unique<BASECORE::FRAME::CMgrObject>(L"")));
}

/// Gives its name so many times, and throws from then on.
class NamelessCommand : public BASECORE::CMD::CPushMsgCmdObj {
public:
    explicit NamelessCommand(int times) : m_times(times) {}
    std::wstring GetName() const override {
        return m_times-- > 0 ? L"NAMELESS_Cmd" : throw std::runtime_error("no command's name");
    }
    bool RunCommand() override { return true; }
    bool FinishCommand() override { return true; }

private:
    mutable int m_times;
};

TEST_F(Loader, AThrowingNameIsLoggedAndAskedForOnce) {
    EXPECT_FALSE(registry->add(std::make_unique<Failing>(L"", notes)));
    EXPECT_FALSE(registry->add(std::make_unique<NamelessCommand>(0)));
    EXPECT_TRUE(logged("GetName", "no manager's name") && logged("GetName", "no command's name"));
    EXPECT_TRUE(registry->add(std::make_unique<NamelessCommand>(1)));
    registry->start();
    auto* command = registry->command(L"NAMELESS_Cmd");
    ASSERT_NE(command, nullptr);
    workbench::MainWindow window;
    window.addCommand(*command, registry->commands().front().name);
    auto* button = support::showing<QToolButton>(window, "NAMELESS_Cmd");
    ASSERT_NE(button, nullptr);
    button->click();
    QCoreApplication::processEvents();
    window.removeCommands();
}

}  // namespace
