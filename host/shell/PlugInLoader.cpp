#include "host/shell/PlugInLoader.h"

#include <QDir>
#include <QFile>
#include <QLibrary>

#include "host/log/Guarded.h"
#include "host/log/Messages.h"
#include "host/shell/Registry.h"
#include "sdk/basecore/PlugIn.h"

namespace workbench {
namespace {

/// Calls the export `fill` and takes over everything that it appends, also when it throws half-way.
template <class Object, class Function>
bool collect(const QString& what, Function fill, std::vector<std::unique_ptr<Object>>& owned) {
    std::vector<Object*> appended;
    const bool good = guarded(what, [&] { fill(appended); });
    for (Object* object : appended)
        if (object)
            owned.emplace_back(object);
    return good;
}

}  // namespace

PlugInLoader::PlugInLoader(Registry& registry, const QString& dataFolder)
    : m_registry(registry), m_markFile(QDir(dataFolder).filePath("loading-plug-in")) {
    QFile mark(m_markFile);
    if (mark.open(QIODevice::ReadOnly))
        m_crashed = QString::fromUtf8(mark.readAll());
    mark.remove();
}

int PlugInLoader::loadAll(const QStringList& folders) {
    int loaded = 0;
    for (const QString& folder : folders) {
        const QDir dir(folder);
        if (!dir.exists())
            qCWarning(messages).noquote() << tr("插件目录不存在：%1").arg(folder);
        for (const QString& name : dir.entryList(QDir::Files, QDir::Name))
            if (QLibrary::isLibrary(name) && load(dir.absoluteFilePath(name)))
                ++loaded;
    }
    return loaded;
}

bool PlugInLoader::load(const QString& file) {
    if (file == m_crashed) {
        qCWarning(messages).noquote() << tr("本次不加载插件 %1：上次启动在加载它时异常终止").arg(file);
        return false;
    }
    QFile mark(m_markFile);
    if (mark.open(QIODevice::WriteOnly))
        mark.write(file.toUtf8());
    mark.close();
    const bool loaded = takeIn(file);
    mark.remove();
    return loaded;
}

bool PlugInLoader::takeIn(const QString& file) {
    QLibrary library(file);
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    if (!library.load()) {
        qCWarning(messages).noquote() << tr("无法加载插件 %1：%2").arg(file, library.errorString());
        return false;
    }
    const auto getManagers =
        reinterpret_cast<BASECORE::PLUGIN::GetManagersFunction>(library.resolve(BASECORE::PLUGIN::kGetManagers));
    const auto getCommands =
        reinterpret_cast<BASECORE::PLUGIN::GetCommandsFunction>(library.resolve(BASECORE::PLUGIN::kGetCommands));
    if (!getManagers || !getCommands) {
        qCWarning(messages).noquote() << tr("无法加载插件 %1：没有导出 GetManagers 和 GetCommands").arg(file);
        return false;
    }

    std::vector<std::unique_ptr<BASECORE::FRAME::IMgrObject>> managers;
    std::vector<std::unique_ptr<BASECORE::CMD::ICmdObject>> commands;
    if (!collect(file, getManagers, managers) || !collect(file, getCommands, commands)) {
        qCWarning(messages).noquote() << tr("无法加载插件 %1：它在交出管理器和命令时出错").arg(file);
        return false;
    }
    for (auto& manager : managers)
        m_registry.add(std::move(manager));
    for (auto& command : commands)
        m_registry.add(std::move(command));
    qCInfo(messages).noquote() << tr("已加载插件 %1").arg(file);
    return true;
}

}  // namespace workbench
