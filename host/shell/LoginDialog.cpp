#include "host/shell/LoginDialog.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include "host/platform/SessionKeeper.h"
#include "host/shell/Look.h"

namespace workbench {
namespace {

constexpr int kFieldWidth = 260;
constexpr int kMargin = 28;

bool isAddress(const QString& text) {
    const QUrl url("http://" + text, QUrl::StrictMode);
    return url.isValid() && !url.host().isEmpty() && url.authority().compare(text, Qt::CaseInsensitive) == 0 &&
           url.userInfo().isEmpty();
}

}  // namespace

LoginDialog::LoginDialog(SessionKeeper& keeper, const QString& server, const QString& userName, QWidget* parent)
    : QDialog(parent),
      m_keeper(keeper),
      m_server(new QLineEdit(server)),
      m_userName(new QLineEdit(userName)),
      m_password(new QLineEdit),
      m_error(new QLabel),
      m_logIn(new QPushButton(tr("登录(&L)"))) {
    setWindowTitle(tr("登录工作台"));
    m_server->setMinimumWidth(kFieldWidth);
    m_server->setPlaceholderText(tr("例如 127.0.0.1:8620"));
    m_password->setEchoMode(QLineEdit::Password);
    m_error->setWordWrap(true);
    m_error->setTextFormat(Qt::PlainText);
    m_error->hide();
    m_logIn->setDefault(true);
    m_logIn->setProperty("primary", true);
    auto* cancel = new QPushButton(tr("取消(&C)"));

    auto* title = new QLabel(tr("登录工作台"));
    title->setStyleSheet(look::kHeading);
    auto* form = new QFormLayout;
    form->setSpacing(12);
    form->addRow(tr("服务器(&S)"), m_server);
    form->addRow(tr("用户名(&U)"), m_userName);
    form->addRow(tr("密码(&P)"), m_password);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_logIn);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin - 4, kMargin, kMargin - 4);
    layout->setSpacing(16);
    layout->setSizeConstraint(QLayout::SetMinAndMaxSize);
    layout->addWidget(title);
    layout->addLayout(form);
    layout->addWidget(m_error);
    layout->addLayout(buttons);

    connect(m_logIn, &QPushButton::clicked, this, &LoginDialog::tryLogIn);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    (server.isEmpty() ? m_server : userName.isEmpty() ? m_userName : m_password)->setFocus();
}

QString LoginDialog::server() const {
    return m_server->text().trimmed();
}

QString LoginDialog::userName() const {
    return m_userName->text().trimmed();
}

void LoginDialog::fixUser() {
    m_server->setEnabled(false);
    m_userName->setEnabled(false);
    m_password->setFocus();
}

void LoginDialog::showNote(const QString& text) {
    showError(text);
    m_error->setStyleSheet(look::kFaintText);
}

void LoginDialog::showError(const QString& text) {
    m_error->setStyleSheet(look::kErrorText);
    m_error->setText(text);
    m_error->setVisible(!text.isEmpty());
}

QString LoginDialog::missingInput() const {
    if (!isAddress(server()))
        return tr("请输入服务器地址，例如 127.0.0.1:8620");
    if (userName().isEmpty())
        return tr("请输入用户名");
    if (m_password->text().isEmpty())
        return tr("请输入密码");
    return {};
}

void LoginDialog::tryLogIn() {
    showError(missingInput());
    if (!m_error->text().isEmpty())
        return;
    const QString action = m_logIn->text();
    m_logIn->setEnabled(false);
    m_logIn->setText(tr("正在登录…"));
    m_logIn->repaint();
    const Answer answer = m_keeper.logIn(server(), userName(), m_password->text());
    m_logIn->setText(action);
    m_logIn->setEnabled(true);
    if (answer.ok()) {
        accept();
        return;
    }
    showError(answer.text);
    m_password->selectAll();
    m_password->setFocus();
}

}  // namespace workbench
