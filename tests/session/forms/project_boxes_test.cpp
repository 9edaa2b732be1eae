// The boxes of opening and saving a project, answered as a user would.
#include "session/forms/project_file_dialogs.h"
#include "session/forms/sql_connection_dialog.h"

#include "session/project_dialogs.h"
#include "session/session_fixture.h"
#include "support/pictures.h"

#include <script/modal_driver.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace {

class ProjectBoxes : public ::testing::Test {
protected:
    void SetUp() override { installProjectDialogs(); }
    void TearDown() override { setProjectDialogs(nullptr); }

    QTemporaryDir folder_;
    ModalDriver driver_;
};

/// The open window must be a file dialog with these settings.
std::function<QString(QWidget*)> fileDialog(QFileDialog::AcceptMode mode, QFileDialog::FileMode files,
                                            const QString& folder)
{
    return [=](QWidget* window) -> QString {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        if (!dialog)
            return "not a file dialog";
        if (dialog->acceptMode() != mode || dialog->fileMode() != files)
            return "another mode";
        if (dialog->nameFilters() != QStringList{"*.terva"})
            return "filters: " + dialog->nameFilters().join(", ");
        if (!folder.isEmpty() && QDir(folder) != dialog->directory())
            return "starts in " + dialog->directory().path();
        return {};
    };
}

TEST_F(ProjectBoxes, SavingWithoutAFileTakesOnlyAnExistingOne)
{
    const QString path = folder_.filePath("есть.terva");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    driver_.expect("Файл проекта")
        .call(fileDialog(QFileDialog::AcceptOpen, QFileDialog::ExistingFile, QString()))
        .files({path});
    ProjectSession session;
    session.saveProject();
    EXPECT_TRUE(driver_.done()) << driver_.report();
    EXPECT_EQ(session.projectFile, path);
    EXPECT_GT(QFile(path).size(), 0);
}

TEST_F(ProjectBoxes, SavingUnderANewNameStartsFromTheOld)
{
    ProjectSession session;
    session.projectFile = folder_.filePath("old.terva");
    driver_.expect("Файл проекта")
        .call(fileDialog(QFileDialog::AcceptSave, QFileDialog::AnyFile, folder_.path()))
        .files({folder_.filePath("new.terva")});
    session.saveProjectAs();
    EXPECT_TRUE(driver_.done()) << driver_.report();
    EXPECT_EQ(session.projectFile, folder_.filePath("new.terva"));
    EXPECT_TRUE(QFile::exists(session.projectFile));
}

TEST_F(ProjectBoxes, ATypedNameGetsTheSuffixAndReplacesNothingUnasked)
{
    ProjectSession session;
    session.projectFile = folder_.filePath("old.terva");
    const QString path = folder_.filePath("проект.terva");
    driver_.expect("Файл проекта").files({folder_.filePath("проект")});
    session.saveProjectAs();
    EXPECT_EQ(session.projectFile, path);
    ASSERT_TRUE(QFile::exists(path));

    session.projectFile = folder_.filePath("old.terva");
    for (const char* answer : {"No", "Yes"}) {
        driver_.expect("Файл проекта").files({folder_.filePath("проект")});
        driver_.expect("Внимание").text("Файл '" + path + "' уже существует.\nЗаменить его?").press(answer);
        session.saveProjectAs();
        EXPECT_EQ(session.projectFile, answer == QString("No") ? folder_.filePath("old.terva") : path);
    }
    EXPECT_TRUE(driver_.done()) << driver_.report();
}

TEST_F(ProjectBoxes, ACancelledChoiceLoadsNothing)
{
    ConsoleCapture console;
    ProjectSession session;
    session.projectFile = folder_.filePath("old.terva");
    driver_.expect("Файл проекта")
        .call(fileDialog(QFileDialog::AcceptOpen, QFileDialog::ExistingFile, folder_.path()))
        .close();
    session.chooseAndLoadProject();
    EXPECT_TRUE(driver_.done()) << driver_.report();
    EXPECT_EQ(console.text(), QString());
}

TEST_F(ProjectBoxes, AFailedOpeningShowsEveryBoxInTurn)
{
    ConsoleCapture console;
    ProjectSession saved;
    saved.projectFile = folder_.filePath("p.terva");
    saved.workDir = folder_.filePath("gone");
    saved.tempDir = saved.templateDir = folder_.path();
    saved.sqlHost = "localhost";
    saved.sqlPort = "5433";
    saved.sqlDatabase = "db";
    saved.sqlUser = "user";
    saved.sqlPass = "secret";
    saved.saveProject();

    driver_.expect("Файл проекта").files({saved.projectFile});
    driver_.expect("Выберите рабочую папку проекта")
        .call([](QWidget* window) -> QString {
            auto* dialog = qobject_cast<QFileDialog*>(window);
            return dialog && dialog->testOption(QFileDialog::ShowDirsOnly) ? QString() : QString("not for folders");
        })
        .close();
    driver_.expect("Параметры подключения к БД")
        .check("SQL_host", "localhost")
        .check("SQL_port", "5433")
        .check("Database", "db")
        .check("Username", "user")
        .check("Password", "secret")
        .set("SQL_port", "1")
        .press("Подключиться");
    driver_.expect("Параметры подключения к БД").check("SQL_port", "1").press("Отмена");
    driver_.expect("Внимание")
        .text("При открытии проекта '" + saved.projectFile
              + "' возникли ошибки\n Проверьте командную строку для информации.")
        .call([](QWidget* window) -> QString {
            auto* box = qobject_cast<QMessageBox*>(window);
            if (!box || box->icon() != QMessageBox::Information)
                return "not an information box";
            return box->standardButtons() == QMessageBox::Ok ? QString() : "other buttons";
        })
        .press("OK");
    ProjectSession session;
    session.chooseAndLoadProject();
    EXPECT_TRUE(driver_.done()) << driver_.report();
    EXPECT_TRUE(console.text().endsWith("\nЧто-то пошло не так! Проект не открыт.\n"));
}

TEST(SqlConnectionDialog, HasItsFieldsInOrder)
{
    SQLConnectionDialog dialog;
    EXPECT_EQ(dialog.windowTitle(), QString("Параметры подключения к БД"));
    EXPECT_EQ(dialog.minimumWidth(), 350);
    auto* form = dialog.findChild<QFormLayout*>();
    ASSERT_TRUE(form);
    QStringList labels;
    for (int row = 0; row < form->rowCount(); ++row)
        labels << qobject_cast<QLabel*>(form->itemAt(row, QFormLayout::LabelRole)->widget())->text();
    EXPECT_EQ(labels, (QStringList{"Хост:", "Порт:", "База данных:", "Пользователь:", "Пароль:"}));
    EXPECT_EQ(dialog.findChild<QLineEdit*>("Password")->echoMode(), QLineEdit::Password);
    EXPECT_TRUE(dialog.findChild<QPushButton*>("ConnectBTN")->isDefault());
    dialog.setParameters({"1", "2", "3", "4", "5"});
    EXPECT_EQ(mainConnInfo(dialog.parameters()), QString("hostaddr=1 port=2 dbname=3 user=4 password=5 "));
}

TEST(SqlConnectionDialog, LooksRight)
{
    SQLConnectionDialog dialog;
    dialog.setParameters({"127.0.0.1", "5432", "monitoring", "postgres", "secret"});
    EXPECT_TRUE(takePicture(dialog, "sql_connection_dialog"));
}

} // namespace
