#include "commands/DisclosureManage/ui/task/TaskRules.h"

#include <algorithm>

#include <QCoreApplication>
#include <QDateTime>
#include <QRegularExpression>

#include "ui/common/WideText.h"

namespace {

constexpr std::size_t kMostDocuments = 10;

QDate dateOf(int64_t mills) {
    return mills > 0 ? QDateTime::fromMSecsSinceEpoch(mills).date() : QDate();
}

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

QString tidyName(const QString& typed) {
    const QString name = oneLine(typed).trimmed();
    return showsSomething(name) ? name : QString();
}

QString oneLine(const QString& typed) {
    static const QRegularExpression breaks(QStringLiteral("[\\x00-\\x1f\\x7f-\\x9f\\x{2028}\\x{2029}]+"));
    return QString(typed).replace(breaks, QStringLiteral(" "));
}

QString plainLines(const QString& typed) {
    static const QRegularExpression breaks(QStringLiteral("[\\x0b\\x0c\\x85\\x{2028}\\x{2029}]"));
    static const QRegularExpression others(QStringLiteral("[\\x00-\\x08\\x0e-\\x1f\\x7f-\\x9f]"));
    return QString(typed).replace(breaks, QStringLiteral("\n")).remove(others);
}

QString brokenNameRule(const QString& name) {
    return name.isEmpty() ? Rules::tr("任务名称不能为空") : QString();
}

QString firstBrokenRule(const DISCLOSUREPACKAGE::TaskRecord& task, QDate today) {
    const QDate start = dateOf(task.constructionStartDateMills);
    const QDate end = dateOf(task.constructionEndDateMills);
    const QDate deadline = dateOf(task.expiryDateMills);
    if (const QString broken = brokenNameRule(FromWide(task.name)); !broken.isEmpty())
        return broken;
    if (task.disclosureUserName.empty())
        return Rules::tr("请选择交底人");
    if (task.disclosureTaskReceiveUserList.empty())
        return Rules::tr("请选择接受交底人");
    if (start.isValid() && end.isValid() && end < start)
        return Rules::tr("施工开始日期不得大于施工结束日期");
    if (!deadline.isValid())
        return Rules::tr("请输入截止日期");
    if (deadline < today)
        return Rules::tr("截止日期不能小于发布日期");
    if (task.disclosureTaskDocList.empty())
        return Rules::tr("请关联或上传交底资料");
    if (task.disclosureTaskDocList.size() > kMostDocuments)
        return Rules::tr("最多可关联10份资料");
    return {};
}
