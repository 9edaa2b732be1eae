#include "reports/docx/docx_merger.h"

#include "files/written_file.h"
#include "reports/docx/body_text.h"
#include "reports/docx/part_copier.h"

#include <QDebug>
#include <QFileInfo>

using docx::MergedDocument;
using docx::PackageReader;
using docx::WordDocument;

namespace {

bool isSameFile(const QString& one, const QString& other)
{
    const QString path = QFileInfo(one).canonicalFilePath();
    return !path.isEmpty() && path == QFileInfo(other).canonicalFilePath();
}

/// One of the files, read up to its body.
struct InputFile {
    PackageReader package;
    WordDocument parts;
    std::unique_ptr<docx::DocumentText> text;

    /// Why the file cannot be taken; empty when it was read.
    QString open(const QString& path)
    {
        if (!package.open(path))
            return package.fault();
        if (!parts.read(package, docx::LinkedImages::Kept, docx::MainPart::Text))
            return parts.fault;
        text = std::make_unique<docx::DocumentText>(parts.text);
        return text->readHead() ? QString() : QStringLiteral("the document has no body");
    }
};

/// Carries one relationship of a later file over; what is of no use to the body
/// is passed over.
void carryRelationship(const QDomElement& relationship, const WordDocument& parts, docx::PartCopier* copier,
                       MergedDocument* merged, docx::RelationshipMap* map)
{
    const QString type = relationship.attribute(QStringLiteral("Type"));
    const QString target = relationship.attribute(QStringLiteral("Target"));
    const QString mode = relationship.attribute(QStringLiteral("TargetMode"));
    const QString id = relationship.attribute(QStringLiteral("Id"));
    // A linked picture is kept as a link.
    if (type.endsWith(QLatin1String("/hyperlink"))
        || (type.endsWith(QLatin1String("/image")) && docx::isExternal(relationship))) {
        map->insert(id, merged->addRelationship(type, target, mode));
        return;
    }
    for (const char* end : {"/image", "/header", "/footer", "/drawing"}) {
        if (!type.endsWith(QLatin1String(end)) || docx::isExternal(relationship))
            continue;
        const QString source = docx::resolvedTarget(parts.mainPart, target);
        const QString name = copier->copy(source, type);
        if (!name.isEmpty())
            map->insert(id, merged->addRelationship(type, merged->targetOf(name), QString()));
    }
}

/// False only when the merged file cannot be written.
bool appendFile(const QString& path, MergedDocument* merged)
{
    InputFile file;
    const QString fault = file.open(path);
    if (!fault.isEmpty()) {
        qDebug() << "DocxMerger: Skipped a file that does not open:" << path << fault;
        return true;
    }
    docx::PartCopier copier(file.package, file.parts, merged);
    docx::BodyChanges changes;
    for (const QDomElement& relationship : docx::relationshipElements(file.parts.relationships))
        carryRelationship(relationship, file.parts, &copier, merged, &changes.relationships);
    if (copier.failed())
        return false;
    changes.namespaces = merged->adoptRoot(file.text->around().rootAttributes);
    changes.newDrawingId = [merged] { return merged->newDrawingId(); };
    merged->appendPage(file.text->readBody(changes));
    return true;
}

} // namespace

DocxMerger::DocxMerger(const QStringList& inputs) : inputs_(inputs) { }

bool DocxMerger::merge(const QString& outputPath, bool overwrite)
{
    if (inputs_.isEmpty() || isSameFile(inputs_.first(), outputPath))
        return false;
    const QFileInfo output(outputPath);
    if (output.exists() && !overwrite) {
        qDebug() << "DocxMerger: Output file already exists and overwrite is false";
        return false;
    }
    if (output.exists() && !output.isFile()) {
        qDebug() << "DocxMerger: Failed to remove existing file";
        return false;
    }
    if (inputs_.size() > 1)
        return mergeAll(outputPath);
    const bool copied = copyFile(inputs_.first(), outputPath);
    if (!copied)
        qDebug() << "DocxMerger: Failed to copy first file to" << outputPath;
    return copied;
}

bool DocxMerger::mergeAll(const QString& outputPath) const
{
    MergedDocument merged;
    {
        InputFile first;
        const QString fault = first.open(inputs_.first());
        if (!fault.isEmpty() || !merged.start(first.package, first.parts, first.text.get(), outputPath)) {
            qDebug() << "DocxMerger: Failed to copy first file to" << outputPath;
            if (!fault.isEmpty())
                qDebug() << "DocxMerger: First file does not open:" << fault;
            return false;
        }
    }
    for (const QString& input : inputs_.mid(1)) {
        if (!appendFile(input, &merged))
            return false;
    }
    if (!merged.finish()) {
        qDebug() << "DocxMerger: Failed to replace merged file";
        return false;
    }
    return true;
}
