#include "database/forms/create_project_form.h"

#include "formkit/boxes.h"
#include "formkit/widgets.h"
#include "session/forms/connection_fields.h"
#include "session/forms/palette_refresh.h"
#include "session/forms/project_file_dialogs.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTabWidget>

using namespace formkit;

namespace {

enum Page { ConnectionPage, DataPage, PathsPage, LogPage };

} // namespace

// --- navigation ------------------------------------------------------------------

void CreateProjectForm::goBack() { pages_->setCurrentIndex(pages_->currentIndex() - 1); }

void CreateProjectForm::goOn()
{
    const QString missing = missingOn(pages_->currentIndex());
    if (!missing.isEmpty())
        return warn(this, missing);
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
        if (data_->text("ProjectName").isEmpty() || data_->text("ProjectCode").isEmpty()
            || data_->text("ProjectOrganization").isEmpty())
            return QStringLiteral("Пожалуйста, заполните все обязательные поля (Наименование, Шифр, Организация).");
        break;
    case PathsPage:
        if (paths_->text("ProjectFile").isEmpty() || paths_->text("WorkingDir").isEmpty())
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

void CreateProjectForm::reject()
{
    if (!creating_)
        QDialog::reject();
}

// --- paths -------------------------------------------------------------------------

// The file says where the project's folders are.
QString CreateProjectForm::chooseProjectFile(const QString& now)
{
    QString path = askNewProjectFile(this, now);
    if (path.isEmpty())
        return path;
    const QString folder = QFileInfo(path).path();
    paths_->setText("WorkingDir", folder);
    paths_->setText("TemplateDir", folder + QStringLiteral("/templates"));
    paths_->setText("TempDir", folder + QStringLiteral("/temp"));
    return path;
}

// --- the connection's test -----------------------------------------------------------

bool CreateProjectForm::fieldsAreGood()
{
    const ConnectionParameters entered = connectionIn(*connection_);
    if (entered.host.isEmpty() || entered.port.isEmpty() || entered.database.isEmpty() || entered.user.isEmpty()) {
        warn(this, "Поля не должны быть пустыми.");
        return false;
    }
    // Capitals pass here: a name may have been pasted in past the validator.
    const QRegularExpression pattern(QString::fromLatin1(databaseNamePattern),
                                     QRegularExpression::CaseInsensitiveOption);
    if (!pattern.match(entered.database).hasMatch()) {
        warn(this, "Некорректно задано имя базы данных.");
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
    const ConnectionParameters tested = connectionIn(*connection_);
    if (!testServer(tested, [this](const QString& text) { appendToLog(testLog_, text); }))
        return;
    putConnection(project_, tested);
    project_.sqlType = 0;
    project_.connected = true;
    connectionTested_ = true;
}

// --- making the project -----------------------------------------------------------------

NewProject CreateProjectForm::newProject() const
{
    NewProject project;
    project.name = data_->text("ProjectName");
    project.code = data_->text("ProjectCode");
    project.organization = data_->text("ProjectOrganization");
    project.description = data_->text("ProjectDescriprion");
    project.projectFile = paths_->text("ProjectFile");
    project.workDir = paths_->text("WorkingDir");
    project.templateDir = paths_->text("TemplateDir");
    project.tempDir = paths_->text("TempDir");
    project.schemaPath = connection_->text("SchemaPath");
    project.proj4Text = proj4_->toPlainText();
    project.copyTemplates = paths_->text("CopyTemplateCB") == QLatin1String("1");
    project.connectionTested = connectionTested_;
    return project;
}

void CreateProjectForm::createProject()
{
    if (!connectionTested_)
        return warn(this, "Пожалуйста, выполните успешный тест соединения с базой данных.");
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
