#include "host/managers/ClientConfigMgr.h"

#include <QDir>
#include <QSettings>

#include "sdk/basecore/ManagerNames.h"

namespace workbench {

CClientConfigMgr::CClientConfigMgr(const QString& dataFolder)
    : CMgrObject(BASECORE::NAMES::kClientConfig), m_file(QDir(dataFolder).filePath("workbench.ini")) {}

// A QSettings keeps its first error for good, so each access has one of its own; Qt shares the parsed file between
// them.
std::wstring CClientConfigMgr::GetValue(const std::wstring& key) const {
    return QSettings(m_file, QSettings::IniFormat).value(QString::fromStdWString(key)).toString().toStdWString();
}

bool CClientConfigMgr::SetValue(const std::wstring& key, const std::wstring& value) {
    QSettings settings(m_file, QSettings::IniFormat);
    settings.setValue(QString::fromStdWString(key), QString::fromStdWString(value));
    settings.sync();
    return settings.status() == QSettings::NoError;
}

}  // namespace workbench
