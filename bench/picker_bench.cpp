#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHash>
#include <QStandardItemModel>

#include "bench/Report.h"
#include "commands/DisclosureManage/ui/task/PeopleDirectory.h"
#include "tests/support/FakeCore.h"
#include "tests/support/FakeDisclosureMgr.h"
#include "ui/common/NameCheckBoxTreeModel.h"
#include "ui/common/NameCheckBoxTreeNode.h"

using BASEPACKAGE::DeptRecord;
using BASEPACKAGE::UserRecord;

namespace {

constexpr int kPeople = 5000;
constexpr int kDepartments = 200;

/// 200 departments with 25 people each.
class Organisation : public BASEPACKAGE::IOrgDeptMgr, public BASECORE::FRAME::CMgrObject {
public:
    Organisation() : CMgrObject(BASECORE::NAMES::kDepartments) {
        for (int i = 0; i < kDepartments; ++i)
            m_departments.push_back({L"department-" + std::to_wstring(i), L"第" + std::to_wstring(i) + L"项目部",
                                     i ? L"department-" + std::to_wstring((i - 1) / 10) : L""});
        for (int i = 0; i < kPeople; ++i)
            m_people.push_back({L"user" + std::to_wstring(i), L"人员" + std::to_wstring(i), L"",
                                L"department-" + std::to_wstring(i % kDepartments)});
    }
    bool GetDeptName(std::wstring&, const std::wstring&) const override { return false; }
    bool GetDepartments(std::vector<DeptRecord>& departments, const std::wstring&) const override {
        departments = m_departments;
        return true;
    }
    bool GetUsers(std::vector<UserRecord>& people, const std::wstring&) const override {
        people = m_people;
        return true;
    }

private:
    std::vector<DeptRecord> m_departments;
    std::vector<UserRecord> m_people;
};

double seconds(const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return timer.nsecsElapsed() * 1e-9;
}

int rowsBelow(const QAbstractItemModel& model, const QModelIndex& parent = {}) {
    int rows = model.rowCount(parent);
    for (int row = model.rowCount(parent) - 1; row >= 0; --row)
        rows += rowsBelow(model, model.index(row, 0, parent));
    return rows;
}

QString shown(const UserRecord& person) {
    return QString::fromStdWString(person.realName) + '(' + QString::fromStdWString(person.userName) + ')';
}

/// Shows the people found, and gets rid of those shown before.
void show(NameCheckBoxTreeModel& model, const PeopleDirectory& people, const QString& search) {
    if (auto* top = people.createTree<NameCheckBoxTreeNode>(search))
        model.addNode({}, top);
    else
        model.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void fillPeer(QStandardItemModel& model, const Organisation& organisation) {
    std::vector<DeptRecord> departments;
    std::vector<UserRecord> people;
    organisation.GetDepartments(departments, L"");
    organisation.GetUsers(people, L"");
    QHash<QString, QStandardItem*> items;
    for (const DeptRecord& department : departments) {
        auto* item = new QStandardItem(QString::fromStdWString(department.name));
        items.insert(QString::fromStdWString(department.id), item);
        items.value(QString::fromStdWString(department.parentId), model.invisibleRootItem())->appendRow(item);
    }
    for (const UserRecord& person : people) {
        auto* item = new QStandardItem(shown(person));
        item->setData(QString::fromStdWString(person.userName), Qt::UserRole);
        items.value(QString::fromStdWString(person.deptId))->appendRow(item);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    support::FakeCore core;
    support::FakeDisclosureMgr manager;
    Organisation organisation;
    core.managers[BASECORE::NAMES::kDisclosure] = &manager;
    core.managers[BASECORE::NAMES::kDepartments] = &organisation;

    int ours = 0;
    int peers = 0;
    bench::Row(
        "people picker with 5,000 people: set-up / the same QStandardItemModel", 2.0,
        [&] {
            NameCheckBoxTreeModel model;
            const double time = seconds([&] { show(model, PeopleDirectory(), {}); });
            ours = rowsBelow(model);
            return time;
        },
        [&] {
            QStandardItemModel model;
            const double time = seconds([&] { fillPeer(model, organisation); });
            peers = rowsBelow(model);
            return time;
        });
    if (ours != kPeople + kDepartments || peers != ours)
        return 1;

    const PeopleDirectory people;
    NameCheckBoxTreeModel model;
    std::vector<UserRecord> records;
    organisation.GetUsers(records, L"");
    QStringList texts;
    for (const UserRecord& person : records)
        texts.append(shown(person));
    // Two people of a hundred are found, and take the place of two others.
    const QString searches[] = {"USER43", "人员42"};
    int turn = 0;
    int found = 0;
    bench::Row(
        "people picker with 5,000 people: search / filter of a QStringList", 5.0,
        [&] {
            const QString& search = searches[++turn % 2];
            const double time = seconds([&] { show(model, people, search); });
            ours = rowsBelow(model);
            return time;
        },
        [&] {
            const QString& search = searches[turn % 2];
            const double time = seconds([&] { found = texts.filter(search, Qt::CaseInsensitive).size(); });
            return time;
        });
    return ours > found && found == 111 ? 0 : 1;
}
