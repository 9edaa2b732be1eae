#include "database/forms/create_project_form.h"

#include "database/forms/field_rows.h"
#include "session/forms/palette_refresh.h"
#include "session/forms/project_file_dialogs.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

namespace {

enum Page { ConnectionPage, DataPage, PathsPage, LogPage };

} // namespace

// --- navigation ------------------------------------------------------------------

void CreateProjectForm::goBack() { pages_->setCurrentIndex(pages_->currentIndex() - 1); }

void CreateProjectForm::goOn()
{
    const QString missing = missingOn(pages_->currentIndex());
    if (!missing.isEmpty()) {
        warn(missing);
        return;
    }
    pages_->setCurrentIndex(pages_->currentIndex() + 1);
}

QString CreateProjectForm::missingOn(int page) const
{
    switch (page) {
    case ConnectionPage:
        if (!connectionTested_)
            return QStringLiteral("Пожалуйста, выполните успешный тест соединения с базой данных перед переходом к "
                                  "следующему шагу.");
        break;
    case DataPage:
        if (name_->text().isEmpty() || code_->text().isEmpty() || organization_->text().isEmpty())
            return QStringLiteral("Пожалуйста, заполните все обязательные поля (Наименование, Шифр, Организация).");
        break;
    case PathsPage:
        if (projectFile_->text().isEmpty() || workDir_->text().isEmpty())
            return QStringLiteral("Необходимо выбрать папку для создания файла настроек проекта.");
        break;
    }
    return {};
}

void CreateProjectForm::updateButtons()
{
    const int page = pages_->currentIndex();
    back_->setEnabled(page == DataPage || page == PathsPage);
    next_->setEnabled(page == ConnectionPage || page == DataPage);
    create_->setEnabled(page == PathsPage);
}

void CreateProjectForm::warn(const QString& text) { QMessageBox::warning(this, QStringLiteral("Внимание"), text); }

void CreateProjectForm::reject()
{
    if (!creating_)
        QDialog::reject();
}

// --- paths -------------------------------------------------------------------------

void CreateProjectForm::selectSchema()
{
    const QString path =
        QFileDialog::getOpenFileName(this, QStringLiteral("Файл схемы БД"), schemaPath_, QStringLiteral("*.sql"));
    if (!path.isEmpty())
        schema_->setText(path);
}

void CreateProjectForm::selectProjectFile()
{
    const QString path = askNewProjectFile(this, projectFile_->text());
    if (path.isEmpty())
        return;
    const QString folder = QFileInfo(path).path();
    projectFile_->setText(path);
    workDir_->setText(folder);
    templateDir_->setText(folder + QStringLiteral("/templates"));
    tempDir_->setText(folder + QStringLiteral("/temp"));
}

// --- the connection's test -----------------------------------------------------------

ConnectionParameters CreateProjectForm::parameters() const
{
    return {host_->text(), port_->text(), database_->text(), user_->text(), password_->text()};
}

bool CreateProjectForm::fieldsAreGood()
{
    if (host_->text().isEmpty() || port_->text().isEmpty() || database_->text().isEmpty() || user_->text().isEmpty()) {
        warn(QStringLiteral("Поля не должны быть пустыми."));
        return false;
    }
    // Capitals pass here: a name may have been pasted in past the validator.
    const QRegularExpression pattern(QString::fromLatin1(databaseNamePattern),
                                     QRegularExpression::CaseInsensitiveOption);
    if (!pattern.match(database_->text()).hasMatch()) {
        warn(QStringLiteral("Некорректно задано имя базы данных."));
        return false;
    }
    return true;
}

void CreateProjectForm::testConnection()
{
    testLog_->clear();
    connectionTested_ = false;
    project_.connected = false;
    if (!fieldsAreGood())
        return;
    if (testServer(parameters(), [this](const QString& text) { appendToLog(testLog_, text); }))
        takeTested();
}

void CreateProjectForm::takeTested()
{
    const ConnectionParameters tested = parameters();
    project_.sqlType = 0;
    project_.sqlHost = tested.host;
    project_.sqlPort = tested.port;
    project_.sqlUser = tested.user;
    project_.sqlPass = tested.password;
    project_.sqlDatabase = tested.database;
    project_.connected = true;
    connectionTested_ = true;
}

// --- making the project -----------------------------------------------------------------

NewProject CreateProjectForm::newProject() const
{
    NewProject project;
    project.name = name_->text();
    project.code = code_->text();
    project.organization = organization_->text();
    project.description = description_->text();
    project.projectFile = projectFile_->text();
    project.workDir = workDir_->text();
    project.templateDir = templateDir_->text();
    project.tempDir = tempDir_->text();
    project.schemaPath = schemaPath_;
    project.proj4Text = proj4_->toPlainText();
    project.copyTemplates = copyTemplates_->isChecked();
    project.connectionTested = connectionTested_;
    return project;
}

void CreateProjectForm::createProject()
{
    if (!connectionTested_) {
        warn(QStringLiteral("Пожалуйста, выполните успешный тест соединения с базой данных."));
        return;
    }
    pages_->setCurrentIndex(LogPage);
    updateButtons();
    creating_ = true;
    ProjectCreation creation(
        project_, newProject(), [this](const QString& text) { showStep(text); }, [this] { openCreated(); });
    if (creation.run())
        cancel_->setText(QStringLiteral("Закрыть"));
    creating_ = false;
}

// The host stands still during a step, so every text is brought to the screen
// before the next step begins. Clicks wait until the run has ended.
void CreateProjectForm::showStep(const QString& text)
{
    appendToLog(log_, text);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void CreateProjectForm::openCreated()
{
    if (!openProject_->isChecked())
        return;
    session().loadProject(project_.projectFile);
    refreshPalettes();
}
