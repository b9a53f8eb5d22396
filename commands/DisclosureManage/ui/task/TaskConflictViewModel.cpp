#include "commands/DisclosureManage/ui/task/TaskConflictViewModel.h"

#include <QDateTime>

#include "commands/DisclosureManage/ui/task/PeopleNames.h"

namespace {

const QString kIsOwn = QStringLiteral("isOwn");

}  // namespace

QString ChangeOf(const DISCLOSUREPACKAGE::TaskRecord& task, const PeopleNames& names) {
    return CTaskConflictViewModel::tr("任务已由%1于%2修改")
        .arg(ShownUpdater(task, names),
             QDateTime::fromMSecsSinceEpoch(task.updateDateMills).toString(QStringLiteral("yyyy-MM-dd HH:mm")));
}

CTaskConflictViewModel::CTaskConflictViewModel(const Task& began, const Task& own, const Task& present,
                                               const PeopleNames& names, QObject* parent)
    : QObject(parent), m_own(own), m_present(present), m_summary(ChangeOf(present, names)) {
    for (TaskField& field : TaskFields()) {
        if (field.isSame(own, present))
            continue;
        const bool isOwnChange = !field.isSame(began, own);
        const bool isBoth = isOwnChange && !field.isSame(began, present);
        m_rows << QVariantMap{{QStringLiteral("title"), field.title},
                              {QStringLiteral("began"), field.text(began, names)},
                              {QStringLiteral("own"), field.text(own, names)},
                              {QStringLiteral("present"), field.text(present, names)},
                              {QStringLiteral("isBoth"), isBoth},
                              {kIsOwn, isOwnChange}};
        m_fields.push_back(std::move(field));
    }
}

CTaskConflictViewModel::Task CTaskConflictViewModel::merged() const {
    Task task = m_present;
    for (int i = 0; i < m_rows.size(); ++i)
        if (m_rows.at(i).toMap().value(kIsOwn).toBool())
            m_fields[static_cast<std::size_t>(i)].copy(m_own, task);
    return task;
}

void CTaskConflictViewModel::choose(int field, bool isOwn) {
    if (field < 0 || field >= m_rows.size())
        return;
    QVariantMap row = m_rows.at(field).toMap();
    row[kIsOwn] = isOwn;
    m_rows[field] = row;
    emit fieldsChanged();
}

void CTaskConflictViewModel::onClickOk() {
    m_isAccepted = true;
    emit closeWnd();
}
