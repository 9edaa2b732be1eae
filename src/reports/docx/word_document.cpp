#include "reports/docx/word_document.h"

#include "reports/docx/xml_scan.h"
#include "reports/docx/xml_tree.h"
#include "reports/docx/xml_walk.h"

#include <QDebug>

namespace docx {
namespace {

/// Parts other than the document that may hold drawings: headers, notes.
bool mayHoldDrawings(const QString& name)
{
    return name.startsWith(parts::folder()) && name.endsWith(QLatin1String(".xml")) && name.count(QLatin1Char('/')) == 1
        && name != parts::document();
}

bool readImages(const PackageReader& package, const QDomDocument& relationships, QMap<QString, QString>* images)
{
    for (const QDomElement& relationship : relationshipElements(relationships)) {
        if (relationship.attribute(QStringLiteral("Type")) != imageRelationshipType())
            continue;
        const QString path = parts::folder() + relationship.attribute(QStringLiteral("Target"));
        if (!package.contains(path)) {
            qDebug() << "Failed to open image file: " << path;
            return false;
        }
        images->insert(relationship.attribute(QStringLiteral("Id")), path);
    }
    return true;
}

} // namespace

bool WordDocument::read(const PackageReader& package)
{
    return readParts(package) && readImages(package, relationships, &images);
}

bool WordDocument::readParts(const PackageReader& package)
{
    images.clear();
    return readXml(package, parts::document(), &document) && readXml(package, parts::relationships(), &relationships)
        && readXml(package, parts::contentTypes(), &contentTypes);
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

DrawingIds drawingIds(const PackageReader& package, const QDomDocument& document)
{
    DrawingIds ids = drawingIds(document.documentElement());
    for (const PackageEntry& entry : package.entries()) {
        QByteArray bytes;
        if (mayHoldDrawings(entry.name) && package.read(entry.name, &bytes) && bytes.contains(":docPr")
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
