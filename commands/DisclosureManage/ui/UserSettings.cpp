#include "commands/DisclosureManage/ui/UserSettings.h"

#include <QUrl>

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/ICasMgr.h"
#include "sdk/packages/IKpxClientConfigMgr.h"
#include "ui/common/WideText.h"

namespace {

PROJECTPACKAGE::IKpxClientConfigMgr* config() {
    return BASECORE::FRAME::LookupManager<PROJECTPACKAGE::IKpxClientConfigMgr>(BASECORE::NAMES::kClientConfig);
}

std::wstring keyOf(const QString& name) {
    const auto* login = BASECORE::FRAME::LookupManager<BASEPACKAGE::ICasMgr>(BASECORE::NAMES::kAuthentication);
    const QString user = login ? FromWide(login->GetUserName()) : QString();
    return QStringLiteral("disclosure/%1/%2").arg(QString(QUrl::toPercentEncoding(user)), name).toStdWString();
}

}  // namespace

QString UserSettings::value(const QString& name) const {
    const auto* store = config();
    return store ? FromWide(store->GetValue(keyOf(name))) : QString();
}

void UserSettings::setValue(const QString& name, const QString& value) {
    if (auto* store = config())
        store->SetValue(keyOf(name), value.toStdWString());
}
