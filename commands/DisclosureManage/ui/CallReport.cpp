#include "commands/DisclosureManage/ui/CallReport.h"

#include <QCoreApplication>

#include "commands/DisclosureManage/ui/Notice.h"
#include "ui/common/WideText.h"

namespace {

struct Report {
    Q_DECLARE_TR_FUNCTIONS(CallReport)
};

}  // namespace

QString FailureReason() {
    const std::wstring reason = DISCLOSUREPACKAGE::LastFailure();
    return reason.empty() ? Report::tr("没有得到应答") : FromWide(reason);
}

QString UntoldFailure() {
    return DISCLOSUREPACKAGE::IsLastFailureShown() ? QString() : FromWide(DISCLOSUREPACKAGE::LastFailure());
}

void SayFailure(const QString& what) {
    if (const QString why = UntoldFailure(); !why.isEmpty())
        ShowNotice(Report::tr("%1未完成：%2").arg(what, why));
}
