#include "host/managers/RestServWebMgr.h"

#include <utility>

#include <QScopedValueRollback>
#include <QTimer>

#include "host/log/Messages.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/baseui/MessageBox.h"

namespace workbench {

CRestServWebMgr::CRestServWebMgr(SessionKeeper& keeper, LoginPrompt prompt,
                                 std::chrono::steady_clock::duration refusedAgain)
    : CMgrObject(BASECORE::NAMES::kRestService),
      m_keeper(keeper),
      m_prompt(std::move(prompt)),
      m_refusedAgain(refusedAgain) {}

bool CRestServWebMgr::HasSession(const std::wstring& serviceKey) const {
    return serviceKey == BASECORE::NAMES::kServiceKey && m_keeper.session();
}

bool CRestServWebMgr::RenewSession(const std::wstring& serviceKey, const std::wstring& message) {
    // The check of a renewal may itself find the session expired, and timers run while the user types.
    if (serviceKey != BASECORE::NAMES::kServiceKey || m_isRenewing)
        return false;
    const auto now = std::chrono::steady_clock::now();
    if (m_keeper.session() && m_keeper.session()->id() == m_freshSession && now - m_renewedAt < m_refusedAgain) {
        qCWarning(messages).noquote() << tr("刚刚更新的登录又被服务拒绝：%1").arg(QString::fromStdWString(message));
        if (std::exchange(m_toldOf, m_freshSession) != m_freshSession)
            showLater(tr("登录刚刚更新，又被服务拒绝。请稍后再试，仍不行时请退出登录后重新登录。"));
        return false;
    }
    const QScopedValueRollback<bool> renewing(m_isRenewing, true);
    const bool renewed = renew();
    if (renewed) {
        m_freshSession = m_keeper.session()->id();
        m_renewedAt = std::chrono::steady_clock::now();
        qCInfo(messages).noquote() << tr("登录已自动更新");
    }
    return renewed;
}

bool CRestServWebMgr::renew() {
    const Answer answer = m_keeper.session() ? m_keeper.logInAgain() : Answer{Outcome::Refused, 0, {}, {}, {}};
    if (answer.outcome == Outcome::Refused && answer.status < 500) {
        if (!m_prompt(m_keeper.session() ? tr("登录已失效，请输入密码重新登录。") : tr("请先登录。")))
            return false;
    } else if (!answer.ok()) {
        qCWarning(messages).noquote() << tr("无法更新登录：%1").arg(answer.text);
        return false;
    }
    return m_keeper.isAccepted();
}

void CRestServWebMgr::EndSession(const std::wstring& serviceKey) {
    if (serviceKey == BASECORE::NAMES::kServiceKey)
        m_keeper.logOut();
}

void CRestServWebMgr::ReportStatus(int code, const std::wstring& text) {
    const QString shown = text.empty() ? tr("服务返回错误") : QString::fromStdWString(text);
    qCWarning(messages).noquote() << shown << code;  // the number helps whoever reads the log, not the user
    showLater(shown);
}

void CRestServWebMgr::showLater(const QString& text) {
    QTimer::singleShot(1, qApp, [text] { BASEUI::ShowMessageBox(text.toStdWString()); });
}

}  // namespace workbench
