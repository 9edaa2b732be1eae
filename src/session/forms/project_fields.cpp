#include "session/forms/project_fields.h"

#include "formkit/file_questions.h"

#include <QFormLayout>

using namespace formkit;

namespace {

// The choice starts at `start` while the field is empty.
Field folderField(const char* name, const char* caption, const char* button, const char* title, const char* start)
{
    return Field::path(name, caption, button, [title, start](QWidget* form, const QString& now) {
        return askFolder(form, title, now.isEmpty() ? QString::fromUtf8(start) : now);
    });
}

} // namespace

FieldList projectDataFields()
{
    return {
        Field::text("ProjectName", "Наименование проекта"),
        Field::text("ProjectCode", "Шифр проекта"),
        Field::text("ProjectOrganization", "Организация"),
        // The name is spelled so wherever the description is edited.
        Field::text("ProjectDescriprion", "Описание"),
    };
}

FieldList projectFolderFields()
{
    return {
        folderField("WorkingDir", "Рабочая папка проекта", "btn_selectWorkPath", "Рабочая папка проекта", "/work"),
        folderField("TemplateDir", "Папка шаблонов", "btn_SelectTemplatePath", "Папка шаблонов проекта", "/work"),
        folderField("TempDir", "Временные файлы", "btn_SelectTempPath", "Временные файлы проекта", "/temp"),
    };
}

void putCaptionsAbove(FieldPane& pane)
{
    if (auto* form = qobject_cast<QFormLayout*>(pane.layout()))
        form->setRowWrapPolicy(QFormLayout::WrapAllRows);
}
