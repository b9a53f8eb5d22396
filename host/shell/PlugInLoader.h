#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace workbench {

class Registry;

/// Loads plug-ins into a registry and never unloads one. One that cannot be used is named in the log with the reason
/// and left out, and so is, once, one during whose loading the workbench crashed the last time.
class PlugInLoader {
    Q_DECLARE_TR_FUNCTIONS(PlugInLoader)

public:
    /// The data folder keeps the mark of the plug-in that is being loaded.
    PlugInLoader(Registry& registry, const QString& dataFolder);

    /// Every library in the folders, by name; returns how many were loaded.
    int loadAll(const QStringList& folders);

private:
    bool load(const QString& file);
    bool takeIn(const QString& file);

    Registry& m_registry;
    QString m_markFile;
    QString m_crashed;
};

}  // namespace workbench
