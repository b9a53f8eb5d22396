#pragma once

#include <QString>
#include <QStringList>

namespace workbench {

/// How the workbench was started.
struct Options {
    QString service;   // "host:port"; empty takes the last one
    QString userName;  // empty shows the login dialog, like an empty password
    QString password;
    QStringList plugInFolders;
    QString dataFolder;
    QString command;  // run once everything is ready; empty runs none
};

/// From the application's arguments and environment; ends the process on bad ones.
Options readOptions();

}  // namespace workbench
