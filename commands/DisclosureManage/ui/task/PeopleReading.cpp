#include "commands/DisclosureManage/ui/task/PeopleReading.h"

PeopleReading::PeopleReading(PeopleDirectory& people, std::function<void()> show)
    : m_people(people), m_show(std::move(show)) {
    m_state.begin(true);
    m_first.setSingleShot(true);
    connect(&m_first, &QTimer::timeout, this, &PeopleReading::read);
    connect(&m_service, &ServiceState::back, this, [this] {
        if (m_state.isFailed())
            read();
    });
    m_first.start(0);
}

void PeopleReading::read() {
    m_state.begin(true);
    if (m_people.read())
        m_show();
    else
        m_state.fail(m_service.isLost() ? m_service.reason() : tr("没有得到应答"), true);
}

void PeopleReading::found(bool anybody, const QString& search) {
    if (m_state.isFailed())
        return;
    if (anybody)
        m_state.succeed();
    else
        m_state.findNone(search.trimmed().isEmpty() ? tr("没有可选的人员") : tr("没有找到“%1”").arg(search.trimmed()),
                         !search.trimmed().isEmpty());
}
