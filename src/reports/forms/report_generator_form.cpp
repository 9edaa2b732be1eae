#include "reports/forms/report_generator_form.h"

#include "base/placeholders.h"
#include "formkit/boxes.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/modal.h"
#include "formkit/progress_box.h"
#include "formkit/widgets.h"
#include "reports/forms/condition_widgets.h"
#include "reports/forms/template_editor_dialog.h"
#include "session/project_session.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenu>

using namespace formkit;

namespace {

constexpr int documentListHeight = 210; // room for all kinds

QString wordFilter() { return QStringLiteral("Документ Word (*.docx)"); }

} // namespace

ReportGeneratorForm::ReportGeneratorForm(QWidget* parent) : QDialog(parent), classes_(makeReportClasses())
{
    nameForm(this, QStringLiteral("ReportGeneratorForm"), QStringLiteral("Генератор отчетов"));
    build();
    fillDocuments();
    resize(1180, 660);
}

ReportGeneratorForm::~ReportGeneratorForm() = default;

void ReportGeneratorForm::build()
{
    documents_ = listBox(QStringLiteral("DocumentList"));
    documents_->setMinimumHeight(documentListHeight);
    templates_ = listBox(QStringLiteral("TemplateList"));
    templates_->setContextMenuPolicy(Qt::CustomContextMenu);
    conditions_ = listBox(QStringLiteral("ConditionsList"));
    conditions_->setStyleSheet(QStringLiteral("*:hover { background-color: transparent; }"));
    conditions_->setResizeMode(QListView::Adjust);
    conditions_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    layOut(this).column({
        growing(row({
            growing(column({
                        group("Документ").column({documents_}),
                        group("Шаблон").column({
                            templates_,
                            row({tipped(button("CreateTemplateBTN", "+", this, &ReportGeneratorForm::createTemplate),
                                        "Создать"),
                                 tipped(button("EditTemplateBTN", "E", this, &ReportGeneratorForm::editTemplate),
                                        "Редактировать"),
                                 tipped(button("DeleteTemplateBTN", "D", this, &ReportGeneratorForm::deleteTemplate),
                                        "Удалить"),
                                 stretch()}),
                        }),
                    }),
                    2),
            growing(group("Параметры  генерации  докумета").column({conditions_}), 5), // the caption is known so
        })),
        row({stretch(), button("GenerateBTN", " Отчет", this, &ReportGeneratorForm::generate),
             button("CancelBtn", "Отмена", this, &QDialog::reject)}),
    });
    connect(documents_, &QListWidget::currentRowChanged, this, &ReportGeneratorForm::showDocument);
    connect(templates_, &QListWidget::customContextMenuRequested, this, &ReportGeneratorForm::showTemplateMenu);
}

void ReportGeneratorForm::fillDocuments()
{
    for (const auto& document : classes_) {
        document->loadTemplateList();
        auto* item = new QListWidgetItem(document->documentCaption, documents_);
        item->setData(Qt::UserRole, QVariant::fromValue(document.get()));
    }
}

ExportTemplateClass* ReportGeneratorForm::document() const
{
    const QListWidgetItem* item = documents_->currentItem();
    return item ? item->data(Qt::UserRole).value<ExportTemplateClass*>() : nullptr;
}

int ReportGeneratorForm::chosenTemplate() const
{
    const QListWidgetItem* item = templates_->currentItem();
    return item ? item->data(Qt::UserRole).toInt() : -1;
}

void ReportGeneratorForm::showDocument()
{
    showTemplates();
    showConditions();
}

void ReportGeneratorForm::showTemplates()
{
    templates_->clear();
    if (!document())
        return;
    const QMap<int, QString> names = document()->templateNames();
    for (auto name = names.begin(); name != names.end(); ++name) {
        auto* item = new QListWidgetItem(name.value(), templates_);
        item->setData(Qt::UserRole, name.key());
    }
    if (templates_->count() == 1)
        templates_->setCurrentRow(0);
}

void ReportGeneratorForm::showConditions()
{
    widgets_.clear();
    conditions_->clear();
    if (!document())
        return;
    for (const Condition& condition : makeConditions(document()->conditions)) {
        auto* item = new QListWidgetItem(conditions_);
        item->setFlags(Qt::ItemIsEnabled);
        item->setData(Qt::UserRole, condition.bit);
        // As wide as the list, whatever the widget would like.
        item->setSizeHint({1, condition.widget->sizeHint().height()});
        conditions_->setItemWidget(item, condition.widget);
        widgets_.push_back(condition.widget);
    }
}

void ReportGeneratorForm::showTemplateMenu(const QPoint& place)
{
    QMenu menu(this);
    menu.addAction(QStringLiteral("Создать"), this, &ReportGeneratorForm::createTemplate);
    menu.addAction(QStringLiteral("Редактировать"), this, &ReportGeneratorForm::editTemplate);
    menu.addAction(QStringLiteral("Удалить"), this, &ReportGeneratorForm::deleteTemplate);
    menu.exec(templates_->viewport()->mapToGlobal(place));
}

ReportParameters ReportGeneratorForm::parameters() const
{
    ReportParameters given;
    for (const ConditionWidget* widget : widgets_)
        widget->give(given);
    return given;
}

void ReportGeneratorForm::generate()
{
    ExportTemplateClass* chosen = document();
    if (!chosen || chosenTemplate() < 0)
        return warn(this, QStringLiteral("Необходимо выбрать документ и шаблон"));
    if (!chosen->selectTemplate(chosenTemplate()))
        return warn(this, QStringLiteral("Не удалось загрузить шаблон '%1'").arg(templates_->currentItem()->text()));
    chosen->parameters = parameters();
    if (goesIntoFolder(*chosen)) {
        if (!isFolder(chosen->parameters.folder))
            return warn(this, QStringLiteral("Необходимо указать папку для экспорта"));
        session().exportPath = chosen->parameters.folder;
        return run(*chosen, QString());
    }
    const QString path = askPath(*chosen);
    if (!path.isEmpty())
        run(*chosen, path);
}

QString ReportGeneratorForm::askPath(const ExportTemplateClass& chosen)
{
    const QString folder = session().exportPath.isEmpty() ? session().workDir : session().exportPath;
    QString path = askFileToSave(
        this, {QStringLiteral("Сохранить документ"), wordFilter(), QDir(folder).filePath(chosen.templateName)});
    if (!path.isEmpty())
        session().exportPath = QFileInfo(path).absolutePath();
    return path;
}

void ReportGeneratorForm::run(ExportTemplateClass& chosen, const QString& path)
{
    ReportOutcome outcome;
    {
        ProgressBox box(this, windowTitle(), chosen.documentCaption);
        chosen.parameters.progress = [&box](int done, int total, const QString& text) {
            return box.step(done, total, text);
        };
        outcome = runReport(chosen, path);
        chosen.parameters.progress = {};
    }
    if (outcome == ReportOutcome::NotOpened)
        warn(this, QStringLiteral("Не удалось открыть файл шаблона '%1'").arg(chosen.docxPath));
    if (outcome == ReportOutcome::NotWritten && !path.isEmpty())
        warn(this, QStringLiteral("Не удалось записать файл '%1'").arg(QDir::toNativeSeparators(path)));
}

// --- templates ----------------------------------------------------------------------

void ReportGeneratorForm::createTemplate()
{
    ExportTemplateClass* chosen = document();
    if (!chosen)
        return;
    TemplateEditorDialog editor(*chosen, TemplateBindings(chosen->kind()), this);
    if (editor.exec() != QDialog::Accepted)
        return;
    chosen->addTemplate(editor.descriptionPath(), false);
    showTemplates();
}

void ReportGeneratorForm::editTemplate()
{
    ExportTemplateClass* chosen = document();
    const int index = chosenTemplate();
    if (!chosen || index < 0)
        return;
    if (!chosen->selectTemplate(index))
        return warn(this, QStringLiteral("Не удалось загрузить шаблон '%1'").arg(templates_->currentItem()->text()));
    TemplateEditorDialog editor(*chosen, TemplateBindings(*chosen), this);
    if (editor.exec() == QDialog::Accepted)
        showTemplates();
}

void ReportGeneratorForm::deleteTemplate()
{
    ExportTemplateClass* chosen = document();
    if (!chosen || chosenTemplate() < 0)
        return;
    const QString path = chosen->files.value(chosenTemplate());
    const QString shown = QDir::toNativeSeparators(path);
    if (!confirm(this,
                 fill(QStringLiteral("Сопоставление шаблона '%1' \n %2 \n будет удаленно?"),
                      templates_->currentItem()->text(), shown)))
        return;
    if (!QFile::remove(path))
        return warn(this, fill(QStringLiteral("Файл '%1'  \n не удален"), shown));
    chosen->loadTemplateList();
    showTemplates();
}

void openReports() { runModal<ReportGeneratorForm>(); }
