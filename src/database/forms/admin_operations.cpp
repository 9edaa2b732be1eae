// What the buttons of the administration do.
#include "database/forms/admin_form.h"

#include "database/administration/administration_rules.h"
#include "formkit/boxes.h"
#include "formkit/widgets.h"

using namespace formkit;

void AdminForm::refuse(const QString& text) { warn(this, text, "Ошибка"); }

void AdminForm::tellFailure(const QString& message) { warn(this, message, "Ошибка БД"); }

bool AdminForm::succeeded(const Refusal& refusal)
{
    if (refusal)
        tellFailure(*refusal);
    return !refusal;
}

bool AdminForm::needsConnection()
{
    if (!server_.isConnected())
        refuse("Нет подключения");
    return server_.isConnected();
}

bool AdminForm::needsRoleAndDatabase()
{
    const bool both = !role().isEmpty() && !database().isEmpty();
    if (!both)
        refuse("Выберите пользователя и БД");
    return both;
}

// --- roles -------------------------------------------------------------------------

void AdminForm::createRole()
{
    if (newName_->text().isEmpty() || newPassword_->text().isEmpty())
        return refuse("Имя и пароль не могут быть пустыми");
    if (!needsConnection() || !succeeded(server_.createRole(newName_->text(), newPassword_->text())))
        return;
    inform(this, "Пользователь создан", "Успех");
    newName_->clear();
    newPassword_->clear();
    fillLists();
}

void AdminForm::deleteRole()
{
    const QString name = role();
    if (name.isEmpty())
        return refuse("Выберите пользователя");
    const QString refusal = refusalToDeleteRole(name, user_->text());
    if (!refusal.isEmpty())
        return refuse(refusal);
    if (!confirm(this, {questionToDeleteRole(name), "Удаление"}))
        return;
    const RoleDeletion deletion = server_.deleteRole(name);
    if (succeeded(deletion.refusal) && !deletion.warnings.isEmpty())
        warn(this, QStringLiteral("Пользователь удалён, но были предупреждения:\n") + deletion.warnings.join('\n'));
    fillLists();
}

// --- databases -----------------------------------------------------------------------

void AdminForm::deleteDatabase()
{
    const QString name = database();
    if (name.isEmpty())
        return refuse("Выберите БД");
    const QString refusal = refusalToDeleteDatabase(name);
    if (!refusal.isEmpty())
        return refuse(refusal);
    const QString question = questionToDeleteDatabase(name, databaseCell(Rows));
    if (!confirm(this, {question, "Удаление БД", Look::Warning, Preset::No}))
        return;
    if (succeeded(server_.deleteDatabase(name)))
        fillLists();
}

void AdminForm::grantAll()
{
    if (!needsRoleAndDatabase())
        return;
    const Granting granting = server_.grantAll(role(), database());
    if (granting.unreachable) {
        const QStringList all =
            QStringList(QStringLiteral("Не удалось подключиться к БД ") + database() + ": " + *granting.unreachable)
            + granting.failures;
        return refuse(all.join('\n'));
    }
    if (granting.failures.isEmpty())
        inform(this, "Права назначены", "Успех");
    else
        warn(this, QStringLiteral("Некоторые команды завершились с ошибками:\n") + granting.failures.join('\n'));
}

void AdminForm::setOwner()
{
    if (!needsRoleAndDatabase() || !succeeded(server_.setOwner(database(), role())))
        return;
    inform(this, "Владелец изменен", "Успех");
    fillLists();
}

void AdminForm::switchAudit()
{
    if (!needsConnection())
        return;
    const QString name = database();
    if (name.isEmpty())
        return refuse("Выберите БД");
    const QString value = otherAuditValue(databaseCell(Audit));
    if (!succeeded(server_.setAudit(name, value)))
        return;
    const OtherConnections others = server_.othersConnected(name);
    succeeded(others.refusal);
    inform(this, auditSet(name, value, others.users), "Успех");
    fillLists();
}
