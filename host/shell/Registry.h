#pragma once

#include <memory>
#include <vector>

#include <QCoreApplication>

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ICmdObject.h"

namespace workbench {

/// The host core: owns every manager and command, finds them by name, and starts and ends them in order. What one of
/// them throws is logged and takes only that one out.
class Registry final : public BASECORE::FRAME::IBaseCoreData {
    Q_DECLARE_TR_FUNCTIONS(Registry)

public:
    /// Becomes the process-wide core while it lives.
    Registry();
    /// Ends what was started, then deletes commands and managers, the last one first.
    ~Registry();
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;

    QWidget* GetMainWindow() const override { return m_mainWindow; }
    BASECORE::FRAME::IMgrObject* LookupManager(const std::wstring& name) const override;
    void setMainWindow(QWidget* window) { m_mainWindow = window; }

    /// False, and deleted, when the name is empty or taken or asking for it throws: it is asked for once, here. Only
    /// before `start`.
    bool add(std::unique_ptr<BASECORE::FRAME::IMgrObject> manager);
    bool add(std::unique_ptr<BASECORE::CMD::ICmdObject> command);

    struct NamedCommand {
        std::unique_ptr<BASECORE::CMD::ICmdObject> command;
        std::wstring name;
    };
    const std::vector<NamedCommand>& commands() const { return m_commands; }
    /// Null when there is none of that name.
    BASECORE::CMD::ICmdObject* command(const std::wstring& name) const;

    /// Inits all managers, then starts them, then makes the commands ready.
    void start();
    /// Shuts down, in reverse order, the managers that were started.
    void shutdown();

private:
    struct Entry {
        std::unique_ptr<BASECORE::FRAME::IMgrObject> manager;
        std::wstring name;
        bool usable = true;
        bool started = false;
    };
    static bool isFree(bool free, const std::wstring& name);

    QWidget* m_mainWindow = nullptr;
    std::vector<Entry> m_managers;
    std::vector<NamedCommand> m_commands;
};

}  // namespace workbench
