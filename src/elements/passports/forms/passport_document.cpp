#include "elements/passports/forms/passport_document.h"

#include "base/placeholders.h"
#include "formkit/boxes.h"
#include "formkit/file_questions.h"
#include "formkit/record_dialog.h"
#include "reports/generator/report_run.h"
#include "reports/templates/cell_texts.h"
#include "reports/templates/ts_passport_template.h"
#include "session/project_session.h"

#include <QDir>
#include <QFileInfo>

using namespace formkit;

namespace {

const QString title = QStringLiteral("Экспорт в документ");

Choices templateChoices(const QMap<int, QString>& names)
{
    Choices choices;
    for (auto name = names.begin(); name != names.end(); ++name)
        choices.append({name.value(), name.key()});
    return choices;
}

// Nothing when there is no template, or the user left the question.
std::optional<int> askTemplate(QWidget* parent, const QMap<int, QString>& names)
{
    if (names.isEmpty()) {
        warn(parent, "Нет шаблона паспорта термоскважины: его создают в генераторе отчётов");
        return {};
    }
    if (names.size() == 1)
        return names.firstKey();
    FieldsDialog question("PassportTemplateDialog", title,
                          {Field::choice("TemplateCombo", "Шаблон", [names] { return templateChoices(names); })},
                          {ok(), cancel()}, parent);
    if (question.exec() != QDialog::Accepted)
        return {};
    return question.fields().text("TemplateCombo").toInt();
}

} // namespace

void exportPassportDocument(QWidget* parent, int wellId, const QString& wellName)
{
    TSPassportExportTemplate document;
    document.loadTemplateList();
    const std::optional<int> chosen = askTemplate(parent, document.templateNames());
    if (!chosen)
        return;
    if (!document.selectTemplate(*chosen))
        return warn(parent, fill("Не удалось загрузить шаблон '%1'", document.templateNames().value(*chosen)));
    const QString folder = askFolder(parent, title, session().exportPath);
    if (folder.isEmpty())
        return;
    session().exportPath = folder;
    document.parameters.elements = {wellId};
    document.parameters.folder = folder;
    const QString path = QDir::toNativeSeparators(cells::documentPath(folder, wellName));
    document.parameters.overwrite = QFileInfo::exists(path);
    if (document.parameters.overwrite && !confirm(parent, fill("Файл '%1' уже существует.\nЗаменить его?", path)))
        return;
    const ReportOutcome outcome = runReport(document, QString());
    if (outcome == ReportOutcome::NotOpened)
        return warn(parent, fill("Не удалось открыть файл шаблона '%1'", document.docxPath));
    if (outcome != ReportOutcome::Made)
        return warn(parent, fill("Не удалось записать файл '%1'", path));
    inform(parent, fill("Создан файл '%1'", path), title);
}
