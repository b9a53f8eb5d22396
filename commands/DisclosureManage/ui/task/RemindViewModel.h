#pragma once

#include <QObject>

#include "sdk/packages/disclosure/Records.h"

/// The department's reminder settings as the user edits them.
class CRemindViewModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString day MEMBER m_day NOTIFY dayChanged)
    Q_PROPERTY(Qt::CheckState planCheckState MEMBER m_planCheckState NOTIFY planCheckStateChanged)
    Q_PROPERTY(Qt::CheckState overdueCheckState MEMBER m_overdueCheckState NOTIFY overdueCheckStateChanged)
    Q_PROPERTY(int frequencyPlan MEMBER m_frequencyPlan NOTIFY frequencyPlanChanged)
    Q_PROPERTY(int frequencyOverdue MEMBER m_frequencyOverdue NOTIFY frequencyOverdueChanged)

public:
    /// Reads the settings; without any the defaults are shown.
    explicit CRemindViewModel(QObject* parent = nullptr);

    /// Saves what differs from what was shown at first, and asks for the dialog to be closed unless that fails.
    Q_INVOKABLE void onClickOk();

signals:
    void dayChanged();
    void planCheckStateChanged();
    void overdueCheckStateChanged();
    void frequencyPlanChanged();
    void frequencyOverdueChanged();
    void closeWnd();

private:
    void show(const DISCLOSUREPACKAGE::PushConfig& config);
    /// The settings on the screen, under the loaded id.
    DISCLOSUREPACKAGE::PushConfig settings() const;

    QString m_day = QStringLiteral("1");
    Qt::CheckState m_planCheckState = Qt::Unchecked;
    Qt::CheckState m_overdueCheckState = Qt::Unchecked;
    int m_frequencyPlan = 0;
    int m_frequencyOverdue = 0;
    DISCLOSUREPACKAGE::PushConfig m_shown;  // at first
    std::wstring m_id;                      // empty as long as nothing is stored
};
