// The administration as an administrator meets it.
#include "database/forms/admin_form.h"

#include "base/placeholders.h"
#include "session/project_session.h"
#include "support/form_texts.h"
#include "support/pictures.h"
#include "support/test_database.h"

#include <script/modal_driver.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QThread>
#include <gtest/gtest.h>

namespace {

class Admin : public ::testing::Test {
protected:
    void SetUp() override
    {
        static int number = 0;
        ASSERT_TRUE(TestServer::isKnown());
        name_ = fill("Админ \"%1\" %2", QCoreApplication::applicationPid(), ++number);
        root_.open(TestServer::conninfo("postgres"));
        session().sqlHost = TestServer::host();
        session().sqlPort = TestServer::port();
        form_ = std::make_unique<AdminForm>();
        line("passEdit")->setText(TestServer::password());
    }
    void TearDown() override
    {
        form_.reset();
        session().sqlHost = session().sqlPort = QString();
        const QString quoted = root_.escapeIdentifier(name_);
        root_.runScript("drop database if exists " + quoted + " with (force)");
        database_.connection().runScript("drop owned by " + quoted);
        root_.runScript("drop owned by " + quoted);
        root_.runScript("drop role if exists " + quoted);
    }

    QLineEdit* line(const char* name) { return form_->findChild<QLineEdit*>(name); }
    void press(const char* name) { form_->findChild<QPushButton*>(name)->click(); }
    QListWidget* roles() { return form_->findChild<QListWidget*>("usersList"); }
    QTableWidget* databases() { return form_->findChild<QTableWidget*>("databasesTable"); }
    QLabel* status() { return form_->findChild<QLabel*>("statusLabel"); }
    void connectForm() { press("connectBtn"); }

    bool hasRole() const { return roles_().contains(name_); }
    QStringList roles_() const
    {
        QStringList names;
        const auto* list = form_->findChild<QListWidget*>("usersList");
        for (int row = 0; row < list->count(); ++row)
            names << list->item(row)->text();
        return names;
    }
    void chooseRole(const QString& name) { roles()->setCurrentRow(roles_().indexOf(name)); }
    int rowOf(const QString& name)
    {
        for (int row = 0; row < databases()->rowCount(); ++row) {
            if (databases()->item(row, 0)->text() == name)
                return row;
        }
        return -1;
    }
    void chooseDatabase(const QString& name) { databases()->selectRow(rowOf(name)); }
    QString cell(const QString& name, int column) { return databases()->item(rowOf(name), column)->text(); }
    void createRole()
    {
        root_.runScript("create role " + root_.escapeIdentifier(name_) + " login password 'p'");
        connectForm();
        chooseRole(name_);
    }
    void createDatabase()
    {
        root_.runScript("create database " + root_.escapeIdentifier(name_) + " template template0");
        connectForm();
        chooseDatabase(name_);
    }
    void expectBox(const QString& title, const QString& text) { driver_.expect(title).text(text).press("OK"); }

    TestDatabase database_;
    sql::Connection root_;
    QString name_;
    ModalDriver driver_;
    std::unique_ptr<AdminForm> form_;
};

TEST_F(Admin, ShowsItsCaptions)
{
    EXPECT_EQ(form_->windowTitle(), QString("Администрирование СУБД Terva"));
    EXPECT_EQ(textsOf(*form_),
              (QStringList{"Параметры подключения (права Администратора)",
                           "Сервер:", "Порт:", "Админ:", "Пароль:", "Проверить соединение / Обновить списки",
                           "Не подключено", "Операции с выбранной БД", "Пользователь: не выбран", "Дать полные права",
                           "Сделать владельцем", "Аудит вкл/выкл", "Удалить выбранную БД", "Новый пользователь", "Имя",
                           "Пароль", "Создать", "Удалить выбранного пользователя", "Закрыть"}));
    EXPECT_EQ(tabsOf(*form_), (QStringList{"Пользователи", "Базы данных"}));
    EXPECT_EQ(titlesOf(*databases()), (QStringList{"БД", "Владелец", "Таблиц", "Строк", "Аудит"}));
    EXPECT_EQ(line("hostEdit")->text(), TestServer::host());
    EXPECT_EQ(line("portEdit")->text(), TestServer::port());
    EXPECT_EQ(line("userEdit")->text(), QString("postgres"));
    EXPECT_EQ(AdminForm().findChild<QLineEdit*>("passEdit")->text(), QString());
    EXPECT_EQ(line("passEdit")->echoMode(), QLineEdit::Password);
    EXPECT_EQ(line("newUserPassword")->echoMode(), QLineEdit::Password);
}

TEST_F(Admin, ConnectsAndFillsTheLists)
{
    EXPECT_EQ(status()->styleSheet(), QString("color: red; font-weight: bold;"));
    connectForm();
    EXPECT_EQ(status()->text(), QString("Подключено "));
    EXPECT_EQ(status()->styleSheet(), QString("color: green; font-weight: bold;"));
    EXPECT_TRUE(roles_().contains("postgres"));
    EXPECT_EQ(cell(database_.name(), 1), QString("postgres"));
    EXPECT_EQ(cell(database_.name(), 4), QString("off"));

    line("passEdit")->setText("wrong");
    connectForm();
    EXPECT_EQ(status()->text(), QString("Не подключено"));
    EXPECT_EQ(status()->styleSheet(), QString("color: red; font-weight: bold;"));
    EXPECT_EQ(roles()->count() + databases()->rowCount(), 0);
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Admin, EnterInThePasswordConnectsAndClosesNothing)
{
    form_->show();
    line("passEdit")->setFocus();
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(line("passEdit"), &enter);
    EXPECT_EQ(status()->text(), QString("Подключено "));
    QCoreApplication::sendEvent(line("hostEdit"), &enter);
    EXPECT_TRUE(form_->isVisible());
}

TEST_F(Admin, WithoutAConnectionNothingIsDone)
{
    line("newUserName")->setText("a");
    line("newUserPassword")->setText("b");
    expectBox("Ошибка", "Нет подключения");
    press("createUserBtn");
    expectBox("Ошибка", "Нет подключения");
    press("auditBtn");
    for (const char* name : {"grantBtn", "ownerBtn"}) {
        expectBox("Ошибка", "Выберите пользователя и БД");
        press(name);
    }
    expectBox("Ошибка", "Выберите пользователя");
    press("deleteUserBtn");
    expectBox("Ошибка", "Выберите БД");
    press("deleteDatabaseBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Admin, CreatesARole)
{
    connectForm();
    line("newUserName")->setText(name_);
    expectBox("Ошибка", "Имя и пароль не могут быть пустыми");
    press("createUserBtn");
    line("newUserPassword")->setText("p");
    expectBox("Успех", "Пользователь создан");
    press("createUserBtn");
    EXPECT_TRUE(hasRole());
    line("newUserName")->setText(name_);
    line("newUserPassword")->setText("p");
    driver_.expect("Ошибка БД").textContains("already exists").press("OK");
    press("createUserBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Admin, DeletesARoleWhenToldTo)
{
    createRole();
    driver_.expect("Удаление").text("Удалить пользователя " + name_ + "?").press("Нет");
    press("deleteUserBtn");
    EXPECT_TRUE(hasRole());
    driver_.expect("Удаление").press("Да");
    press("deleteUserBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
    EXPECT_FALSE(hasRole());
    chooseRole("postgres");
    expectBox("Ошибка", "Нельзя удалить суперпользователя postgres,reader,edb");
    press("deleteUserBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Admin, ARoleIsNotDeletedByItself)
{
    root_.runScript("create role " + root_.escapeIdentifier(name_) + " superuser login password 'p'");
    line("userEdit")->setText(name_);
    line("passEdit")->setText("p");
    connectForm();
    chooseRole(name_);
    expectBox("Ошибка", "Нельзя удалить пользователя, под которым выполнено подключение");
    press("deleteUserBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Admin, WhatCouldNotBeReassignedIsTold)
{
    createDatabase();
    root_.runScript("alter database " + root_.escapeIdentifier(name_) + " allow_connections false");
    createRole();
    driver_.expect("Удаление").press("Да");
    driver_.expect("Внимание")
        .textContains("Пользователь удалён, но были предупреждения:\n")
        .textContains("\"" + name_.section('"', 1, 1) + "\"")
        .press("OK");
    press("deleteUserBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
    EXPECT_FALSE(hasRole());
    root_.runScript("alter database " + root_.escapeIdentifier(name_) + " allow_connections true");
}

TEST_F(Admin, GivesRightsAndTheDatabase)
{
    createRole();
    chooseDatabase(database_.name());
    EXPECT_EQ(textsOf(*form_).filter("Операции"), QStringList("Операции с выбранной БД " + database_.name()));
    EXPECT_EQ(form_->findChild<QLabel*>("selectedUser")->text(), "Пользователь: " + name_);
    expectBox("Успех", "Права назначены");
    press("grantBtn");
    EXPECT_EQ(
        database_.value(fill("select has_table_privilege(%1, 'dm_elements', 'insert')", root_.escapeLiteral(name_))),
        QString("t"));
    expectBox("Успех", "Владелец изменен");
    press("ownerBtn");
    EXPECT_EQ(cell(database_.name(), 1), name_);
    EXPECT_EQ(roles()->currentItem()->text(), name_) << "still chosen";
    root_.runScript(fill("alter database %1 owner to postgres", database_.name()));
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Admin, RightsThatFailAreTold)
{
    createRole();
    chooseDatabase(database_.name());
    const QString quoted = root_.escapeIdentifier(name_);
    root_.runScript("drop role " + quoted); // meanwhile, by another
    driver_.expect("Внимание").textContains("Некоторые команды завершились с ошибками:\n").press("OK");
    press("grantBtn");
    driver_.expect("Ошибка БД").textContains("does not exist").press("OK");
    press("ownerBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Admin, RightsOnADatabaseThatIsShut)
{
    createDatabase();
    root_.runScript("alter database " + root_.escapeIdentifier(name_) + " allow_connections false");
    chooseRole("postgres");
    driver_.expect("Ошибка").textContains("Не удалось подключиться к БД " + name_ + ": ").press("OK");
    press("grantBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
    root_.runScript("alter database " + root_.escapeIdentifier(name_) + " allow_connections true");
}

TEST_F(Admin, SwitchesTheAuditAndTellsWhoIsConnected)
{
    createDatabase();
    // The server lets go of the connection that has counted a moment after its end.
    const auto waitUntilAlone = [this] {
        const QString others = fill("select 1 from pg_stat_activity where datname = %1", root_.escapeLiteral(name_));
        for (int i = 0; i < 100 && root_.runScript(others).ntuples() > 0; ++i)
            QThread::msleep(50);
    };
    waitUntilAlone();
    expectBox("Успех", "Аудит для '" + name_ + "' установлен: on");
    press("auditBtn");
    EXPECT_EQ(cell(name_, 4), QString("on"));
    waitUntilAlone();
    expectBox("Успех", "Аудит для '" + name_ + "' установлен: off");
    press("auditBtn");
    chooseDatabase(database_.name());
    expectBox("Успех",
              "Аудит для '" + database_.name()
                  + "' установлен: on\n%nДля вступления  в силу необходимо  переоткрыть проект:\n"
                    "Пользователь postgres  Адрес 127.0.0.1/32");
    press("auditBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Admin, DeletesADatabaseOnlyOnYes)
{
    createDatabase();
    const QString question = "В БД '" + name_ + " содержится 0 записей.\nУдалить?";
    driver_.expect("Удаление БД")
        .text(question)
        .call([](QWidget* window) {
            const auto* box = qobject_cast<QMessageBox*>(window);
            const bool right =
                box && box->defaultButton() == box->button(QMessageBox::No) && box->icon() == QMessageBox::Warning;
            return right ? QString() : QString("not a warning that Enter denies");
        })
        .press("Нет");
    press("deleteDatabaseBtn");
    EXPECT_NE(rowOf(name_), -1);
    driver_.expect("Удаление БД").press("Да");
    press("deleteDatabaseBtn");
    EXPECT_EQ(rowOf(name_), -1);
    chooseDatabase("postgres");
    expectBox("Ошибка", "Нельзя удалить системную БД");
    press("deleteDatabaseBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Admin, ADatabaseInUseStays)
{
    connectForm();
    chooseDatabase(database_.name());
    driver_.expect("Удаление БД").press("Да");
    driver_.expect("Ошибка БД").textContains("being accessed by other users").press("OK");
    press("deleteDatabaseBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Admin, LooksRight)
{
    createDatabase();
    createRole();
    chooseDatabase(name_);
    EXPECT_TRUE(takePicture(*form_, "admin_users"));
    form_->findChild<QTabWidget*>()->setCurrentIndex(1);
    EXPECT_TRUE(takePicture(*form_, "admin_databases"));
}

} // namespace
