#include "reports/generator/template_bindings.h"

#include "base/xml_text.h"
#include "files/written_file.h"
#include "session/project_session.h"

#include <QDir>
#include <QDomDocument>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

QDir templateFolder() { return QDir(session().templateDir); }

// Controls of headers and footers, which the document's own tags lack.
QStringList outsideTags(DocxTemplate& document)
{
    static const QRegularExpression part(QStringLiteral("^word/(header|footer)\\d*\\.xml$"));
    QStringList tags;
    for (const docx::PackageEntry& entry : document.zip.entries()) {
        QByteArray bytes;
        QDomDocument xml;
        if (!part.match(entry.name).hasMatch() || !document.zip.read(entry.name, &bytes) || isNestedDeeper(bytes)
            || !xml.setContent(bytes))
            continue;
        const QDomNodeList found = xml.elementsByTagName(QStringLiteral("w:tag"));
        for (int i = 0; i < found.size(); ++i)
            tags.append(found.at(i).toElement().attribute(QStringLiteral("w:val")));
    }
    tags.removeDuplicates();
    return tags;
}

} // namespace

TemplateBindings::TemplateBindings(const ReportKind& kind) : documentKey_(kind.documentKey) { }

TemplateBindings::TemplateBindings(const ExportTemplateClass& loaded)
    : name(loaded.templateName), docxPath(loaded.docxPath), documentKey_(loaded.documentKey), path_(loaded.templatePath)
{
    for (auto row = loaded.substitutions.begin(); row != loaded.substitutions.end(); ++row)
        rows.append({row.key(), row.value(), loaded.substitutionTexts.value(row.key())});
}

bool TemplateBindings::chooseDocx(const QString& path)
{
    DocxTemplate document;
    if (!document.open(path)) {
        fault_ = document.fault();
        return false;
    }
    fault_.clear();
    docxPath = path;
    tagsOutside_ = outsideTags(document);
    const QVector<Substitution> before = rows;
    rows.clear();
    for (const QString& tag : document.tags()) {
        Substitution row{tag, {}, {}};
        for (const Substitution& bound : before) {
            if (bound.tag == tag)
                row = bound;
        }
        rows.append(row);
    }
    return true;
}

QString TemplateBindings::copyPath() const { return templateFolder().filePath(QFileInfo(docxPath).fileName()); }

bool TemplateBindings::isCopyThere() const
{
    return QFileInfo::exists(copyPath()) && QFileInfo(copyPath()) != QFileInfo(docxPath);
}

bool TemplateBindings::copyDocx()
{
    const QString target = copyPath();
    if (QFileInfo(target) != QFileInfo(docxPath) && !copyFile(docxPath, target))
        return false;
    docxPath = target;
    return true;
}

QString TemplateBindings::descriptionPath() const
{
    if (!path_.isEmpty())
        return path_;
    // Another template of the same Word file keeps its own description.
    const QString base = QFileInfo(docxPath).completeBaseName();
    QString path = templateFolder().filePath(base + QStringLiteral(".xml"));
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = templateFolder().filePath(QStringLiteral("%1_%2.xml").arg(base).arg(number));
    return path;
}

bool TemplateBindings::save(QString* problem) const
{
    const QString path = descriptionPath();
    // A file in the folder of templates is known by its name alone, so that the
    // folder can be moved.
    const QFileInfo docx(docxPath);
    const bool inFolder = QFileInfo(copyPath()) == docx;
    return writeDescription(
        path,
        {documentKey_, name, QFileInfo(path).fileName(), inFolder ? docx.fileName() : docx.absoluteFilePath(), rows},
        problem);
}
