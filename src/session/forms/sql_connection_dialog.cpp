#include "session/forms/sql_connection_dialog.h"

#include "session/forms/connection_fields.h"

using namespace formkit;

SQLConnectionDialog::SQLConnectionDialog(QWidget* parent)
    : FieldsDialog("SQLConnectionDialog", "Параметры подключения к БД",
                   connectionFields({"Хост:", "Порт:", "База данных:", "Пользователь:", "Пароль:"}),
                   {accepts("ConnectBTN", "Подключиться"), cancel()}, parent)
{
    setMinimumWidth(350);
}

void SQLConnectionDialog::setParameters(const ConnectionParameters& parameters)
{
    showConnection(fields(), parameters);
}

ConnectionParameters SQLConnectionDialog::parameters() const { return connectionIn(fields()); }
