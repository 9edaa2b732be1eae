// The templates of a kind of document: their list and the one that is loaded.
#include "base/placeholders.h"
#include "hostkit/console.h"
#include "reports/templates/export_template_class.h"
#include "reports/templates/template_description.h"
#include "session/project_session.h"

#include <QDir>
#include <QFileInfo>

namespace {

// A relative name belongs to the folder of templates if such a file is there.
QString resolved(const QString& docxPath)
{
    const QFileInfo inFolder(QDir(session().templateDir), docxPath);
    return QFileInfo(docxPath).isRelative() && inFolder.isFile() ? inFolder.absoluteFilePath() : docxPath;
}

bool tell(const char* message, const QString& path)
{
    sayLine(fill(QString::fromUtf8(message), QDir::toNativeSeparators(path)));
    return false;
}

} // namespace

void ExportTemplateClass::loadTemplateList()
{
    files.clear();
    templateIndex = -1;
    for (const QString& path : descriptionFiles(session().templateDir)) {
        const auto description = readDescription(path);
        if (description && description->documentKey == documentKey)
            files.insert(files.size(), path);
    }
}

QMap<int, QString> ExportTemplateClass::templateNames() const
{
    QMap<int, QString> names;
    for (auto file = files.begin(); file != files.end(); ++file) {
        const auto description = readDescription(file.value());
        names.insert(file.key(), description ? description->name : QString());
    }
    return names;
}

bool ExportTemplateClass::selectTemplate(int index)
{
    const int before = templateIndex;
    if (files.contains(index) && loadTemplate(files.value(index))) {
        templateIndex = index;
        return true;
    }
    if (before != index && files.contains(before))
        loadTemplate(files.value(before));
    return false;
}

void ExportTemplateClass::addTemplate(const QString& path, bool select)
{
    const int index = files.isEmpty() ? 0 : files.lastKey() + 1;
    files.insert(index, path);
    if (select)
        selectTemplate(index);
}

bool ExportTemplateClass::loadTemplate(const QString& path)
{
    DescriptionFault fault = DescriptionFault::None;
    const auto description = readDescription(path, &fault);
    if (fault == DescriptionFault::NotOpened)
        return tell("Ошибка загрузки файла %1", path);
    if (!description)
        return tell("Ошибка разбора файла %1", path);
    if (description->documentKey != documentKey)
        return false;
    const QString docx = resolved(description->docxPath);
    DocxTemplate document;
    if (!document.open(docx))
        return tell("Ошибка файла шаблона %1", docx);

    templatePath = path;
    templateName = description->name;
    docxPath = docx;
    substitutions.clear();
    substitutionTexts.clear();
    for (const QString& tag : document.tags()) {
        substitutions.insert(tag, QString());
        substitutionTexts.insert(tag, QString());
    }
    for (const Substitution& row : description->substitutions) {
        // A tag that is gone from the Word file is forgotten.
        if (!substitutions.contains(row.tag))
            continue;
        substitutions.insert(row.tag, row.variable);
        substitutionTexts.insert(row.tag, row.text);
    }
    return true;
}
