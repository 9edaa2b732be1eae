// The wizard's pages and their widgets.
#include "database/forms/create_project_form.h"

#include "database/forms/projection_fields.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"
#include "session/forms/connection_fields.h"
#include "session/forms/project_fields.h"

#include <QFileInfo>

using namespace formkit;

namespace {

QString orElse(const QString& text, const QString& other) { return text.isEmpty() ? other : text; }

QPushButton* roomy(const QString& name, const QString& caption, const QString& later = QString())
{
    QPushButton* made = button(name, caption);
    keepRoomFor(made, caption);
    keepRoomFor(made, later);
    return made;
}

FieldList connectionPageFields()
{
    FieldList fields = connectionFields({"Сервер", "Порт", "База данных", "Пользователь", "Пароль"});
    for (Field& field : fields) {
        if (field.name == QLatin1String("Database"))
            field.pattern = QString::fromLatin1(databaseNamePattern);
    }
    fields.push_back(Field::fileToOpen("SchemaPath", "Файл схемы", "SelectShemaBtn", "Файл схемы БД", "*.sql"));
    return fields;
}

FieldList pathFields(const Field::Chooser& chooseFile)
{
    FieldList fields = projectFolderFields();
    fields.insert(fields.begin(), Field::path("ProjectFile", "Файл проекта:", "btn_OpenProject", chooseFile));
    fields.push_back(Field::check("CopyTemplateCB", "Копировать примеры шаблонов"));
    return fields;
}

} // namespace

CreateProjectForm::CreateProjectForm(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "CreateProjectForm", "Создание проекта");
    const auto chooseFile = [this](QWidget*, const QString& now) { return chooseProjectFile(now); };
    layOut(this).column({
        pages_ = tabs("Pages").pages({
            {"SQL соединение", connectionPage()},
            {"Данные проекта", column({data_ = new FieldPane(projectDataFields()), stretch()})},
            {"Пути проекта", column({paths_ = new FieldPane(pathFields(chooseFile)), stretch()})},
            {"Создание проекта",
             column({log_ = logBox("CreateLog", 12), openProject_ = check("OpenProject", "Открыть проект")})},
        }),
        row({
            back_ = roomy("BackBtn", "Назад"),
            next_ = roomy("NextBtn", "Далее"),
            stretch(),
            create_ = roomy("CreateBtn", "Создать"),
            cancel_ = roomy("CancelBtn", "Отмена", "Закрыть"),
        }),
    });
    pages_->setUsesScrollButtons(false); // all titles are to be read at once
    resize(qMax(640, sizeHint().width()), 640);
    proj4_->setPlaceholderText(QString()); // an example here has been taken for a value
    connectControls();
    fillDefaults();
    updateButtons();
}

QLayout* CreateProjectForm::connectionPage()
{
    return column({
        connection_ = new FieldPane(connectionPageFields()),
        projectionFields(proj4_, project_.moduleDir),
        button("btn_testconnect", "Тест соединения", this, &CreateProjectForm::testConnection),
        growing(testLog_ = logBox("ConnOutput", 5)),
    });
}

void CreateProjectForm::connectControls()
{
    connect(pages_, &QTabWidget::currentChanged, this, &CreateProjectForm::updateButtons);
    connect(back_, &QPushButton::clicked, this, &CreateProjectForm::goBack);
    connect(next_, &QPushButton::clicked, this, &CreateProjectForm::goOn);
    connect(create_, &QPushButton::clicked, this, &CreateProjectForm::createProject);
    connect(cancel_, &QPushButton::clicked, this, &CreateProjectForm::reject);
}

void CreateProjectForm::fillDefaults()
{
    const ProjectSession& module = session();
    connection_->setText("SQL_host", orElse(module.sqlHost, module.defaultHost));
    connection_->setText("SQL_port", orElse(module.sqlPort, module.defaultPort));
    connection_->setText("Username", orElse(module.sqlUser, module.defaultUser));
    QString script = project_.moduleDir + QStringLiteral("database.sql");
    script.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (QFileInfo::exists(script))
        connection_->setText("SchemaPath", script);
}
