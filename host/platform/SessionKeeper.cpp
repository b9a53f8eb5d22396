#include "host/platform/SessionKeeper.h"

#include "host/platform/PlatformData.h"

namespace workbench {

Answer SessionKeeper::logIn(const QString& address, const QString& userName, const QString& password) {
    const QString oldAddress = m_client.address();
    m_client.setAddress(address);
    Answer answer = m_client.post("/rs/auth/login", {{"username", userName}, {"password", password}}, true);
    const auto user = readUser(answer.result);
    if (answer.ok() && (!user || answer.sessionId.empty()))
        answer = m_client.failure(Outcome::Malformed, answer.status);
    if (!answer.ok()) {
        if (m_session)
            m_client.setAddress(oldAddress);
        return answer;
    }
    m_session = std::make_unique<WebSession>(address.toStdWString(), answer.sessionId);
    m_client.setSessionId(answer.sessionId);
    m_user = *user;
    m_userName = userName;
    m_password = password;
    return answer;
}

Answer SessionKeeper::logInAgain() {
    return logIn(m_client.address(), m_userName, m_password);
}

bool SessionKeeper::isAccepted() {
    return m_session && m_client.get("/rs/platform/current_user").ok();
}

void SessionKeeper::logOut() {
    if (!m_session)
        return;
    m_client.post("/rs/auth/logout", {}, true);
    m_client.setSessionId({});
    m_session.reset();
    m_user = {};
    m_password.clear();
}

}  // namespace workbench
