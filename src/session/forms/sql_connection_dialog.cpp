#include "session/forms/sql_connection_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLineEdit* addField(QFormLayout* form, const QString& label, const char* name)
{
    auto* field = new QLineEdit;
    field->setObjectName(QString::fromLatin1(name));
    form->addRow(label, field);
    return field;
}

QPushButton* addButton(QDialogButtonBox* box, const QString& text, QDialogButtonBox::ButtonRole role, const char* name)
{
    QPushButton* button = box->addButton(text, role);
    button->setObjectName(QString::fromLatin1(name));
    return button;
}

} // namespace

SQLConnectionDialog::SQLConnectionDialog(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("SQLConnectionDialog"));
    setWindowTitle(QStringLiteral("Параметры подключения к БД"));
    setMinimumWidth(350);

    auto* form = new QFormLayout;
    host_ = addField(form, QStringLiteral("Хост:"), "SQL_host");
    port_ = addField(form, QStringLiteral("Порт:"), "SQL_port");
    database_ = addField(form, QStringLiteral("База данных:"), "Database");
    user_ = addField(form, QStringLiteral("Пользователь:"), "Username");
    password_ = addField(form, QStringLiteral("Пароль:"), "Password");
    password_->setEchoMode(QLineEdit::Password);

    auto* buttons = new QDialogButtonBox;
    QPushButton* accept =
        addButton(buttons, QStringLiteral("Подключиться"), QDialogButtonBox::AcceptRole, "ConnectBTN");
    accept->setDefault(true);
    addButton(buttons, QStringLiteral("Отмена"), QDialogButtonBox::RejectRole, "CancelBtn")->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

void SQLConnectionDialog::setParameters(const ConnectionParameters& parameters)
{
    host_->setText(parameters.host);
    port_->setText(parameters.port);
    database_->setText(parameters.database);
    user_->setText(parameters.user);
    password_->setText(parameters.password);
}

ConnectionParameters SQLConnectionDialog::parameters() const
{
    return {host_->text(), port_->text(), database_->text(), user_->text(), password_->text()};
}
