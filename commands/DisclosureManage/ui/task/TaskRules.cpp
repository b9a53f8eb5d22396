#include "commands/DisclosureManage/ui/task/TaskRules.h"

#include <algorithm>

#include <QCoreApplication>
#include <QRegularExpression>

#include "commands/DisclosureManage/ui/task/Days.h"
#include "sdk/packages/disclosure/DocumentLimits.h"
#include "ui/common/WideText.h"

namespace {

struct Rules {
    Q_DECLARE_TR_FUNCTIONS(TaskRules)
};

bool showsSomething(const QString& text) {
    // Signs without a shape that Unicode counts as letters or symbols, not as formats.
    static const QString shapeless = QStringLiteral("\u115f\u1160\u2800\u3164\uffa0");
    return std::any_of(text.begin(), text.end(), [](QChar sign) {
        const bool isVariation = sign >= QChar(0xfe00) && sign <= QChar(0xfe0f);
        return !sign.isSpace() && sign.category() != QChar::Other_Format && !isVariation && !shapeless.contains(sign);
    });
}

}  // namespace

QString TidyName(const QString& typed) {
    const QString name = OneLine(typed).trimmed();
    return showsSomething(name) ? name : QString();
}

QString OneLine(const QString& typed) {
    static const QRegularExpression breaks(QStringLiteral("[\\x00-\\x1f\\x7f-\\x9f\\x{2028}\\x{2029}]+"));
    return QString(typed).replace(breaks, QStringLiteral(" "));
}

QString PlainLines(const QString& typed) {
    static const QRegularExpression breaks(QStringLiteral("[\\x0b\\x0c\\x85\\x{2028}\\x{2029}]"));
    static const QRegularExpression others(QStringLiteral("[\\x00-\\x08\\x0e-\\x1f\\x7f-\\x9f]"));
    return QString(typed).replace(breaks, QStringLiteral("\n")).remove(others);
}

QString BrokenNameRule(const QString& name) {
    return name.isEmpty() ? Rules::tr("任务名称不能为空") : QString();
}

QString TooManyDocuments() {
    return Rules::tr("最多可关联10份资料");
}

QString StartsAfterEnd(const DISCLOSUREPACKAGE::TaskRecord& task) {
    const QDate start = DayOf(task.constructionStartDateMills);
    const QDate end = DayOf(task.constructionEndDateMills);
    return start.isValid() && end.isValid() && end < start ? Rules::tr("施工开始日期不得大于施工结束日期") : QString();
}

BrokenRule FirstBrokenRule(const DISCLOSUREPACKAGE::TaskRecord& task, QDate today) {
    const QDate deadline = DayOf(task.expiryDateMills);
    if (const QString broken = BrokenNameRule(FromWide(task.name)); !broken.isEmpty())
        return {QStringLiteral("taskName"), broken};
    if (task.disclosureUserName.empty())
        return {QStringLiteral("disName"), Rules::tr("请选择交底人")};
    if (task.disclosureTaskReceiveUserList.empty())
        return {QStringLiteral("receiveName"), Rules::tr("请选择接受交底人")};
    if (const QString broken = StartsAfterEnd(task); !broken.isEmpty())
        return {QStringLiteral("constEndDate"), broken};
    if (!deadline.isValid())
        return {QStringLiteral("endDate"), Rules::tr("请输入截止日期")};
    if (deadline < today)
        return {QStringLiteral("endDate"), Rules::tr("截止日期不能小于发布日期")};
    if (task.disclosureTaskDocList.empty())
        return {QStringLiteral("connectdoclist"), Rules::tr("请关联或上传交底资料")};
    if (task.disclosureTaskDocList.size() > DISCLOSUREPACKAGE::kMostDocuments)
        return {QStringLiteral("connectdoclist"), TooManyDocuments()};
    return {};
}
