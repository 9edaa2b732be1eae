// The SQL page of the project settings.
#include "database/forms/sql_form.h"

#include "session/forms/palette_refresh.h"
#include "session/session_fixture.h"
#include "support/pictures.h"
#include "support/statement_relay.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

class SqlPage : public ::testing::Test {
protected:
    void SetUp() override
    {
        reset();
        database_.exec("insert into projects (project_id, name) overriding system value values (7, 'Город')");
        session().moduleDir = folder_.path() + "/";
        ASSERT_TRUE(QDir(folder_.path()).mkdir("config"));
        QFile list(folder_.filePath("config/msk_proj.csv"));
        ASSERT_TRUE(list.open(QIODevice::WriteOnly));
        list.write("МСК-01;+proj=a\nМСК-02;+proj=b\n");
    }
    void TearDown() override
    {
        setPaletteRefresh({});
        reset();
        session().moduleDir = ProjectSession().moduleDir;
    }

    static void reset()
    {
        ProjectSession& now = session();
        now.connection.finish();
        now.connected = false;
        now.projectId = now.currentPositionId = now.baseCycleId = now.currentCycleId = -1;
        now.sqlType = 0;
        now.sqlHost = now.sqlPort = now.sqlDatabase = now.sqlUser = now.sqlPass = QString();
        now.proj4Text = now.projectFile = QString();
    }

    static QLineEdit* line(SQLForm& form, const char* name) { return form.findChild<QLineEdit*>(name); }
    static QPushButton* button(SQLForm& form, const char* name) { return form.findChild<QPushButton*>(name); }
    static QString log(SQLForm& form) { return form.findChild<QPlainTextEdit*>("ConnOutput")->toPlainText(); }
    static QPlainTextEdit* proj4(SQLForm& form) { return form.findChild<QPlainTextEdit*>("Proj4Text"); }

    void type(SQLForm& form, const QString& password)
    {
        line(form, "SQL_host")->setText(TestServer::host());
        line(form, "SQL_port")->setText(TestServer::port());
        line(form, "Database")->setText(database_.name());
        line(form, "Username")->setText(TestServer::user());
        line(form, "Password")->setText(password);
    }
    QString stringFor(const QString& password) const
    {
        return mainConnInfo({TestServer::host(), TestServer::port(), database_.name(), TestServer::user(), password});
    }
    QString stored() { return database_.value("select max(proj4text) from spatial_ref_sys where srid = 9999"); }

    TestDatabase database_;
    QTemporaryDir folder_;
};

TEST_F(SqlPage, ShowsTheSession)
{
    session().sqlHost = "1.2.3.4";
    session().sqlPort = "5";
    session().sqlDatabase = "db";
    session().sqlUser = "u";
    session().sqlPass = "p";
    session().sqlType = 2;
    SQLForm form;
    EXPECT_EQ(form.findChild<QComboBox*>("SQL_type")->currentIndex(), 2);
    EXPECT_EQ(line(form, "SQL_host")->text(), QString("1.2.3.4"));
    EXPECT_EQ(line(form, "SQL_port")->text(), QString("5"));
    EXPECT_EQ(line(form, "Database")->text(), QString("db"));
    EXPECT_EQ(line(form, "Username")->text(), QString("u"));
    EXPECT_EQ(line(form, "Password")->text(), QString("p"));
    EXPECT_FALSE(button(form, "btn_updategeom")->isEnabled());
    EXPECT_FALSE(button(form, "btn_saveparams")->isEnabled());
    EXPECT_FALSE(button(form, "ConnectBTN")->isEnabled());
    QStringList labels;
    for (const QLabel* label : form.findChildren<QLabel*>())
        labels << label->text();
    EXPECT_EQ(labels,
              (QStringList{"Сервер SQL", "Сервер", "Порт", "База данных", "Пользователь", "Пароль",
                           "Параметры проекции (proj4)"}));
    EXPECT_EQ(button(form, "btn_testconnect")->text(), QString("Тест соединения"));
    EXPECT_EQ(button(form, "btn_saveparams")->text(), QString("Сохранить"));
    EXPECT_EQ(button(form, "ConnectBTN")->text(), QString("Подключить"));
    EXPECT_EQ(button(form, "btn_updategeom")->text(), QString("Обновить геометрию (PostGIS)"));
    EXPECT_EQ(proj4(form)->placeholderText(),
              QString("+proj=tmerc +lat_0=0 +lon_0=78.05 +k=1 +x_0=4500000 +y_0=-5811057.63 +ellps=krass "
                      "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +units=m +no_defs +type=crs"));
}

TEST_F(SqlPage, RefreshReadsTheProjectionAndTheConnection)
{
    SQLForm form;
    EXPECT_EQ(proj4(form)->toPlainText(), QString());
    database_.exec("insert into spatial_ref_sys (srid, proj4text) values (9999, '+proj=x')");
    pointAt(session(), database_.name());
    form.refresh();
    EXPECT_TRUE(button(form, "btn_updategeom")->isEnabled());
    EXPECT_EQ(proj4(form)->toPlainText(), QString("+proj=x"));
    EXPECT_EQ(session().proj4Text, QString("+proj=x"));
    EXPECT_FALSE(button(form, "btn_saveparams")->isEnabled());
}

TEST_F(SqlPage, ChoosingAServerWritesItsPort)
{
    SQLForm form;
    auto* kinds = form.findChild<QComboBox*>("SQL_type");
    QStringList texts;
    QStringList ports;
    for (int i = 0; i < kinds->count(); ++i) {
        form.findChild<QPlainTextEdit*>("ConnOutput")->setPlainText("старое");
        kinds->setCurrentIndex(i);
        emit kinds->activated(i);
        EXPECT_EQ(log(form), QString());
        texts << kinds->itemText(i);
        ports << line(form, "SQL_port")->text();
    }
    EXPECT_EQ(texts, (QStringList{"Postgree SQL", "MS SQL", "My SQL (Maria DB)"}));
    EXPECT_EQ(ports, (QStringList{"5342", "3306", "1434"}));
}

TEST_F(SqlPage, AGoodTestFillsTheSessionAndAllowsTheRest)
{
    SQLForm form;
    type(form, TestServer::password());
    button(form, "btn_testconnect")->click();
    EXPECT_EQ(log(form), stringFor(TestServer::password()) + "\nOK\n") << "the password stands in plain text";
    EXPECT_TRUE(button(form, "btn_saveparams")->isEnabled());
    EXPECT_TRUE(button(form, "ConnectBTN")->isEnabled());
    EXPECT_EQ(session().buildConnInfo(), stringFor(TestServer::password()));
    EXPECT_TRUE(session().connected);
    EXPECT_FALSE(session().connection.isOk()) << "the test used a handle of its own";
}

TEST_F(SqlPage, AFailedTestShowsTheMessage)
{
    SQLForm form;
    type(form, "wrong");
    button(form, "btn_testconnect")->click();
    EXPECT_TRUE(log(form).startsWith(stringFor("wrong") + "\n")) << log(form);
    EXPECT_TRUE(log(form).contains("password authentication failed")) << log(form);
    EXPECT_FALSE(log(form).contains("OK\n"));
    EXPECT_FALSE(button(form, "btn_saveparams")->isEnabled());
    EXPECT_FALSE(button(form, "ConnectBTN")->isEnabled());
    EXPECT_EQ(session().sqlHost, QString());
    EXPECT_FALSE(session().connected);
}

TEST_F(SqlPage, TestingAnotherServerKindDoesNothing)
{
    SQLForm form;
    type(form, TestServer::password());
    form.findChild<QComboBox*>("SQL_type")->setCurrentIndex(1);
    form.findChild<QPlainTextEdit*>("ConnOutput")->setPlainText("прежнее");
    button(form, "btn_testconnect")->click();
    EXPECT_EQ(log(form), QString("прежнее"));
    EXPECT_EQ(session().sqlHost, QString());
}

TEST_F(SqlPage, SavingConnectsWritesTheProjectionAndTheFile)
{
    SQLForm form;
    type(form, TestServer::password());
    button(form, "btn_testconnect")->click();
    session().projectFile = folder_.filePath("p.terva");
    proj4(form)->setPlainText("+proj=longlat");
    button(form, "btn_saveparams")->click();
    EXPECT_TRUE(session().connection.isOk());
    EXPECT_TRUE(session().connected);
    EXPECT_EQ(session().projectId, -1) << "the project's row is not read here";
    EXPECT_EQ(session().proj4Text, QString("+proj=longlat"));
    EXPECT_EQ(stored(), QString("+proj=longlat"));
    EXPECT_EQ(log(form), stringFor(TestServer::password()) + "\nOK\nПараметры проекции сохранены");
    EXPECT_TRUE(QFileInfo::exists(folder_.filePath("p.terva")));
}

TEST_F(SqlPage, SavingAnotherServerKindOnlyKeepsTheValues)
{
    SQLForm form;
    type(form, TestServer::password());
    button(form, "btn_testconnect")->click();
    session().projectFile = folder_.filePath("p.terva");
    form.findChild<QComboBox*>("SQL_type")->setCurrentIndex(2);
    line(form, "SQL_host")->setText("9.9.9.9");
    button(form, "btn_saveparams")->click();
    EXPECT_EQ(session().sqlType, 2);
    EXPECT_EQ(session().sqlHost, QString("9.9.9.9"));
    EXPECT_FALSE(session().connection.isOk());
    EXPECT_FALSE(QFileInfo::exists(folder_.filePath("p.terva")));
}

TEST_F(SqlPage, ConnectingReadsTheProjectAndLeavesThePosition)
{
    database_.exec("insert into cycles (cycle_id, number, date_start) values (3, 1, '2020-01-01');"
                   "insert into levelmaps (levelmap_id, levelmap_name) values (4, 'Своя')");
    int refreshed = 0;
    setPaletteRefresh({[&refreshed] { ++refreshed; }, {}});
    SQLForm form;
    type(form, TestServer::password());
    button(form, "btn_testconnect")->click();
    session().currentPositionId = 5;
    session().baseCycleId = session().currentCycleId = 6;
    session().cycles.clear();
    session().states.clear();
    button(form, "ConnectBTN")->click();
    EXPECT_EQ(session().projectId, 7);
    EXPECT_EQ(session().projectName, QString("Город"));
    EXPECT_EQ(session().currentPositionId, -1);
    EXPECT_EQ(session().baseCycleId, -1);
    EXPECT_EQ(session().currentCycleId, -1);
    EXPECT_EQ(session().cycles.keys(), QList<int>{3});
    EXPECT_EQ(session().states.keys(), QStringList{"exist"});
    EXPECT_TRUE(session().levelMaps.contains(4));
    EXPECT_EQ(refreshed, 1);
}

TEST_F(SqlPage, AFailedConnectingStillRefreshesThePalettes)
{
    int refreshed = 0;
    setPaletteRefresh({[&refreshed] { ++refreshed; }, {}});
    SQLForm form;
    type(form, TestServer::password());
    button(form, "btn_testconnect")->click();
    session().sqlPass = "wrong";
    session().currentPositionId = 5;
    button(form, "ConnectBTN")->click();
    EXPECT_EQ(session().currentPositionId, 5);
    EXPECT_EQ(refreshed, 1);
}

TEST_F(SqlPage, UpdatingTheGeometrySavesTheProjectionFirst)
{
    pointAt(session(), database_.name());
    SQLForm form;
    proj4(form)->setPlainText("+proj=longlat");
    button(form, "btn_updategeom")->click();
    EXPECT_EQ(stored(), QString("+proj=longlat"));
    EXPECT_EQ(log(form), QString("Параметры проекции сохранены"));
    proj4(form)->setPlainText("it's");
    button(form, "btn_updategeom")->click();
    EXPECT_EQ(log(form), QString("Параметры проекции сохранены")) << "a refused statement adds nothing";
    EXPECT_EQ(session().proj4Text, QString("it's"));
}

TEST_F(SqlPage, ConnectingAsksTheServerInThisOrder)
{
    StatementRelay relay;
    SQLForm form;
    type(form, TestServer::password());
    line(form, "SQL_host")->setText(StatementRelay::host());
    line(form, "SQL_port")->setText(relay.port());
    button(form, "btn_testconnect")->click();
    relay.cutAfter(-1);
    button(form, "ConnectBTN")->click();
    const QString check = "select count(project_id) from projects";
    QStringList beginnings;
    for (const QString& text : relay.texts())
        beginnings << text.left(check.size());
    const auto start = [&check](const char* text) { return QString(text).left(check.size()); };
    EXPECT_EQ(beginnings,
              (QStringList{start("SELECT project_id, name, owner, location, code FROM projects;"),
                           start("SELECT coalesce (current_setting('app.audit_enabled', true),'on') AS audit_status;"),
                           start("SELECT usesuper FROM pg_user WHERE usename = current_user;"),
                           start("SELECT 1 FROM projects LIMIT 0;"), start("SELECT 1 FROM objects LIMIT 0;"),
                           start("SELECT 1 FROM subobjects LIMIT 0;"), start("SELECT 1 FROM positions LIMIT 0;"),
                           start("select proj4text from spatial_ref_sys where srid = 9999"), check,
                           start("SELECT project_id, name FROM projects"), check,
                           start("select cycle_id, number, TO_CHAR(date_start::date, 'dd.mm.yy') as date_start, "),
                           start("select state_id,note, colorindex from states"),
                           start("select prediction_id,dm_predictions.prediction_date,name,begin_cycle_id,"),
                           start("select levelmap_id, levelmap_name from levelmaps")}));
    session().connection.finish();
}

// --- two databases ------------------------------------------------------------------------

/// A project is open; the page is then used with another database.
class SqlPageOfAProject : public SqlPage {
protected:
    void SetUp() override
    {
        SqlPage::SetUp();
        second_.exec("insert into projects (project_id, name) overriding system value values (8, 'Второй')");
        pointAt(session(), database_.name());
        ASSERT_TRUE(session().connect());
        session().currentPositionId = 5;
    }
    void testTheOther(SQLForm& form)
    {
        type(form, TestServer::password());
        line(form, "Database")->setText(second_.name());
        button(form, "btn_testconnect")->click();
        ASSERT_EQ(session().sqlDatabase, second_.name());
    }
    static QString connectedTo() { return session().run("select current_database()").getvalue(0, 0); }
    QString storedInTheOther() { return second_.value("select max(proj4text) from spatial_ref_sys where srid = 9999"); }

    TestDatabase second_;
};

TEST_F(SqlPageOfAProject, AMereTestMovesNothing)
{
    SQLForm form;
    testTheOther(form);
    for (const char* text : {"+proj=longlat", "+proj=longlat +no_defs"}) {
        proj4(form)->setPlainText(text);
        button(form, "btn_updategeom")->click();
        EXPECT_EQ(stored(), QString(text));
    }
    EXPECT_EQ(connectedTo(), database_.name());
    EXPECT_EQ(storedInTheOther(), QString());
    EXPECT_EQ(session().projectId, 7);
    EXPECT_EQ(session().currentPositionId, 5);
}

TEST_F(SqlPageOfAProject, SavingTheOthersParametersLeavesThePosition)
{
    SQLForm form;
    testTheOther(form);
    session().projectFile = folder_.filePath("p.terva");
    button(form, "btn_saveparams")->click();
    EXPECT_EQ(connectedTo(), second_.name());
    EXPECT_EQ(session().currentPositionId, -1);
    EXPECT_NE(session().projectId, 7);
}

TEST_F(SqlPageOfAProject, ConnectingToTheOtherTakesItsProject)
{
    SQLForm form;
    testTheOther(form);
    button(form, "ConnectBTN")->click();
    EXPECT_EQ(connectedTo(), second_.name());
    EXPECT_EQ(session().projectId, 8);
    EXPECT_EQ(session().projectName, QString("Второй"));
    EXPECT_EQ(session().currentPositionId, -1);
}

TEST_F(SqlPage, ChoosingAProjectionReplacesTheText)
{
    SQLForm form;
    auto* list = form.findChild<QComboBox*>("ProjectionCombo");
    ASSERT_EQ(list->count(), 3);
    EXPECT_TRUE(list->isEnabled());
    EXPECT_EQ(list->itemText(0), QString("-- Выберите проекцию --"));
    EXPECT_FALSE(list->itemData(0).isValid());
    proj4(form)->setPlainText("своё");
    emit list->activated(0);
    EXPECT_EQ(proj4(form)->toPlainText(), QString("своё"));
    emit list->activated(2);
    EXPECT_EQ(proj4(form)->toPlainText(), QString("+proj=b"));
    form.refresh();
    EXPECT_EQ(list->count(), 3) << "it is filled once";
}

TEST_F(SqlPage, WithoutTheListTheBoxIsDisabled)
{
    QFile::remove(folder_.filePath("config/msk_proj.csv"));
    SQLForm form;
    EXPECT_FALSE(form.findChild<QComboBox*>("ProjectionCombo")->isEnabled());
    EXPECT_EQ(form.findChild<QComboBox*>("ProjectionCombo")->count(), 1);
}

TEST_F(SqlPage, LooksRight)
{
    pointAt(session(), database_.name());
    session().sqlPass = TestServer::password();
    SQLForm form;
    button(form, "btn_testconnect")->click();
    form.resize(form.minimumSizeHint().width(), 760);
    EXPECT_TRUE(takePicture(form, "sql_form"));
    form.resize(form.minimumSizeHint().width(), 300);
    EXPECT_TRUE(takePicture(form, "sql_form_docked"));
}

} // namespace
