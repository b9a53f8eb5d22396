#pragma once

#include <functional>

#include <QTimer>

#include "commands/DisclosureManage/ui/ReadState.h"
#include "commands/DisclosureManage/ui/ServiceState.h"
#include "commands/DisclosureManage/ui/task/PeopleDirectory.h"

/// How a picker reads its people: once its window stands, when the user tries again, and, after a failure, when the
/// service is back. `theReading` of its page.
class PeopleReading : public QObject {
    Q_OBJECT
    Q_PROPERTY(ReadState* state READ state CONSTANT)

public:
    /// `show` is called after each successful reading; it says by `found` whether anybody is there.
    PeopleReading(PeopleDirectory& people, std::function<void()> show);

    ReadState* state() { return &m_state; }
    /// What the search of that text found.
    void found(bool anybody, const QString& search);

    Q_INVOKABLE void read();

private:
    PeopleDirectory& m_people;
    std::function<void()> m_show;
    ReadState m_state;
    ServiceState m_service;
    QTimer m_first;
};
