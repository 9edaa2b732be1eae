#include "reports/docx/merged_document.h"

#include "base/placeholders.h"
#include "reports/docx/xml_tree.h"
#include "reports/docx/xml_walk.h"

namespace docx {
namespace {

bool grows(const QString& entry, const WordDocument& document)
{
    return entry == document.mainPart || entry == document.relationshipsPart || entry == parts::contentTypes();
}

/// The number of an id "rId12", 0 for any other form.
qint64 numberOf(const QString& id)
{
    const QLatin1String prefix("rId");
    bool isNumber = false;
    const int number = id.startsWith(prefix) ? id.mid(prefix.size()).toInt(&isNumber) : 0;
    return isNumber ? qMax(0, number) : 0;
}

/// Null where there is none.
QString valueOf(const QVector<MarkupAttribute>& attributes, const QByteArray& name)
{
    for (const MarkupAttribute& attribute : attributes) {
        if (attribute.name == name)
            return QStringLiteral("") + attribute.value();
    }
    return QString();
}

/// Prefixes that a reader may pass over stay so in the merged document.
void adoptIgnorable(const QVector<MarkupAttribute>& ofFile, const QVector<MarkupAttribute>& different,
                    QVector<MarkupAttribute>* ours)
{
    const QByteArray name = QByteArrayLiteral("mc:Ignorable");
    const auto prefixesOf = [&name](const QVector<MarkupAttribute>& attributes) {
        return valueOf(attributes, name).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    QStringList prefixes = prefixesOf(*ours);
    for (const QString& prefix : prefixesOf(ofFile)) {
        if (!prefixes.contains(prefix) && !contains(different, "xmlns:" + prefix.toUtf8()))
            prefixes.append(prefix);
    }
    if (!prefixes.isEmpty())
        set({name, '"' + prefixes.join(QLatin1Char(' ')).toHtmlEscaped().toUtf8() + '"'}, ours);
}

} // namespace

bool MergedDocument::start(const PackageReader& first, const WordDocument& firstParts, DocumentText* firstText,
                           const QString& path)
{
    parts_ = firstParts;
    if (!writer_.open(path))
        return false;
    for (const PackageEntry& entry : first.entries()) {
        if (!grows(entry.name, parts_) && !writer_.copy(first, entry.name, entry.name))
            return false;
    }
    readNumbers(first);
    readContentTypes();
    parts_.text.clear();
    const BodyText body = firstText->readBody();
    firstText->readTail();
    around_ = firstText->around();
    pages_.append(body.before);
    section_ = body.section;
    behindSection_ = body.behind;
    return true;
}

QVector<MarkupAttribute> MergedDocument::adoptRoot(const QVector<MarkupAttribute>& ofFile)
{
    QVector<MarkupAttribute> different;
    QVector<MarkupAttribute>& ours = around_.rootAttributes;
    for (const MarkupAttribute& theirs : ofFile) {
        if (!theirs.name.startsWith("xmlns"))
            continue;
        const QString known = valueOf(ours, theirs.name);
        if (known.isNull() && theirs.name != "xmlns")
            ours.append(theirs);
        else if (known != theirs.value())
            different.append(theirs);
    }
    adoptIgnorable(ofFile, different, &ours);
    return different;
}

void MergedDocument::appendPage(const BodyText& body)
{
    if (!section_.isEmpty())
        pages_.append("\n  <w:p>\n   <w:pPr>" + section_ + "</w:pPr>\n  </w:p>");
    pages_.append(behindSection_);
    pages_.append("\n  <w:p>\n   <w:r>\n    <w:br w:type=\"page\"/>\n   </w:r>\n  </w:p>");
    pages_.append(body.before);
    section_ = body.section;
    behindSection_ = body.behind;
}

void MergedDocument::readNumbers(const PackageReader& first)
{
    for (const QDomElement& relationship : relationshipElements(parts_.relationships)) {
        const QString id = relationship.attribute(QStringLiteral("Id"));
        relationshipIds_.insert(id);
        relationCounter_ = qMax(relationCounter_, numberOf(id) + 1);
    }
    drawingIds_ = drawingIds(first, parts_);
    for (const qint64 id : drawingIds_)
        drawingCounter_ = qMax(drawingCounter_, id + 1);
}

void MergedDocument::readContentTypes()
{
    const QString name = QStringLiteral("Default");
    QDomElement child = parts_.contentTypes.documentElement().firstChildElement(name);
    for (; !child.isNull(); child = child.nextSiblingElement(name))
        defaults_.insert(child.attribute(QStringLiteral("Extension")).toLower());
    addDefault(QStringLiteral("png"), QStringLiteral("image/png"));
}

bool MergedDocument::giveDocument(const TakeBytes& take) const
{
    const auto all = [&take](const QByteArray& text) { return take(text.constData(), text.size()); };
    QByteArray head = around_.prolog + (around_.prolog.isEmpty() ? "<" : "\n<") + around_.rootName;
    for (const MarkupAttribute& attribute : around_.rootAttributes)
        head += attribute.written();
    return all(head + '>' + around_.beforeBody) && pages_.give(take) && all(section_ + behindSection_ + around_.tail);
}

bool MergedDocument::finish()
{
    return writer_.addPieces(parts_.mainPart, [this](const TakeBytes& take) { return giveDocument(take); })
        && writer_.add(parts_.relationshipsPart, printXml(parts_.relationships, 1))
        && writer_.add(parts::contentTypes(), printXml(parts_.contentTypes, 1)) && writer_.commit();
}

QString MergedDocument::addRelationship(const QString& type, const QString& target, const QString& mode)
{
    QString id;
    do {
        id = fill(QStringLiteral("rId%1"), relationCounter_++);
    } while (relationshipIds_.contains(id));
    relationshipIds_.insert(id);
    QDomElement relationship = parts_.relationships.createElement(QStringLiteral("Relationship"));
    relationship.setAttribute(QStringLiteral("Id"), id);
    relationship.setAttribute(QStringLiteral("Type"), type);
    relationship.setAttribute(QStringLiteral("Target"), target);
    if (!mode.isEmpty())
        relationship.setAttribute(QStringLiteral("TargetMode"), mode);
    parts_.relationships.documentElement().appendChild(relationship);
    return id;
}

QString MergedDocument::newPartName(const PartPlace& place, const QString& suffix)
{
    QString name;
    do {
        name = place.folder
            + fill(QStringLiteral("%1%2.%3"), place.prefix, partCounter_++,
                   suffix.isEmpty() ? QStringLiteral("bin") : suffix);
    } while (writer_.contains(name));
    return name;
}

qint64 MergedDocument::newDrawingId()
{
    if (drawingCounter_ > largestDrawingId)
        drawingCounter_ = 1;
    while (drawingIds_.contains(drawingCounter_))
        ++drawingCounter_;
    drawingIds_.insert(drawingCounter_);
    return drawingCounter_++;
}

bool MergedDocument::addPart(const QString& name, const QString& contentType, const QByteArray& bytes)
{
    declare(name, contentType);
    return writer_.add(name, bytes);
}

bool MergedDocument::copyPart(const QString& name, const QString& contentType, const PackageReader& from,
                              const QString& oldName)
{
    declare(name, contentType);
    return writer_.copy(from, oldName, name);
}

bool MergedDocument::addRelationshipsPart(const QString& name, const QByteArray& bytes)
{
    addDefault(QStringLiteral("rels"), QStringLiteral("application/vnd.openxmlformats-package.relationships+xml"));
    return writer_.add(name, bytes);
}

void MergedDocument::declare(const QString& partName, const QString& contentType)
{
    const QString suffix = suffixOf(partName);
    if (contentType.startsWith(QLatin1String("image/")) && !defaults_.contains(suffix.toLower())) {
        addDefault(suffix, contentType);
        return;
    }
    QDomElement declared = parts_.contentTypes.createElement(QStringLiteral("Override"));
    declared.setAttribute(QStringLiteral("PartName"), QLatin1Char('/') + partName);
    declared.setAttribute(QStringLiteral("ContentType"), contentType);
    parts_.contentTypes.documentElement().appendChild(declared);
}

void MergedDocument::addDefault(const QString& suffix, const QString& contentType)
{
    if (defaults_.contains(suffix.toLower()))
        return;
    defaults_.insert(suffix.toLower());
    QDomElement added = parts_.contentTypes.createElement(QStringLiteral("Default"));
    added.setAttribute(QStringLiteral("Extension"), suffix);
    added.setAttribute(QStringLiteral("ContentType"), contentType);
    parts_.contentTypes.documentElement().appendChild(added);
}

} // namespace docx
