#pragma once

#include <functional>

#include <QDialog>

class QLabel;

namespace workbench {

/// Asks for the value of one field and stays open, with what was typed, until that has been taken or given up.
class FormDialog : public QDialog {
    Q_OBJECT

public:
    /// Does what was asked for; says why it could not, empty when it is done.
    using Apply = std::function<QString()>;

    FormDialog(const QString& title, const QString& label, QWidget* field, Apply apply, QWidget* parent);

private:
    void tryAccept();

    Apply m_apply;
    QWidget* m_field;
    QLabel* m_error;
};

}  // namespace workbench
