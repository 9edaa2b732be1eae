#include "database/forms/admin_form.h"

#include "formkit/layout.h"
#include "formkit/progress_box.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"
#include "session/project_session.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QScopedValueRollback>

using namespace formkit;

namespace {

const char* const kOperations = "Операции с выбранной БД";

} // namespace

AdminForm::AdminForm(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "AdminForm", "Администрирование СУБД Terva");
    layOut(this).column({
        group("Параметры подключения (права Администратора)")
            .column({
                grid({
                    {"Сервер:", growing(host_ = edit("hostEdit", session().sqlHost)),
                     "Порт:", growing(port_ = edit("portEdit", session().sqlPort))},
                    {"Админ:", growing(user_ = edit("userEdit", "postgres")),
                     "Пароль:", growing(password_ = passwordEdit("passEdit"))},
                }),
                row({
                    button("connectBtn", "Проверить соединение / Обновить списки", this, &AdminForm::connectToServer),
                    growing(status_ = readOut("statusLabel")),
                }),
            }),
        growing(tabs("Pages").pages({{"Пользователи", rolesPage()}, {"Базы данных", databasesPage()}})),
        row({stretch(), button("closeBtn", "Закрыть", this, &AdminForm::reject)}),
    });
    connect(password_, &QLineEdit::returnPressed, this, &AdminForm::connectToServer);
    connect(roles_, &QListWidget::currentRowChanged, this, &AdminForm::showSelection);
    connect(databases_, &QTableWidget::itemSelectionChanged, this, &AdminForm::showSelection);
    showStatus(false);
    showSelection();
    resize(720, 640);
}

QLayout* AdminForm::rolesPage()
{
    return column({
        growing(roles_ = listBox("usersList")),
        group("Новый пользователь")
            .row({
                "Имя",
                growing(newName_ = edit("newUserName")),
                "Пароль",
                growing(newPassword_ = passwordEdit("newUserPassword")),
                button("createUserBtn", "Создать", this, &AdminForm::createRole),
            }),
        button("deleteUserBtn", "Удалить выбранного пользователя", this, &AdminForm::deleteRole),
    });
}

QLayout* AdminForm::databasesPage()
{
    databases_ = table("databasesTable", {"БД", "Владелец", "Таблиц", "Строк", "Аудит"});
    databases_->setSelectionBehavior(QAbstractItemView::SelectRows);
    databases_->setSelectionMode(QAbstractItemView::SingleSelection);
    databases_->verticalHeader()->hide();
    databases_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    databases_->horizontalHeader()->setSectionResizeMode(Name, QHeaderView::Stretch);
    operations_ = qobject_cast<QGroupBox*>(
        group(kOperations)
            .column({
                selectedRole_ = readOut("selectedUser"),
                row({
                    button("grantBtn", "Дать полные права", this, &AdminForm::grantAll),
                    button("ownerBtn", "Сделать владельцем", this, &AdminForm::setOwner),
                    stretch(),
                }),
                row({
                    button("auditBtn", "Аудит вкл/выкл", this, &AdminForm::switchAudit),
                    button("deleteDatabaseBtn", "Удалить выбранную БД", this, &AdminForm::deleteDatabase),
                    stretch(),
                }),
            }));
    return column({growing(databases_), operations_});
}

void AdminForm::reject()
{
    if (!busy_)
        QDialog::reject();
}

// --- the connection ----------------------------------------------------------------

void AdminForm::connectToServer()
{
    if (busy_)
        return;
    showStatus(server_.connect({host_->text(), port_->text(), user_->text(), password_->text()}));
    fillLists();
}

void AdminForm::showStatus(bool connected)
{
    // The trailing blank belongs to the text.
    status_->setText(connected ? "Подключено " : "Не подключено");
    status_->setStyleSheet(connected ? "color: green; font-weight: bold;" : "color: red; font-weight: bold;");
}

// --- the lists -----------------------------------------------------------------------

void AdminForm::fillLists()
{
    const QScopedValueRollback<bool> busy(busy_, true);
    fillRoles();
    fillDatabases();
    showSelection();
}

// Without a connection the lists are empty, and nothing failed.
void AdminForm::fillRoles()
{
    const QString selected = role();
    roles_->clear();
    if (!server_.isConnected())
        return;
    const std::optional<QStringList> names = server_.roles();
    if (!names)
        return tellFailure(server_.errorMessage());
    roles_->addItems(*names);
    roles_->setCurrentRow(names->indexOf(selected));
}

void AdminForm::fillDatabases()
{
    const QString selected = database();
    databases_->setRowCount(0);
    if (!server_.isConnected())
        return;
    ProgressBox progress(this, "Подсчёт записей", QString());
    const auto databases = server_.databases([&progress](int done, int total, const QString& name) {
        return progress.step(done, total, QStringLiteral("База данных ") + name);
    });
    if (!databases)
        return tellFailure(server_.errorMessage());
    for (const DatabaseSummary& database : *databases) {
        const int row = databases_->rowCount();
        databases_->insertRow(row);
        const QString cells[] = {database.name, database.owner, database.tables, database.rows, database.audit};
        for (int column = Name; column <= Audit; ++column)
            databases_->setItem(row, column, textItem(cells[column]));
        if (database.name == selected)
            databases_->selectRow(row);
    }
}

void AdminForm::showSelection()
{
    const QString chosen = database();
    operations_->setTitle(chosen.isEmpty() ? QString(kOperations) : QString(kOperations) + ' ' + chosen);
    selectedRole_->setText(QStringLiteral("Пользователь: ")
                           + (role().isEmpty() ? QStringLiteral("не выбран") : role()));
}

QString AdminForm::role() const
{
    const QListWidgetItem* item = roles_->currentItem();
    return item ? item->text() : QString();
}

QString AdminForm::database() const { return databaseCell(Name); }

QString AdminForm::databaseCell(Column column) const
{
    const QModelIndexList rows = databases_->selectionModel()->selectedRows(column);
    return rows.isEmpty() ? QString() : rows.first().data().toString();
}
