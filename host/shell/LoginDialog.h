#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace workbench {

class SessionKeeper;

/// Asks for server, user and password until the service accepts them or the user gives up.
class LoginDialog : public QDialog {
    Q_OBJECT

public:
    LoginDialog(SessionKeeper& keeper, const QString& server, const QString& userName, QWidget* parent = nullptr);

    QString server() const;
    QString userName() const;

    /// For renewing a session: only the password can be changed.
    void fixUser();
    /// What the user should know before he types.
    void showNote(const QString& text);

private:
    void showError(const QString& text);
    void tryLogIn();
    QString missingInput() const;

    SessionKeeper& m_keeper;
    QLineEdit* m_server;
    QLineEdit* m_userName;
    QLineEdit* m_password;
    QLabel* m_error;
    QPushButton* m_logIn;
};

}  // namespace workbench
