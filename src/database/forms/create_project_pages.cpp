// The wizard's pages and their widgets.
#include "database/forms/create_project_form.h"

#include "database/forms/field_rows.h"
#include "database/forms/projection_fields.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QTabWidget>
#include <QVBoxLayout>

/// A folder of the project: how it is shown and asked for.
struct FolderRow {
    const char* label;
    const char* field;
    const char* button;
    const char* title;
    const char* start; ///< where the choice starts while the field is empty
};

namespace {

const FolderRow workRow{"Рабочая папка проекта", "WorkingDir", "btn_selectWorkPath", "Рабочая папка проекта", "/work"};
const FolderRow templateRow{"Папка шаблонов", "TemplateDir", "btn_SelectTemplatePath", "Папка шаблонов проекта",
                            "/work"};
const FolderRow tempRow{"Временные файлы", "TempDir", "btn_SelectTempPath", "Временные файлы проекта", "/temp"};

QString orElse(const QString& text, const QString& other) { return text.isEmpty() ? other : text; }

} // namespace

CreateProjectForm::CreateProjectForm(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("CreateProjectForm"));
    setWindowTitle(QStringLiteral("Создание проекта"));
    pages_ = new QTabWidget;
    pages_->setObjectName(QStringLiteral("Pages"));
    pages_->addTab(buildConnectionPage(), QStringLiteral("SQL соединение"));
    pages_->addTab(buildDataPage(), QStringLiteral("Данные проекта"));
    pages_->addTab(buildPathsPage(), QStringLiteral("Пути проекта"));
    pages_->addTab(buildLogPage(), QStringLiteral("Создание проекта"));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(pages_);
    layout->addWidget(buildButtons());
    pages_->setUsesScrollButtons(false); // all titles are to be read at once
    resize(qMax(640, sizeHint().width()), 640);

    connect(pages_, &QTabWidget::currentChanged, this, &CreateProjectForm::updateButtons);
    fillDefaults();
    updateButtons();
}

void CreateProjectForm::fillDefaults()
{
    const ProjectSession& module = session();
    host_->setText(orElse(module.sqlHost, module.defaultHost));
    port_->setText(orElse(module.sqlPort, module.defaultPort));
    user_->setText(orElse(module.sqlUser, module.defaultUser));
    QString script = project_.moduleDir + QStringLiteral("database.sql");
    script.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (QFileInfo::exists(script))
        schema_->setText(script);
}

QWidget* CreateProjectForm::buildConnectionPage()
{
    auto* form = new QFormLayout;
    host_ = addLineRow(form, QStringLiteral("Сервер"), "SQL_host");
    port_ = addLineRow(form, QStringLiteral("Порт"), "SQL_port");
    database_ = addLineRow(form, QStringLiteral("База данных"), "Database");
    database_->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QString::fromLatin1(databaseNamePattern)), database_));
    user_ = addLineRow(form, QStringLiteral("Пользователь"), "Username");
    password_ = addLineRow(form, QStringLiteral("Пароль"), "Password");
    password_->setEchoMode(QLineEdit::Password);
    const PathRow schema = addPathRow(form, QStringLiteral("Файл схемы"), "SchemaPath", "SelectShemaBtn");
    schema_ = schema.field;
    connect(schema_, &QLineEdit::textChanged, this, [this](const QString& path) { schemaPath_ = path; });
    connect(schema.button, &QPushButton::clicked, this, &CreateProjectForm::selectSchema);

    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(form);
    proj4_ = addProjectionFields(layout, project_.moduleDir).text;
    proj4_->setPlaceholderText(QString()); // an example here has been taken for a value
    auto* test = makeButton(QStringLiteral("Тест соединения"), "btn_testconnect");
    connect(test, &QPushButton::clicked, this, &CreateProjectForm::testConnection);
    layout->addWidget(test);
    testLog_ = makeLog("ConnOutput", 5);
    layout->addWidget(testLog_, 1);
    return page;
}

QWidget* CreateProjectForm::buildDataPage()
{
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    name_ = addLineRow(form, QStringLiteral("Наименование проекта"), "ProjectName");
    code_ = addLineRow(form, QStringLiteral("Шифр проекта"), "ProjectCode");
    organization_ = addLineRow(form, QStringLiteral("Организация"), "ProjectOrganization");
    // The name is spelled so wherever the description is edited.
    description_ = addLineRow(form, QStringLiteral("Описание"), "ProjectDescriprion");
    return page;
}

void CreateProjectForm::addFolderRow(QFormLayout* form, const FolderRow& row, QLineEdit*& field)
{
    const PathRow made = addPathRow(form, QString::fromUtf8(row.label), row.field, row.button);
    QLineEdit* edit = field = made.field;
    connect(made.button, &QPushButton::clicked, this, [this, &row, edit] {
        const QString folder = QFileDialog::getExistingDirectory(
            this, QString::fromUtf8(row.title), orElse(edit->text(), QString::fromLatin1(row.start)),
            QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
        if (!folder.isEmpty())
            edit->setText(folder);
    });
}

QWidget* CreateProjectForm::buildPathsPage()
{
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    const PathRow file = addPathRow(form, QStringLiteral("Файл проекта:"), "ProjectFile", "btn_OpenProject");
    projectFile_ = file.field;
    connect(file.button, &QPushButton::clicked, this, &CreateProjectForm::selectProjectFile);
    addFolderRow(form, workRow, workDir_);
    addFolderRow(form, templateRow, templateDir_);
    addFolderRow(form, tempRow, tempDir_);
    copyTemplates_ = new QCheckBox(QStringLiteral("Копировать примеры шаблонов"));
    copyTemplates_->setObjectName(QStringLiteral("CopyTemplateCB"));
    form->addRow(QString(), copyTemplates_);
    return page;
}

QWidget* CreateProjectForm::buildLogPage()
{
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    log_ = makeLog("CreateLog", 12);
    layout->addWidget(log_);
    openProject_ = new QCheckBox(QStringLiteral("Открыть проект"));
    openProject_->setObjectName(QStringLiteral("OpenProject"));
    layout->addWidget(openProject_);
    return page;
}

QWidget* CreateProjectForm::buildButtons()
{
    back_ = makeButton(QStringLiteral("Назад"), "BackBtn");
    next_ = makeButton(QStringLiteral("Далее"), "NextBtn");
    create_ = makeButton(QStringLiteral("Создать"), "CreateBtn");
    cancel_ = makeButton(QStringLiteral("Отмена"), "CancelBtn");
    keepRoomFor(cancel_, QStringLiteral("Закрыть"));
    connect(back_, &QPushButton::clicked, this, &CreateProjectForm::goBack);
    connect(next_, &QPushButton::clicked, this, &CreateProjectForm::goOn);
    connect(create_, &QPushButton::clicked, this, &CreateProjectForm::createProject);
    connect(cancel_, &QPushButton::clicked, this, &CreateProjectForm::reject);

    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(back_);
    layout->addWidget(next_);
    layout->addStretch();
    layout->addWidget(create_);
    layout->addWidget(cancel_);
    return row;
}
