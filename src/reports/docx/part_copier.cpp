#include "reports/docx/part_copier.h"

#include "reports/docx/xml_tree.h"
#include "reports/docx/xml_walk.h"

#include <QDebug>

namespace docx {
namespace {

/// Gives every drawing under `root` a new id. False when there was none.
bool renumberDrawings(const QDomElement& root, MergedDocument* merged)
{
    bool found = false;
    forEachElement(root, [&](QDomElement element) {
        if (!isDrawingProperties(element))
            return;
        element.setAttribute(QStringLiteral("id"), merged->newDrawingId());
        found = true;
    });
    return found;
}

} // namespace

PartCopier::PartCopier(const PackageReader& source, const WordDocument& sourceParts, MergedDocument* merged)
    : source_(source), sourceParts_(sourceParts), merged_(merged)
{ }

QString PartCopier::copy(const QString& sourceName, const QString& relationshipType)
{
    QString name = schedule(sourceName, relationshipType, placeOfBodyPart(relationshipType));
    while (!jobs_.isEmpty() && !failed_)
        run(jobs_.dequeue());
    return name;
}

QString PartCopier::schedule(const QString& sourceName, const QString& relationshipType, const PartPlace& place)
{
    if (newNames_.contains(sourceName))
        return newNames_.value(sourceName);
    if (!source_.contains(sourceName)) {
        qDebug() << "DocxMerger: Failed to open source part" << sourceName;
        return QString();
    }
    QString name = merged_->newPartName(place, suffixOf(sourceName));
    newNames_.insert(sourceName, name);
    jobs_.enqueue({sourceName, name, relationshipType});
    return name;
}

void PartCopier::run(const Job& job)
{
    QString type = contentTypeOf(job.type, job.target);
    if (type.isEmpty())
        type = declaredType(job.source);
    const bool copied = job.source.endsWith(QLatin1String(".xml"))
        ? copyXml(job, type)
        : merged_->copyPart(job.target, type, source_, job.source);
    failed_ = failed_ || !copied;
    if (!failed_ && source_.contains(relationshipsPartOf(job.source)))
        copyRelationships(job);
}

bool PartCopier::copyXml(const Job& job, const QString& contentType)
{
    QByteArray bytes;
    QDomDocument tree;
    QString error;
    if (!source_.read(job.source, &bytes))
        return merged_->copyPart(job.target, contentType, source_, job.source);
    if (!parseXml(bytes, &tree, &error))
        qDebug() << "DocxMerger: Failed to parse XML part" << job.source << error;
    else if (renumberDrawings(tree.documentElement(), merged_))
        bytes = printXml(tree, -1);
    return merged_->addPart(job.target, contentType, bytes);
}

void PartCopier::copyRelationships(const Job& job)
{
    QDomDocument tree;
    if (!readXml(source_, relationshipsPartOf(job.source), &tree))
        return;
    for (const QDomElement& relationship : relationshipElements(tree)) {
        if (!redirect(relationship, job))
            tree.documentElement().removeChild(relationship);
    }
    if (!merged_->addRelationshipsPart(relationshipsPartOf(job.target), printXml(tree, 1)))
        failed_ = true;
}

/// False for a relationship whose part is not there.
bool PartCopier::redirect(QDomElement relationship, const Job& job)
{
    if (isExternal(relationship))
        return true;
    const QString type = relationship.attribute(QStringLiteral("Type"));
    const QString target = QStringLiteral("Target");
    const QString name =
        schedule(resolvedTarget(job.source, relationship.attribute(target)), type, placeOfReachedPart(type));
    relationship.setAttribute(target, relativeTarget(job.target, name));
    return !name.isEmpty();
}

/// What the source file declares the part as: its own declaration, else that of
/// its suffix.
QString PartCopier::declaredType(const QString& sourceName) const
{
    const QString partName = QLatin1Char('/') + sourceName;
    const QString suffix = suffixOf(sourceName);
    QString bySuffix = QStringLiteral("application/octet-stream");
    QDomElement child = sourceParts_.contentTypes.documentElement().firstChildElement();
    for (; !child.isNull(); child = child.nextSiblingElement()) {
        QString type = child.attribute(QStringLiteral("ContentType"));
        if (child.attribute(QStringLiteral("PartName")).compare(partName, Qt::CaseInsensitive) == 0)
            return type;
        const QString extension = child.attribute(QStringLiteral("Extension"));
        if (isNamed(child, "Default") && extension.compare(suffix, Qt::CaseInsensitive) == 0)
            bySuffix = type;
    }
    return bySuffix;
}

} // namespace docx
