#include "session/forms/project_path_form.h"

#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"
#include "session/forms/project_fields.h"
#include "session/project_session.h"

using namespace formkit;

namespace {

struct Folder {
    const char* field;
    QString ProjectSession::*kept;
};

constexpr Folder folders[] = {
    {"TempDir", &ProjectSession::tempDir},
    {"WorkingDir", &ProjectSession::workDir},
    {"TemplateDir", &ProjectSession::templateDir},
};

} // namespace

ProjectPathForm::ProjectPathForm(QWidget* parent) : QWidget(parent)
{
    nameForm(this, "ProjectPathForm", QString());
    QPushButton* dots = dotsButton("btn_OpenProject");
    connect(dots, &QPushButton::clicked, this, &ProjectPathForm::chooseFile);
    layOut(this).column({
        label("Файл проекта:"),
        row({growing(file_ = readOut("FileName")), dots}),
        folders_ = new FieldPane(projectFolderFields()),
        row({stretch(), button("btnApply", "Применить", this, &ProjectPathForm::apply)}),
        stretch(),
    });
    // A long path does not widen the page.
    file_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    putCaptionsAbove(*folders_);
    refresh();
}

void ProjectPathForm::refresh()
{
    showFile(session().projectFile);
    for (const Folder& folder : folders)
        folders_->setText(folder.field, session().*folder.kept);
}

void ProjectPathForm::showFile(const QString& path)
{
    file_->setText(path.isEmpty() ? QStringLiteral("нет файла") : path);
    file_->setToolTip(path);
}

void ProjectPathForm::chooseFile()
{
    const QString path = askFileToOpen(this, {"Файл проекта", "*.terva", session().projectFile});
    if (!path.isEmpty())
        showFile(path);
}

// An emptied field leaves the folder as it was.
void ProjectPathForm::apply()
{
    for (const Folder& folder : folders) {
        const QString entered = folders_->text(folder.field);
        if (!entered.isEmpty())
            session().*folder.kept = entered;
    }
    session().saveProject();
}
