#include "commands/DisclosureManage/ui/task/RemindViewModel.h"

#include "commands/DisclosureManage/ui/CallReport.h"
#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Notice.h"
#include "sdk/basetools/Uuid.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"

using DISCLOSUREPACKAGE::IDisclosureManageMgr;
using DISCLOSUREPACKAGE::PushConfig;

namespace {

bool sameSettings(const PushConfig& a, const PushConfig& b) {
    return a.isNotifyAdvance == b.isNotifyAdvance && a.daysNotifyAdvance == b.daysNotifyAdvance &&
           a.advanceNotifyFrequency == b.advanceNotifyFrequency && a.isNotifyOverdue == b.isNotifyOverdue &&
           a.overdueNotifyFrequency == b.overdueNotifyFrequency;
}

}  // namespace

CRemindViewModel::CRemindViewModel(QObject* parent) : QObject(parent) {
    IDisclosureManageMgr* manager = FindDisclosureManager();
    PushConfig config;
    const auto call = [&] { return manager->QueryPushConfig(manager->GetCurDeptId(), config); };
    if (manager && Commanded(tr("读取提醒设置"), call) && !config.id.empty())
        show(config);
    m_shown = settings();
}

void CRemindViewModel::show(const PushConfig& config) {
    m_id = config.id;
    m_day = QString::number(config.daysNotifyAdvance);
    m_planCheckState = config.isNotifyAdvance ? Qt::Checked : Qt::Unchecked;
    m_overdueCheckState = config.isNotifyOverdue ? Qt::Checked : Qt::Unchecked;
    // Stored frequencies count from 1.
    m_frequencyPlan = qMax(config.advanceNotifyFrequency - 1, 0);
    m_frequencyOverdue = qMax(config.overdueNotifyFrequency - 1, 0);
}

PushConfig CRemindViewModel::settings() const {
    PushConfig config;
    config.id = m_id;
    config.isNotifyAdvance = m_planCheckState == Qt::Checked;
    config.daysNotifyAdvance = m_day.toInt();
    config.advanceNotifyFrequency = m_frequencyPlan + 1;
    config.isNotifyOverdue = m_overdueCheckState == Qt::Checked;
    config.overdueNotifyFrequency = m_frequencyOverdue + 1;
    return config;
}

void CRemindViewModel::onClickOk() {
    IDisclosureManageMgr* manager = FindDisclosureManager();
    if (!manager)
        return;
    if (m_planCheckState == Qt::Checked && m_day.isEmpty()) {
        ShowNotice(tr("请输入提前提醒的天数"));
        return;
    }
    PushConfig config = settings();
    config.deptId = manager->GetCurDeptId();
    if (m_id.empty()) {
        config.id = BASETOOLS::GenerateUUID();
        if (!Commanded(tr("保存"), [&] { return manager->SavePushConfig(config); }))
            return;
    } else if (!sameSettings(config, m_shown) &&
               !Commanded(tr("保存"), [&] { return manager->UpdatePushConfig(config); })) {
        return;
    }
    m_id = config.id;  // a second click before the dialog is closed finds nothing to save
    m_shown = config;
    emit closeWnd();
}
