#include "commands/DisclosureManage/ui/task/TaskFields.h"

#include <algorithm>
#include <tuple>

#include <QCoreApplication>
#include <QStringList>

#include "commands/DisclosureManage/ui/task/BimTreeModel.h"
#include "commands/DisclosureManage/ui/task/Days.h"
#include "commands/DisclosureManage/ui/task/PeopleNames.h"
#include "ui/common/WideText.h"

using DISCLOSUREPACKAGE::TaskRecord;

namespace {

struct Titles {
    Q_DECLARE_TR_FUNCTIONS(TaskFields)
};

/// Tasks are alike in a field when `key` says the same of both.
template <class Text, class Key, class... Members>
TaskField field(const QString& title, Text text, Key key, Members... members) {
    return {title, text, [key](const TaskRecord& a, const TaskRecord& b) { return key(a) == key(b); },
            [members...](const TaskRecord& from, TaskRecord& to) { ((to.*members = from.*members), ...); }};
}

TaskField day(const QString& title, int64_t TaskRecord::*member) {
    const auto key = [member](const TaskRecord& task) { return DayText(task.*member); };
    return field(
        title, [key](const TaskRecord& task, const PeopleNames&) { return key(task); }, key, member);
}

TaskField words(const QString& title, std::wstring TaskRecord::*member) {
    const auto key = [member](const TaskRecord& task) { return FromWide(task.*member); };
    return field(
        title, [key](const TaskRecord& task, const PeopleNames&) { return key(task); }, key, member);
}

template <class List, class Of>
auto sorted(const List& list, Of of) {
    std::vector<decltype(of(*list.begin()))> keys;
    std::transform(list.begin(), list.end(), std::back_inserter(keys), of);
    std::sort(keys.begin(), keys.end());
    return keys;
}

template <class List, class Of>
QString joined(const List& list, Of of) {
    QStringList names;
    for (const auto& element : list)
        names << FromWide(of(element));
    return names.join(QStringLiteral("、"));
}

TaskField receivers() {
    return field(
        Titles::tr("接受交底人"), ShownReceivers,
        [](const TaskRecord& task) {
            return sorted(task.disclosureTaskReceiveUserList, [](const auto& person) { return person.userName; });
        },
        &TaskRecord::disclosureTaskReceiveUserList);
}

TaskField links() {
    return field(
        Titles::tr("关联BIM"),
        [](const TaskRecord& task, const PeopleNames&) {
            return joined(CBimTreeModel::linksOf(task),
                          [](const auto& link) { return link.name.empty() ? link.identifier : link.name; });
        },
        [](const TaskRecord& task) {
            return sorted(CBimTreeModel::linksOf(task),
                          [](const auto& link) { return std::tuple(link.kind, link.ppid, link.identifier); });
        },
        &TaskRecord::disclosureTaskViewportList, &TaskRecord::disclosureTaskNodeList);
}

TaskField documents() {
    return field(
        Titles::tr("关联资料"),
        [](const TaskRecord& task, const PeopleNames&) {
            return joined(task.disclosureTaskDocList, [](const auto& doc) { return doc.name; });
        },
        [](const TaskRecord& task) {
            return sorted(task.disclosureTaskDocList,
                          [](const auto& doc) { return std::tuple(doc.id, doc.uuid, doc.md5); });
        },
        &TaskRecord::disclosureTaskDocList);
}

}  // namespace

std::vector<TaskField> TaskFields() {
    return {words(Titles::tr("任务名称"), &TaskRecord::name),
            field(
                Titles::tr("交底人"),
                [](const TaskRecord& task, const PeopleNames& names) {
                    return names.shown(task.disclosureUserName, task.disclosureUserRealname);
                },
                [](const TaskRecord& task) { return task.disclosureUserName; }, &TaskRecord::disclosureUserName,
                &TaskRecord::disclosureUserRealname),
            receivers(),
            day(Titles::tr("施工开始日期"), &TaskRecord::constructionStartDateMills),
            day(Titles::tr("施工结束日期"), &TaskRecord::constructionEndDateMills),
            day(Titles::tr("计划交底日期"), &TaskRecord::planDisclosureDateMills),
            day(Titles::tr("截止日期"), &TaskRecord::expiryDateMills),
            links(),
            documents(),
            words(Titles::tr("备注"), &TaskRecord::remark)};
}

bool IsSameTask(const TaskRecord& a, const TaskRecord& b) {
    const std::vector<TaskField> fields = TaskFields();
    return std::all_of(fields.begin(), fields.end(), [&](const TaskField& field) { return field.isSame(a, b); });
}
