#include "reports/templates/export_template_class.h"

#include "hostkit/console.h"
#include "reports/docx/docx_table.h"
#include "reports/docx/xml_walk.h"
#include "session/project_session.h"

#include <QDir>
#include <QFileInfo>

namespace {

// A table that merely lays out others does not hold their tags.
bool holdsTag(const DocxTable& table, const QString& tag)
{
    if (!table.containsTag(tag))
        return false;
    for (const QDomElement& inner : docx::descendants(table.element(), "w:tbl")) {
        if (DocxTable(inner).containsTag(tag))
            return false;
    }
    return true;
}

} // namespace

void sayLine(const QString& text) { say(QLatin1Char('\n') + text); }

ExportTemplateClass::ExportTemplateClass(const ReportKind& kind)
    : conditions(kind.conditions),
      group(kind.group),
      documentKey(kind.documentKey),
      documentCaption(kind.caption),
      kind_(kind)
{
    for (const std::vector<ReportVariable>* list : {&commonVariables(), &kind.variables}) {
        for (const ReportVariable& variable : *list)
            registerVariable(variable.name, variable.caption, QString(), variable.type);
    }
}

ExportTemplateClass::~ExportTemplateClass() = default;

void ExportTemplateClass::registerVariable(const QString& name, const QString& caption, const QString& value, int type)
{
    if (variableCaptions.contains(name))
        return;
    order_.append(name);
    variableCaptions.insert(name, caption);
    variableValues.insert(name, value);
    variableTypes.insert(name, type);
}

bool ExportTemplateClass::setVariable(const QString& name, const QString& value)
{
    if (variableTypes.value(name, -1) != ReportVariable::Text)
        return false;
    variableValues.insert(name, value);
    return true;
}

bool ExportTemplateClass::setPicture(const QString& name, const QPixmap& picture)
{
    if (variableTypes.value(name, -1) != ReportVariable::Picture)
        return false;
    variablePictures.insert(name, picture);
    variableValues.insert(name, QStringLiteral("image"));
    return true;
}

void ExportTemplateClass::setCommonVariables()
{
    const ProjectSession& now = session();
    const bool inPosition = now.currentPositionId != -1;
    const QString values[] = {
        now.projectName,
        now.projectCode,
        now.projectOwner,
        now.projectLocation,
        inPosition ? now.currentObjectName : QString(),
        inPosition ? now.currentSubobjectName : QString(),
        inPosition ? now.currentPositionName : QString(),
    };
    for (size_t i = 0; i < commonVariables().size(); ++i)
        setVariable(commonVariables()[i].name, values[i]);
}

QString ExportTemplateClass::tagOf(const QString& variable) const { return substitutions.key(variable); }

// --- documents --------------------------------------------------------------------

ReportOutcome ExportTemplateClass::generateAll() { return ReportOutcome::Missing; }

ReportOutcome ExportTemplateClass::prepare() { return ReportOutcome::Made; }

bool ExportTemplateClass::buildTable(const QString&, DocxTable&, DocxTemplate&) { return true; }

void ExportTemplateClass::fillDocument(DocxTemplate* document)
{
    for (const QString& tag : document->tags()) {
        const QString variable = substitutions.value(tag);
        const QString text = substitutionTexts.value(tag);
        if (!variable.isEmpty()) {
            // Tables and pictures fill no text here.
            if (variableTypes.value(variable, -1) == ReportVariable::Text)
                document->setTag(tag, variableValues.value(variable));
        } else if (!text.isEmpty() && document->tagTypes.value(tag) != DocxTemplate::Picture) {
            document->setTag(tag, text);
        }
    }
}

bool ExportTemplateClass::fillTables(DocxTemplate& document)
{
    for (const QDomElement& element : docx::descendants(document.document.documentElement(), "w:tbl")) {
        DocxTable table(element);
        for (const QString& variable : order_) {
            const QString tag = variableTypes.value(variable) == ReportVariable::Table ? tagOf(variable) : QString();
            if (tag.isEmpty() || !holdsTag(table, tag))
                continue;
            // Emptied before the builder copies the cell in which it stands.
            document.setTag(tag, QString());
            document.applyText(tag);
            if (!buildTable(variable, table, document))
                return false;
            break; // a table serves one variable at most
        }
    }
    return true;
}

ReportOutcome ExportTemplateClass::writeDocument(const QString& path)
{
    DocxTemplate document;
    if (!document.open(docxPath))
        return ReportOutcome::NotOpened;
    if (!fillTables(document))
        return ReportOutcome::Stopped;
    fillDocument(&document);
    if (document.save(path))
        return ReportOutcome::Made;
    sayLine(QStringLiteral("Не удалось записать файл '%1'").arg(QDir::toNativeSeparators(path)));
    return ReportOutcome::NotWritten;
}

ReportOutcome ExportTemplateClass::exportFile(const QString& path)
{
    setCommonVariables();
    const ReportOutcome prepared = prepare();
    return prepared == ReportOutcome::Made ? writeDocument(path) : prepared;
}
