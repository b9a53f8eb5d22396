#include "commands/DisclosureManage/ui/CallReport.h"

#include <QCoreApplication>

#include "commands/DisclosureManage/ui/Notice.h"
#include "ui/common/WideText.h"

using DISCLOSUREPACKAGE::CallEnd;
using DISCLOSUREPACKAGE::LastCall;

namespace {

struct Report {
    Q_DECLARE_TR_FUNCTIONS(CallReport)
};

}  // namespace

QString FailureReason() {
    const QString untold = UntoldFailure();
    if (!untold.isEmpty())
        return untold;
    return LastCall().end == CallEnd::Refused ? Report::tr("服务拒绝了请求") : Report::tr("没有得到应答");
}

QString UntoldFailure() {
    return LastCall().end == CallEnd::Failed ? FromWide(LastCall().reason) : QString();
}

void SayFailure(const QString& what) {
    if (const QString why = UntoldFailure(); !why.isEmpty())
        ShowNotice(Report::tr("%1未完成：%2").arg(what, why));
}
