#include "reports/templates/template_description.h"

#include "base/xml_text.h"
#include "files/written_file.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QSet>

namespace {

constexpr int kIndent = 1;

QString valueOf(const QDomElement& root, const char* name)
{
    return root.elementsByTagName(QLatin1String(name)).at(0).toElement().attribute(QStringLiteral("value"));
}

QDomElement append(QDomNode parent, const char* name)
{
    return parent.appendChild(parent.ownerDocument().createElement(QLatin1String(name))).toElement();
}

void appendValue(const QDomElement& parent, const char* name, const QString& value)
{
    append(parent, name).setAttribute(QStringLiteral("value"), storableInXml(value));
}

} // namespace

std::optional<TemplateDescription> readDescription(const QString& path, DescriptionFault* fault)
{
    const auto fail = [fault](DescriptionFault why) {
        if (fault)
            *fault = why;
        return std::nullopt;
    };
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(DescriptionFault::NotOpened);
    const QByteArray bytes = file.readAll();
    QDomDocument document;
    if (isNestedDeeper(bytes) || !document.setContent(bytes))
        return fail(DescriptionFault::NotParsed);

    const QDomElement root = document.documentElement();
    TemplateDescription description{valueOf(root, "template_type"),
                                    valueOf(root, "template_name"),
                                    valueOf(root, "template_path"),
                                    valueOf(root, "template_docx_path"),
                                    {}};
    const QDomNodeList rows = root.elementsByTagName(QStringLiteral("substitution"));
    for (int i = 0; i < rows.size(); ++i) {
        const QDomElement row = rows.at(i).toElement();
        if (row.hasAttribute(QStringLiteral("tag")))
            description.substitutions.append({row.attribute(QStringLiteral("tag")),
                                              row.attribute(QStringLiteral("var")),
                                              row.attribute(QStringLiteral("text"))});
    }
    if (fault)
        *fault = DescriptionFault::None;
    return description;
}

bool writeDescription(const QString& path, const TemplateDescription& description, QString* problem)
{
    QDomDocument document;
    document.appendChild(document.createProcessingInstruction(QStringLiteral("xml"),
                                                              QStringLiteral("version=\"1.0\" encoding=\"UTF-8\"")));
    const QDomElement root = append(document, "template");
    const QDomElement meta = append(root, "meta");
    appendValue(meta, "template_type", description.documentKey);
    appendValue(meta, "template_name", description.name);
    appendValue(meta, "template_path", description.path);
    appendValue(meta, "template_docx_path", description.docxPath);
    const QDomElement list = append(root, "substitutions");
    for (const Substitution& substitution : description.substitutions) {
        QDomElement row = append(list, "substitution");
        row.setAttribute(QStringLiteral("tag"), storableInXml(substitution.tag));
        row.setAttribute(QStringLiteral("var"), storableInXml(substitution.variable));
        row.setAttribute(QStringLiteral("text"), storableInXml(substitution.text));
    }
    return saveFile(path, document.toByteArray(kIndent), problem);
}

QStringList descriptionFiles(const QString& folder)
{
    const QDir directory(folder);
    // A system that does not tell the case of names would list a file twice.
    QSet<QString> seen;
    QStringList paths;
    for (const QString& pattern : {QStringLiteral("*.xml"), QStringLiteral("*.XML")}) {
        for (const QString& name : directory.entryList({pattern}, QDir::Files | QDir::CaseSensitive, QDir::Name)) {
            if (!seen.contains(name))
                paths.append(directory.filePath(name));
            seen.insert(name);
        }
    }
    return paths;
}
