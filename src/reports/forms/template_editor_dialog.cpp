#include "reports/forms/template_editor_dialog.h"

#include "base/placeholders.h"
#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"
#include "reports/forms/variable_list_delegate.h"
#include "session/project_session.h"

#include <QDir>
#include <QHeaderView>

using namespace formkit;

namespace {

enum Column { TagColumn, VariableColumn, TextColumn };
constexpr int tagWidth = 170, variableWidth = 290;

} // namespace

TemplateEditorDialog::TemplateEditorDialog(const ExportTemplateClass& document, const TemplateBindings& bindings,
                                           QWidget* parent)
    : QDialog(parent), document_(document), bindings_(bindings)
{
    nameForm(this, QStringLiteral("TemplateEditorDialog"), QStringLiteral("Редактор сопоставления переменных"));
    rows_ = table(QStringLiteral("SubstsView"),
                  {QStringLiteral("Тэг"), QStringLiteral("Значение"), QStringLiteral("Текст подстановки")});
    rows_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked
                           | QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed);
    rows_->setSortingEnabled(false);
    rows_->setItemDelegateForColumn(VariableColumn, new VariableListItemDelegate(document, rows_));
    layOut(this).column({
        grid({
            {"Тип документа", wide(2, readOut(QStringLiteral("TemplateType"), document.documentCaption))},
            {"Наименование шаблона", wide(2, growing(name_ = edit(QStringLiteral("TemplateName"), bindings.name)))},
            {"Файл шаблона (.docx)", growing(docx_ = readOnly(edit(QStringLiteral("DocxFileName")))),
             button("SelectDocxBTN", "Выбрать", this, &TemplateEditorDialog::chooseDocx)},
            {nothing(),
             wide(2, copy_ = check(QStringLiteral("CopyFile"), QStringLiteral("Копировать файл шаблона в папку ")))},
        }),
        growing(rows_),
        note_ = note(QStringLiteral("OutsideTags")),
        endButtons(this, {accepts(QStringLiteral("ApplyBtn"), QStringLiteral("Сохранить")), cancel()}),
    });
    rows_->horizontalHeader()->setStretchLastSection(true);
    rows_->setColumnWidth(TagColumn, tagWidth);
    rows_->setColumnWidth(VariableColumn, variableWidth);
    resize(700, 480);
    if (!bindings_.docxPath.isEmpty())
        takeDocx(bindings_.docxPath);
}

void TemplateEditorDialog::chooseDocx()
{
    const QString path = askFileToOpen(
        this, {QStringLiteral("Файл шаблона (.docx)"), QStringLiteral("Документ Word (*.docx)"), bindings_.docxPath});
    if (!path.isEmpty())
        takeDocx(path);
}

void TemplateEditorDialog::takeDocx(const QString& path)
{
    readRows();
    if (!bindings_.chooseDocx(path))
        return warn(
            this, QStringLiteral("Ошибка файла шаблона %1\n%2").arg(QDir::toNativeSeparators(path), bindings_.fault()));
    docx_->setText(QDir::toNativeSeparators(path));
    const QStringList outside = bindings_.tagsOutside();
    note_->setText(outside.isEmpty() ? QString()
                                     : QStringLiteral("Тэги колонтитулов не заполняются: %1").arg(outside.join(", ")));
    showRows();
}

void TemplateEditorDialog::showRows()
{
    rows_->setRowCount(bindings_.rows.size());
    for (int i = 0; i < bindings_.rows.size(); ++i) {
        const Substitution& row = bindings_.rows[i];
        rows_->setItem(i, TagColumn, textItem(row.tag));
        auto* variable = new QTableWidgetItem(variableCaption(document_, row.variable));
        variable->setData(Qt::UserRole, row.variable);
        rows_->setItem(i, VariableColumn, variable);
        rows_->setItem(i, TextColumn, new QTableWidgetItem(row.text));
    }
}

void TemplateEditorDialog::readRows()
{
    for (int i = 0; i < rows_->rowCount() && i < bindings_.rows.size(); ++i) {
        bindings_.rows[i].variable = rows_->item(i, VariableColumn)->data(Qt::UserRole).toString();
        bindings_.rows[i].text = rows_->item(i, TextColumn)->text();
    }
}

bool TemplateEditorDialog::copyDocx()
{
    const QString target = QDir::toNativeSeparators(bindings_.copyPath());
    const QString folder = QDir::toNativeSeparators(session().templateDir);
    if (bindings_.isCopyThere()
        && !confirm(this,
                    fill(QStringLiteral("Файл '%1' уже существует в папке шаблонов (%2). \n Перезаписать его?"), target,
                         folder)))
        return false;
    if (bindings_.copyDocx())
        return true;
    warn(this,
         fill(QStringLiteral("Копирование '%1' в (%2). \n не удалось."), QDir::toNativeSeparators(bindings_.docxPath),
              folder));
    return false;
}

void TemplateEditorDialog::accept()
{
    rows_->setCurrentCell(-1, -1); // what is being typed in the table is taken
    readRows();
    bindings_.name = name_->text();
    if (bindings_.docxPath.isEmpty())
        return warn(this, QStringLiteral("Необходимо выбрать файл шаблона"));
    if (copy_->isChecked() && !copyDocx())
        return;
    const QString path = bindings_.descriptionPath();
    QString problem;
    if (!bindings_.save(&problem))
        return warn(this,
                    QStringLiteral("Не удалось записать файл '%1': %2").arg(QDir::toNativeSeparators(path), problem));
    savedPath_ = path;
    QDialog::accept();
}
