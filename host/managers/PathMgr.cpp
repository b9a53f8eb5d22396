#include "host/managers/PathMgr.h"

#include <QDir>

#include "sdk/basecore/ManagerNames.h"

namespace workbench {
namespace {

std::wstring existing(const QString& folder) {
    QDir().mkpath(folder);
    return QDir(folder).absolutePath().toStdWString();
}

}  // namespace

CPathMgr::CPathMgr(QString dataFolder, QString moduleFolder)
    : CMgrObject(BASECORE::NAMES::kPaths),
      m_dataFolder(std::move(dataFolder)),
      m_moduleFolder(std::move(moduleFolder)) {}

std::wstring CPathMgr::GetTempFolder() const {
    return existing(m_dataFolder + "/temp");
}

std::wstring CPathMgr::GetCacheFolder() const {
    return existing(m_dataFolder + "/cache");
}

std::wstring CPathMgr::GetModuleFolder() const {
    return existing(m_moduleFolder);
}

}  // namespace workbench
