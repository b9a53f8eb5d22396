#pragma once

#include <QString>

#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/IKpxPathMgr.h"

namespace workbench {

/// Folders below the data folder, made when they are first asked for, and the folder of the plug-ins.
class CPathMgr final : public BASECORE::FRAME::CMgrObject, public PROJECTPACKAGE::IKpxPathMgr {
public:
    CPathMgr(QString dataFolder, QString moduleFolder);

    std::wstring GetTempFolder() const override;
    std::wstring GetCacheFolder() const override;
    std::wstring GetModuleFolder() const override;

private:
    QString m_dataFolder;
    QString m_moduleFolder;
};

}  // namespace workbench
