#include "host/shell/Registry.h"

#include <algorithm>

#include "host/log/Guarded.h"
#include "host/log/Messages.h"

namespace workbench {

using BASECORE::CMD::ICmdObject;
using BASECORE::FRAME::IMgrObject;

Registry::Registry() {
    BASECORE::FRAME::SetMainBaseCore(this);
}

Registry::~Registry() {
    shutdown();
    while (!m_commands.empty())
        m_commands.pop_back();
    while (!m_managers.empty())
        m_managers.pop_back();
    BASECORE::FRAME::SetMainBaseCore(nullptr);
}

IMgrObject* Registry::LookupManager(const std::wstring& name) const {
    const auto found = std::find_if(m_managers.begin(), m_managers.end(),
                                    [&](const Entry& entry) { return entry.name == name && entry.usable; });
    return found == m_managers.end() ? nullptr : found->manager.get();
}

bool Registry::isFree(bool free, const std::wstring& name) {
    if (name.empty() || !free)
        qCWarning(messages).noquote() << tr("拒绝登记“%1”：名称为空或已被占用").arg(QString::fromStdWString(name));
    return !name.empty() && free;
}

bool Registry::add(std::unique_ptr<IMgrObject> manager) {
    std::wstring name;
    if (!guarded("GetName", [&] { name = manager->GetName(); }) || !isFree(LookupManager(name) == nullptr, name))
        return false;
    m_managers.push_back({std::move(manager), std::move(name)});
    return true;
}

bool Registry::add(std::unique_ptr<ICmdObject> newCommand) {
    std::wstring name;
    if (!guarded("GetName", [&] { name = newCommand->GetName(); }) || !isFree(command(name) == nullptr, name))
        return false;
    m_commands.push_back({std::move(newCommand), std::move(name)});
    return true;
}

ICmdObject* Registry::command(const std::wstring& name) const {
    const auto found = std::find_if(m_commands.begin(), m_commands.end(),
                                    [&](const NamedCommand& candidate) { return candidate.name == name; });
    return found == m_commands.end() ? nullptr : found->command.get();
}

void Registry::start() {
    const auto nameOf = [](const std::wstring& name) { return QString::fromStdWString(name); };
    for (Entry& entry : m_managers)
        entry.usable = guarded(nameOf(entry.name) + " Init", [&] { entry.manager->Init(); });
    for (Entry& entry : m_managers)
        if (entry.usable)
            entry.started = entry.usable = guarded(nameOf(entry.name) + " Startup", [&] { entry.manager->Startup(); });
    std::erase_if(m_commands, [&](const NamedCommand& entry) {
        return !guarded(nameOf(entry.name), [&] {
            entry.command->SetBaseCoreData(this);
            entry.command->ViewModelTypeRegistration();
            entry.command->ViewRegistration();
        });
    });
}

void Registry::shutdown() {
    for (auto entry = m_managers.rbegin(); entry != m_managers.rend(); ++entry) {
        if (!entry->started)
            continue;
        entry->started = false;
        guarded(QString::fromStdWString(entry->name) + " Shutdown", [&] { entry->manager->Shutdown(); });
    }
}

}  // namespace workbench
