// The audit log as a user meets it.
#include "database/forms/audit_log_form.h"

#include "database/audit/audit_log.h"
#include "support/form_texts.h"
#include "support/pictures.h"
#include "support/session_database.h"

#include <script/modal_driver.h>

#include <QDateTimeEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QThread>

namespace {

class AuditForm : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        session().auditEnabled = true;
        database.exec("truncate audit_log");
        form_ = std::make_unique<AuditLogViewerForm>();
    }
    void TearDown() override
    {
        form_.reset();
        session().auditEnabled = true;
        SessionDatabase::TearDown();
    }

    void makeEntries()
    {
        database.exec("insert into devices (name, serial) values ('Коса', '17');"
                      "update devices set serial = '18', description = 'поверена';"
                      "insert into states (state_id, note) values ('lost', 'Утрачена'); delete from devices");
    }
    void press(const char* name) { form_->findChild<QPushButton*>(name)->click(); }
    QString caption(const char* name) { return form_->findChild<QPushButton*>(name)->text(); }
    QTableView* log() { return form_->findChild<QTableView*>("LogTable"); }
    QListWidget* list(const char* name) { return form_->findChild<QListWidget*>(name); }
    QDateTimeEdit* time(const char* name) { return form_->findChild<QDateTimeEdit*>(name); }
    QString cell(int row, int column) { return log()->model()->index(row, column).data().toString(); }
    QStringList column(int column)
    {
        QStringList texts;
        for (int row = 0; row < log()->model()->rowCount(); ++row)
            texts << cell(row, column);
        return texts;
    }
    QStringList fields(const char* name)
    {
        QStringList lines;
        const auto* table = form_->findChild<QTableWidget*>(name);
        for (int row = 0; row < table->rowCount(); ++row)
            lines << table->item(row, 0)->text() + "=" + table->item(row, 1)->text();
        return lines;
    }
    // The clocks of server and client need not agree to the second.
    void load()
    {
        time("EndTime")->setDateTime(QDateTime::currentDateTime().addDays(1));
        press("ApplyBtn");
    }

    ModalDriver driver_;
    std::unique_ptr<AuditLogViewerForm> form_;
};

TEST_F(AuditForm, ShowsItsCaptions)
{
    EXPECT_EQ(form_->windowTitle(), QString("Аудит событий"));
    EXPECT_EQ(textsOf(*form_),
              (QStringList{"Начало периода", "Конец периода", "Применить\nОбновить", "Отключить запись журнала",
                           "Очистить журнал", "Закрыть", "Данные", "Элементы", "Операция", "Старые", "Новые"}));
    EXPECT_EQ(titlesOf(*log()),
              (QStringList{"Таблица", "Операция", "Пользователь", "Время", "Старые данные", "Новые данные"}));
    for (const char* name : {"OldTable", "NewTable"})
        EXPECT_EQ(titlesOf(*form_->findChild<QTableWidget*>(name)), (QStringList{"Поле", "Значение"}));
    EXPECT_EQ(list("TablesList")->count(), 11);
    EXPECT_EQ(list("OperationsList")->count(), 4);
    EXPECT_EQ(list("TablesList")->currentItem()->text() + list("OperationsList")->currentItem()->text(),
              QString("ВсеВсе"));
}

TEST_F(AuditForm, StartsWithTheLastDayAndReadsNothing)
{
    makeEntries();
    form_ = std::make_unique<AuditLogViewerForm>();
    const QDateTime end = time("EndTime")->dateTime();
    EXPECT_EQ(time("StartTime")->dateTime().addDays(1), end);
    EXPECT_LT(qAbs(end.secsTo(QDateTime::currentDateTime())), 60);
    EXPECT_EQ(log()->model()->rowCount(), 0);
}

TEST_F(AuditForm, ReadsAndNarrows)
{
    makeEntries();
    load();
    EXPECT_EQ(column(0), (QStringList{"devices", "devices", "states", "devices"}));
    EXPECT_EQ(column(1), (QStringList{"INSERT", "UPDATE", "INSERT", "DELETE"}));
    EXPECT_EQ(cell(0, 2), TestServer::user());
    list("OperationsList")->setCurrentRow(1);
    EXPECT_EQ(column(0), (QStringList{"devices", "states"}));
    list("TablesList")->setCurrentRow(4);
    EXPECT_EQ(column(0), QStringList());
    list("TablesList")->setCurrentRow(2);
    list("OperationsList")->setCurrentRow(3);
    EXPECT_EQ(column(0), QStringList("devices"));
    database.exec("delete from states where state_id = 'lost'");
    load();
    EXPECT_EQ(column(0), (QStringList{"devices", "states"})) << "still narrowed";
    const auto* bar = form_->findChild<QProgressBar*>("ProgressBar");
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST_F(AuditForm, ShowsAnEntrysFields)
{
    makeEntries();
    load();
    log()->selectRow(0);
    EXPECT_EQ(fields("OldTable"), QStringList());
    EXPECT_EQ(fields("NewTable"), (QStringList{"description=", "device_id=1", "name=Коса", "serial=17"}));
    log()->selectRow(1);
    EXPECT_EQ(fields("OldTable"), (QStringList{"description=", "device_id=1", "name=Коса", "serial=17"}));
    EXPECT_EQ(fields("NewTable"), (QStringList{"description=поверена", "device_id=1", "name=Коса", "serial=18"}));
    const auto* table = form_->findChild<QTableWidget*>("NewTable");
    EXPECT_TRUE(table->item(0, 0)->textAlignment() & Qt::AlignHCenter);
    EXPECT_TRUE(table->item(0, 1)->textAlignment() & Qt::AlignLeft);
    log()->selectRow(3);
    EXPECT_EQ(fields("NewTable"), QStringList());
    load();
    EXPECT_EQ(fields("OldTable"), QStringList()) << "no entry is selected";
}

TEST_F(AuditForm, SortsByAColumn)
{
    makeEntries();
    load();
    EXPECT_TRUE(log()->isSortingEnabled());
    log()->sortByColumn(1, Qt::AscendingOrder);
    EXPECT_EQ(column(1), (QStringList{"DELETE", "INSERT", "INSERT", "UPDATE"}));
    log()->selectRow(0);
    EXPECT_EQ(fields("OldTable").value(3), QString("serial=18")) << "the entry that stands there now";
}

TEST_F(AuditForm, ItsTablesKeepLowRowsAndColumnsOfUse)
{
    makeEntries();
    load();
    form_->show();
    EXPECT_EQ(log()->rowHeight(0), 16);
    EXPECT_EQ(log()->columnWidth(5), 150) << "however long the text";
    log()->setColumnWidth(5, 1000);
    log()->setColumnWidth(4, 10);
    EXPECT_EQ(log()->columnWidth(5), 200);
    EXPECT_EQ(log()->columnWidth(4), 120);
}

TEST_F(AuditForm, AFailedReadingLeavesWhatIsShown)
{
    makeEntries();
    load();
    database.exec("alter table audit_log rename to elsewhere");
    load();
    EXPECT_EQ(log()->model()->rowCount(), 4);
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(AuditForm, EmptiesTheLogOnYes)
{
    makeEntries();
    load();
    const QString question = "Вы действительно хотите очистить журнал аудита? Это действие необратимо.";
    driver_.expect("Подтверждение").text(question).press("Нет");
    press("ClearBtn");
    EXPECT_EQ(database.value("select count(*) from audit_log"), QString("4"));
    driver_.expect("Подтверждение").text(question).press("Да");
    driver_.expect("Успех").text("Журнал аудита очищен.").press("OK");
    press("ClearBtn");
    EXPECT_EQ(database.value("select count(*) from audit_log"), QString("0"));
    EXPECT_EQ(log()->model()->rowCount(), 0) << "read anew";
    database.exec("alter table audit_log rename to elsewhere");
    driver_.expect("Подтверждение").press("Да");
    driver_.expect("Ошибка").textContains("Не удалось очистить журнал аудита:\n").press("OK");
    press("ClearBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(AuditForm, SwitchesTheLogging)
{
    driver_.expect("Внимание")
        .text("Для того чтобы изменения вступили в силу\nнеобходимо переоткрыть проект на следующих компьютерах:\n"
              "Пользователь postgres  Адрес 127.0.0.1 ")
        .press("OK");
    press("SwitchBtn");
    EXPECT_EQ(caption("SwitchBtn"), QString("Включить запись журнала"));
    EXPECT_FALSE(session().auditEnabled);
    EXPECT_TRUE(session().run("insert into devices (name) values ('a')").isCommand());
    EXPECT_EQ(database.value("select count(*) from audit_log"), QString("0"));
    database.connection().finish();
    // The server lets go of a connection a moment after its end.
    for (int i = 0; i < 100 && !otherConnections().isEmpty(); ++i)
        QThread::msleep(50);
    press("SwitchBtn");
    EXPECT_EQ(caption("SwitchBtn"), QString("Отключить запись журнала"));
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(AuditForm, ASwitchThatFailsSaysNothing)
{
    loseServer();
    press("SwitchBtn");
    EXPECT_EQ(caption("SwitchBtn"), QString("Отключить запись журнала"));
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(AuditForm, LooksRight)
{
    makeEntries();
    database.exec("insert into dm_elements (type_id, element_name, state_id, position_id, x, y, z, h) select 'dm', "
                  "'ДМ.' || i, 'exist', 1, 500000 + i, 7000000 - i, 12.5, 0.3 from generate_series(1, 30) i;"
                  "update dm_elements set z = 12.4, state_id = 'lost' where element_name = 'ДМ.7'");
    load();
    log()->selectRow(34);
    EXPECT_TRUE(takePicture(*form_, "audit_log"));
}

} // namespace
