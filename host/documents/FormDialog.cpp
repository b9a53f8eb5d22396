#include "host/documents/FormDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QVariant>

#include "host/shell/Look.h"

namespace workbench {
namespace {

constexpr int kMargin = 20;
constexpr int kWidth = 380;

}  // namespace

FormDialog::FormDialog(const QString& title, const QString& label, QWidget* field, Apply apply, QWidget* parent)
    : QDialog(parent), m_apply(std::move(apply)), m_field(field), m_error(new QLabel) {
    setWindowTitle(title);
    setMinimumWidth(kWidth);
    auto* heading = new QLabel(label);
    heading->setTextFormat(Qt::PlainText);
    heading->setWordWrap(true);
    heading->setBuddy(field);
    field->setAccessibleName(label);
    m_error->setObjectName("error");
    m_error->setTextFormat(Qt::PlainText);
    m_error->setWordWrap(true);
    m_error->setStyleSheet(look::kErrorText);
    m_error->hide();
    auto* ok = new QPushButton(tr("确定(&O)"));
    ok->setDefault(true);
    ok->setProperty("primary", true);
    auto* cancel = new QPushButton(tr("取消(&C)"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(12);
    layout->addWidget(heading);
    layout->addWidget(field, 1);
    layout->addWidget(m_error);
    layout->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, &FormDialog::tryAccept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    field->setFocus();
}

void FormDialog::tryAccept() {
    const QString why = m_apply();
    m_error->setText(why);
    m_error->setVisible(!why.isEmpty());
    if (why.isEmpty())
        return accept();
    m_field->setFocus();
}

}  // namespace workbench
