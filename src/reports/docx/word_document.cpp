#include "reports/docx/word_document.h"

#include "reports/docx/part_names.h"
#include "reports/docx/xml_scan.h"
#include "reports/docx/xml_tree.h"
#include "reports/docx/xml_walk.h"

#include <QDebug>

namespace docx {
namespace {

/// Parts other than the document that may hold drawings: headers, notes.
bool mayHoldDrawings(const QString& name, const QString& mainPart)
{
    const QString folder = folderOf(mainPart);
    return name.startsWith(folder) && name.endsWith(QLatin1String(".xml"))
        && name.count(QLatin1Char('/')) == folder.count(QLatin1Char('/')) && name != mainPart;
}

/// Programs name the main part "word/document2.xml" as well; the package says
/// which entry it is.
QString mainPartOf(const PackageReader& package)
{
    QDomDocument relationships;
    if (package.contains(parts::document()) || !readXml(package, parts::packageRelationships(), &relationships))
        return parts::document();
    for (const QDomElement& relationship : relationshipElements(relationships)) {
        if (relationship.attribute(QStringLiteral("Type")).endsWith(QLatin1String("/officeDocument")))
            return resolvedTarget(QString(), relationship.attribute(QStringLiteral("Target")));
    }
    return parts::document();
}

QString notRead(const QString& part) { return QStringLiteral("a part is missing or too large: ") + part; }

QString notParsed(const QString& part, const QString& error)
{
    return QStringLiteral("a part does not parse: ") + part + QStringLiteral(": ") + error;
}

} // namespace

bool WordDocument::read(const PackageReader& package, LinkedImages linked, MainPart mainPartAs)
{
    return readParts(package, mainPartAs) && readImages(package, linked);
}

bool WordDocument::readParts(const PackageReader& package, MainPart mainPartAs)
{
    images.clear();
    fault.clear();
    mainPart = mainPartOf(package);
    relationshipsPart = relationshipsPartOf(mainPart);
    const bool hasMain = mainPartAs == MainPart::Text ? readText(package) : readPart(package, mainPart, &document);
    return hasMain && readPart(package, relationshipsPart, &relationships)
        && readPart(package, parts::contentTypes(), &contentTypes);
}

bool WordDocument::readText(const PackageReader& package)
{
    QByteArray bytes;
    QString error;
    if (!package.read(mainPart, &bytes))
        fault = notRead(mainPart);
    else if (!checkXml(bytes, &text, &error))
        fault = notParsed(mainPart, error);
    return fault.isEmpty();
}

bool WordDocument::readPart(const PackageReader& package, const QString& name, QDomDocument* part)
{
    QByteArray bytes;
    QString error;
    if (!package.read(name, &bytes))
        fault = notRead(name);
    else if (!parseXml(bytes, part, &error))
        fault = notParsed(name, error);
    return fault.isEmpty();
}

bool WordDocument::readImages(const PackageReader& package, LinkedImages linked)
{
    for (const QDomElement& relationship : relationshipElements(relationships)) {
        if (relationship.attribute(QStringLiteral("Type")) != imageRelationshipType())
            continue;
        if (linked == LinkedImages::Kept && isExternal(relationship))
            continue;
        const QString target = relationship.attribute(QStringLiteral("Target"));
        const QString path = resolvedTarget(mainPart, target);
        if (!package.contains(path)) {
            const bool fromRoot = target.startsWith(QLatin1Char('/'));
            const QString missing = fromRoot ? path : folderOf(mainPart) + target;
            qDebug() << "Failed to open image file: " << missing;
            fault = QStringLiteral("a picture is missing: ") + missing;
            return false;
        }
        images.insert(relationship.attribute(QStringLiteral("Id")), path);
    }
    return true;
}

bool readXml(const PackageReader& package, const QString& name, QDomDocument* document)
{
    QByteArray bytes;
    return package.read(name, &bytes) && parseXml(bytes, document);
}

QVector<QDomElement> relationshipElements(const QDomDocument& relationships)
{
    QVector<QDomElement> found;
    const QString name = QStringLiteral("Relationship");
    QDomElement child = relationships.documentElement().firstChildElement(name);
    for (; !child.isNull(); child = child.nextSiblingElement(name))
        found.append(child);
    return found;
}

DrawingIds drawingIds(const PackageReader& package, const WordDocument& parts)
{
    DrawingIds ids = parts.document.isNull() ? drawingIds(parts.text) : drawingIds(parts.document.documentElement());
    for (const PackageEntry& entry : package.entries()) {
        QByteArray bytes;
        if (mayHoldDrawings(entry.name, parts.mainPart) && package.read(entry.name, &bytes) && bytes.contains(":docPr")
            && findFault(bytes).isEmpty())
            ids += drawingIds(bytes);
    }
    return ids;
}

bool isExternal(const QDomElement& relationship)
{
    return relationship.attribute(QStringLiteral("TargetMode")) == QLatin1String("External");
}

} // namespace docx
