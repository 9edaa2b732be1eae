// The wizard: its pages, its checks, a whole run.
#include "database/forms/create_project_form.h"

#include "base/placeholders.h"
#include "session/forms/palette_refresh.h"
#include "session/forms/project_file_dialogs.h"
#include "session/session_fixture.h"
#include "support/pictures.h"

#include <drawing/application.h>
#include <script/modal_driver.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

namespace {

class Wizard : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(TestServer::isKnown());
        static int number = 0;
        name_ = fill("terva_wizard_%1_%2", QCoreApplication::applicationPid(), ++number);
        resetModuleSession();
        closeAllDocuments();
        form_ = std::make_unique<CreateProjectForm>();
    }
    void TearDown() override
    {
        form_.reset();
        setPaletteRefresh({});
        resetModuleSession();
        sql::Connection(TestServer::conninfo("postgres"))
            .run(compose("drop database if exists %1 with (force)", Identifier(name_)));
    }

    static void resetModuleSession()
    {
        ProjectSession& now = session();
        now.connection.finish();
        now.connected = false;
        now.projectId = now.currentPositionId = -1;
        now.sqlHost = now.sqlPort = now.sqlDatabase = now.sqlUser = now.sqlPass = QString();
        now.projectFile = now.projectName = QString();
    }

    QLineEdit* line(const char* name) { return form_->findChild<QLineEdit*>(name); }
    QPushButton* button(const char* name) { return form_->findChild<QPushButton*>(name); }
    QString log(const char* name) { return form_->findChild<QPlainTextEdit*>(name)->toPlainText(); }
    QTabWidget* pages() { return form_->findChild<QTabWidget*>(); }
    void press(const char* name) { button(name)->click(); }
    QString enabled()
    {
        QStringList names;
        for (const char* name : {"BackBtn", "NextBtn", "CreateBtn", "CancelBtn"})
            if (button(name)->isEnabled())
                names << name;
        return names.join(' ');
    }

    void typeConnection(const QString& database)
    {
        line("SQL_host")->setText(TestServer::host());
        line("SQL_port")->setText(TestServer::port());
        line("Database")->setText(database);
        line("Username")->setText(TestServer::user());
        line("Password")->setText(TestServer::password());
    }
    void typeProject()
    {
        line("ProjectName")->setText("Город");
        line("ProjectCode")->setText("Ш-1");
        line("ProjectOrganization")->setText("Институт");
        line("ProjectFile")->setText(folder_.filePath("p.terva"));
        line("WorkingDir")->setText(folder_.path());
        line("TemplateDir")->setText(folder_.filePath("templates"));
        line("TempDir")->setText(folder_.filePath("temp"));
        line("SchemaPath")->setText(TERVA_SOURCE_DIR "/share/database.sql");
    }
    void expectWarning(const QString& text) { driver_.expect("Внимание").text(text).press("OK"); }

    QString name_;
    QTemporaryDir folder_;
    ModalDriver driver_;
    std::unique_ptr<CreateProjectForm> form_;
};

TEST_F(Wizard, StartsWithTheDefaults)
{
    EXPECT_EQ(form_->windowTitle(), QString("Создание проекта"));
    EXPECT_EQ(line("SQL_host")->text(), QString("127.0.0.1"));
    EXPECT_EQ(line("SQL_port")->text(), QString("5432"));
    EXPECT_EQ(line("Username")->text(), QString("postgres"));
    EXPECT_EQ(line("Database")->text() + line("Password")->text(), QString());
    QStringList titles;
    for (int i = 0; i < pages()->count(); ++i)
        titles << pages()->tabText(i);
    EXPECT_EQ(titles, (QStringList{"SQL соединение", "Данные проекта", "Пути проекта", "Создание проекта"}));
    EXPECT_EQ(pages()->currentIndex(), 0);
    EXPECT_EQ(button("CancelBtn")->text(), QString("Отмена"));
    EXPECT_EQ(enabled(), QString("NextBtn CancelBtn"));
}

TEST_F(Wizard, ShowsNoExampleThatReadsAsAValue)
{
    const auto* projection = form_->findChild<QPlainTextEdit*>("Proj4Text");
    EXPECT_EQ(projection->toPlainText(), QString());
    EXPECT_EQ(projection->placeholderText(), QString());
    EXPECT_TRUE(projection->toolTip().startsWith("Например: +proj=")) << projection->toolTip();
}

TEST_F(Wizard, TakesTheModulesConnectionWhereItHasOne)
{
    session().sqlHost = "1.2.3.4";
    session().sqlUser = "me";
    form_ = std::make_unique<CreateProjectForm>();
    EXPECT_EQ(line("SQL_host")->text(), QString("1.2.3.4"));
    EXPECT_EQ(line("SQL_port")->text(), QString("5432"));
    EXPECT_EQ(line("Username")->text(), QString("me"));
}

TEST_F(Wizard, FindsTheSchemaBesideTheModule)
{
    const QString path = ProjectSession().moduleDir + "database.sql";
    EXPECT_EQ(line("SchemaPath")->text(), QFileInfo::exists(path) ? path : QString());
}

TEST_F(Wizard, TheNameAcceptsSmallLettersDigitsAndUnderscores)
{
    QLineEdit* name = line("Database");
    for (const char* good : {"a", "_x9", "terva_2024"}) {
        name->setText(good);
        EXPECT_TRUE(name->hasAcceptableInput()) << good;
    }
    for (const QString& bad : {QString("9a"), QString("A"), QString("a b"), QString("имя"), QString(64, 'a')}) {
        name->setText(bad);
        EXPECT_FALSE(name->hasAcceptableInput()) << bad;
    }
}

TEST_F(Wizard, DoesNotLeaveAPageThatIsNotDone)
{
    expectWarning("Пожалуйста, выполните успешный тест соединения с базой данных перед переходом к следующему шагу.");
    press("NextBtn");
    EXPECT_EQ(pages()->currentIndex(), 0);

    pages()->setCurrentIndex(1);
    EXPECT_EQ(enabled(), QString("BackBtn NextBtn CancelBtn"));
    line("ProjectName")->setText("Город");
    line("ProjectCode")->setText("Ш");
    expectWarning("Пожалуйста, заполните все обязательные поля (Наименование, Шифр, Организация).");
    press("NextBtn");
    EXPECT_EQ(pages()->currentIndex(), 1);
    line("ProjectOrganization")->setText("И");
    press("NextBtn");
    EXPECT_EQ(pages()->currentIndex(), 2);
    EXPECT_EQ(enabled(), QString("BackBtn CreateBtn CancelBtn"));
    press("BackBtn");
    EXPECT_EQ(pages()->currentIndex(), 1);
    pages()->setCurrentIndex(3);
    EXPECT_EQ(enabled(), QString("CancelBtn"));
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Wizard, RefusesAnEmptyFieldAndABadNameBeforeConnecting)
{
    typeConnection("");
    expectWarning("Поля не должны быть пустыми.");
    press("btn_testconnect");
    typeConnection("bad name");
    expectWarning("Некорректно задано имя базы данных.");
    press("btn_testconnect");
    EXPECT_EQ(log("ConnOutput"), QString());
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Wizard, AGoodTestLetsGoOn)
{
    typeConnection(name_);
    press("btn_testconnect");
    EXPECT_TRUE(log("ConnOutput")
                    .endsWith("connect_timeout=3Подключение успешно. \nБаза данных свободна. \n"
                              "Всё хорошо, можно создавать базу данных. \n"))
        << log("ConnOutput");
    press("NextBtn");
    EXPECT_EQ(pages()->currentIndex(), 1);
}

TEST_F(Wizard, ANameWithCapitalsPassesTheTest)
{
    typeConnection("TERVA_wizard_Capitals");
    press("btn_testconnect");
    EXPECT_TRUE(log("ConnOutput").endsWith("можно создавать базу данных. \n"));
}

TEST_F(Wizard, AFailedTestTakesTheSuccessBack)
{
    typeConnection(name_);
    press("btn_testconnect");
    line("Password")->setText("wrong");
    press("btn_testconnect");
    EXPECT_TRUE(log("ConnOutput").contains("\nОшибка подключения: \n"));
    EXPECT_FALSE(log("ConnOutput").contains("успешно"));
    expectWarning("Пожалуйста, выполните успешный тест соединения с базой данных перед переходом к следующему шагу.");
    press("NextBtn");
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Wizard, AProjectFileBringsItsFolders)
{
    pages()->setCurrentIndex(2);
    driver_.expect("Файл проекта")
        .call([](QWidget* window) -> QString {
            auto* dialog = qobject_cast<QFileDialog*>(window);
            return dialog && dialog->acceptMode() == QFileDialog::AcceptSave
                    && dialog->nameFilters() == QStringList{"*.terva"}
                ? QString()
                : QString("not a save dialog");
        })
        .files({folder_.filePath("new")});
    press("btn_OpenProject");
    EXPECT_EQ(line("ProjectFile")->text(), folder_.filePath("new.terva"));
    EXPECT_EQ(line("WorkingDir")->text(), folder_.path());
    EXPECT_EQ(line("TemplateDir")->text(), folder_.path() + "/templates");
    EXPECT_EQ(line("TempDir")->text(), folder_.path() + "/temp");
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Wizard, AskedFoldersGoIntoTheirFields)
{
    pages()->setCurrentIndex(2);
    struct Row {
        const char* button;
        const char* field;
        const char* title;
    };
    for (const Row& row : {Row{"btn_selectWorkPath", "WorkingDir", "Рабочая папка проекта"},
                           Row{"btn_SelectTemplatePath", "TemplateDir", "Папка шаблонов проекта"},
                           Row{"btn_SelectTempPath", "TempDir", "Временные файлы проекта"}}) {
        driver_.expect(row.title)
            .call([](QWidget* window) -> QString {
                auto* dialog = qobject_cast<QFileDialog*>(window);
                const auto options = QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks;
                return dialog && (dialog->options() & options) == options ? QString() : QString("other options");
            })
            .files({folder_.path()});
        press(row.button);
        EXPECT_EQ(line(row.field)->text(), folder_.path()) << row.field;
    }
    line("TempDir")->setText(folder_.path());
    driver_.expect("Временные файлы проекта").close();
    press("btn_SelectTempPath");
    EXPECT_EQ(line("TempDir")->text(), folder_.path()) << "cancelled";
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

// A dialog that starts in a folder that is not there shows its parent, and the
// folder as a name.
QString startOf(QWidget* window)
{
    auto* dialog = qobject_cast<QFileDialog*>(window);
    if (!dialog)
        return "not a file dialog";
    const QString folder = dialog->directory().absolutePath();
    const auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
    const QString typed = name ? name->text() : QString();
    return typed.isEmpty() ? folder : QDir(folder).filePath(typed);
}

TEST_F(Wizard, FoldersAreAskedForFromTheirFieldOrTheirUsualPlace)
{
    pages()->setCurrentIndex(2);
    struct Row {
        const char* button;
        const char* field;
        const char* title;
        const char* start;
    };
    for (const Row& row : {Row{"btn_selectWorkPath", "WorkingDir", "Рабочая папка проекта", "/work"},
                           Row{"btn_SelectTemplatePath", "TemplateDir", "Папка шаблонов проекта", "/work"},
                           Row{"btn_SelectTempPath", "TempDir", "Временные файлы проекта", "/temp"}}) {
        for (const QString& start : {QString(row.start), folder_.path()}) {
            line(row.field)->setText(start == row.start ? QString() : start);
            QString met;
            driver_.expect(row.title)
                .call([&met](QWidget* window) -> QString {
                    met = startOf(window);
                    return {};
                })
                .close();
            press(row.button);
            EXPECT_EQ(met, start) << row.field;
        }
    }
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Wizard, ASchemaCanBeChosen)
{
    const QString path = folder_.filePath("own.sql");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    driver_.expect("Файл схемы БД").files({path});
    press("SelectShemaBtn");
    EXPECT_EQ(line("SchemaPath")->text(), path);
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Wizard, CreatesNothingWithoutATest)
{
    typeProject();
    pages()->setCurrentIndex(2);
    expectWarning("Пожалуйста, выполните успешный тест соединения с базой данных.");
    press("CreateBtn");
    EXPECT_EQ(pages()->currentIndex(), 2);
    EXPECT_EQ(log("CreateLog"), QString());
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(Wizard, CreatesTheProjectAndLeavesTheModulesSessionAlone)
{
    typeConnection(name_);
    press("btn_testconnect");
    typeProject();
    line("Database")->setText("edited_after_the_test"); // the tested name counts
    pages()->setCurrentIndex(2);
    press("CreateBtn");
    EXPECT_EQ(pages()->currentIndex(), 3);
    EXPECT_EQ(enabled(), QString("CancelBtn"));
    EXPECT_TRUE(log("CreateLog").endsWith("\n\nПроект успешно создан!")) << log("CreateLog");
    EXPECT_EQ(button("CancelBtn")->text(), QString("Закрыть"));
    EXPECT_TRUE(QFileInfo::exists(folder_.filePath("p.terva")));
    EXPECT_EQ(sql::Connection(TestServer::conninfo(name_)).run("select name from projects").getvalue(0, 0),
              QString("Город"));
    EXPECT_EQ(session().projectFile, QString());
    EXPECT_FALSE(session().connection.isOpen());
}

TEST_F(Wizard, OpensTheProjectWhenAsked)
{
    int refreshed = 0;
    setPaletteRefresh({[&refreshed] { ++refreshed; }, {}});
    ConsoleCapture console;
    typeConnection(name_);
    press("btn_testconnect");
    typeProject();
    form_->findChild<QCheckBox*>("OpenProject")->setChecked(true);
    pages()->setCurrentIndex(2);
    press("CreateBtn");
    EXPECT_TRUE(log("CreateLog").endsWith("\n\nПроект успешно создан!")) << log("CreateLog");
    EXPECT_EQ(session().projectFile, folder_.filePath("p.terva"));
    EXPECT_EQ(session().projectName, QString("Город"));
    EXPECT_TRUE(session().connected);
    EXPECT_EQ(refreshed, 1);
    EXPECT_TRUE(console.text().contains("\nУстановлена текущая позичия проекта ID: -1 ''\n")) << console.text();
    form_.reset();
    EXPECT_TRUE(session().checkConnection()) << "the wizard's end closes only its own connection";
}

TEST_F(Wizard, AStoppedRunStaysOpen)
{
    typeConnection(name_);
    press("btn_testconnect");
    typeProject();
    line("SchemaPath")->setText("/no/such.sql");
    pages()->setCurrentIndex(2);
    press("CreateBtn");
    EXPECT_TRUE(log("CreateLog").endsWith("Схема БД: Не найдена\n")) << log("CreateLog");
    EXPECT_EQ(button("CancelBtn")->text(), QString("Отмена"));
}

TEST_F(Wizard, LooksRight)
{
    typeConnection(name_);
    line("Password")->setText("secret");
    press("btn_testconnect");
    typeConnection(name_);
    EXPECT_TRUE(takePicture(*form_, "create_project_connection"));
    press("btn_testconnect");
    typeProject();
    for (int page = 1; page < 3; ++page) {
        pages()->setCurrentIndex(page);
        EXPECT_TRUE(takePicture(*form_, page == 1 ? "create_project_data" : "create_project_paths"));
    }
    press("CreateBtn");
    EXPECT_TRUE(takePicture(*form_, "create_project_log"));
}

} // namespace
