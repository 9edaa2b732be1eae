#include "reports/docx/body_appender.h"

#include "reports/docx/xml_walk.h"

#include <QDebug>

namespace docx {
namespace {

QString sectionName() { return QStringLiteral("w:sectPr"); }

QDomElement make(QDomDocument document, const char* name) { return document.createElement(QLatin1String(name)); }

/// Ends the last section of the merged document where it stands, and starts a
/// new page.
void breakPage(MergedDocument* merged)
{
    QDomDocument document = merged->document();
    QDomElement body = merged->body();
    const QDomElement section = body.lastChildElement(sectionName());
    if (!section.isNull()) {
        QDomElement paragraph = make(document, "w:p");
        paragraph.appendChild(make(document, "w:pPr")).appendChild(section.cloneNode(true));
        body.replaceChild(paragraph, section);
    }
    QDomElement pageBreak = make(document, "w:br");
    pageBreak.setAttribute(QStringLiteral("w:type"), QStringLiteral("page"));
    QDomNode paragraph = body.appendChild(make(document, "w:p"));
    paragraph.appendChild(make(document, "w:r")).appendChild(pageBreak);
}

/// The declarations of a later file's root that the merged root binds
/// otherwise; those it lacks are added to it.
QHash<QString, QString> adoptNamespaces(const QDomElement& fileRoot, QDomElement mergedRoot)
{
    QHash<QString, QString> different;
    const QDomNamedNodeMap attributes = fileRoot.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QString name = attributes.item(i).nodeName();
        const QString value = attributes.item(i).nodeValue();
        if (!name.startsWith(QLatin1String("xmlns")))
            continue;
        if (!mergedRoot.hasAttribute(name) && name != QLatin1String("xmlns"))
            mergedRoot.setAttribute(name, value);
        else if (mergedRoot.attribute(name) != value)
            different.insert(name, value);
    }
    return different;
}

/// Prefixes that a reader may pass over stay so in the merged document.
void adoptIgnorable(const QDomElement& fileRoot, QDomElement mergedRoot, const QHash<QString, QString>& different)
{
    const QString name = QStringLiteral("mc:Ignorable");
    QStringList prefixes = mergedRoot.attribute(name).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& prefix : fileRoot.attribute(name).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (!prefixes.contains(prefix) && !different.contains(QLatin1String("xmlns:") + prefix))
            prefixes.append(prefix);
    }
    if (!prefixes.isEmpty())
        mergedRoot.setAttribute(name, prefixes.join(QLatin1Char(' ')));
}

bool refersToNoteOrComment(const QDomElement& element)
{
    static const QStringList names{QStringLiteral("w:footnoteReference"), QStringLiteral("w:endnoteReference"),
                                   QStringLiteral("w:commentReference"), QStringLiteral("w:commentRangeStart"),
                                   QStringLiteral("w:commentRangeEnd")};
    return names.contains(element.tagName());
}

/// What must go when a reference in `element` leads nowhere: the whole picture
/// or object around it, or the element itself; null when losing the attribute
/// is enough.
QDomElement holderOfReference(const QDomElement& element)
{
    static const QStringList holders{QStringLiteral("w:drawing"),         QStringLiteral("w:pict"),
                                     QStringLiteral("w:object"),          QStringLiteral("w:control"),
                                     QStringLiteral("w:altChunk"),        QStringLiteral("w:subDoc"),
                                     QStringLiteral("w:headerReference"), QStringLiteral("w:footerReference")};
    QDomElement at = element;
    while (!at.isNull() && !holders.contains(at.tagName()))
        at = at.parentNode().toElement();
    return at;
}

class References {
public:
    explicit References(const RelationshipMap& relationships) : relationships_(relationships) { }

    /// Rewrites `root` and all below it.
    void rewrite(const QDomElement& root)
    {
        rewriteElement(root);
        forEachElement(root, [this](const QDomElement& element) { rewriteElement(element); });
        for (const QDomElement& element : toRemove_)
            element.parentNode().removeChild(element);
        toRemove_.clear();
    }

private:
    void rewriteElement(QDomElement element)
    {
        if (refersToNoteOrComment(element)) {
            toRemove_.append(element);
            return;
        }
        const QDomNamedNodeMap attributes = element.attributes();
        for (int i = attributes.count() - 1; i >= 0; --i) {
            const QString name = attributes.item(i).nodeName();
            if (name.startsWith(QLatin1String("r:")))
                rewriteAttribute(element, name);
        }
    }

    void rewriteAttribute(QDomElement element, const QString& name)
    {
        const QString old = element.attribute(name);
        const auto found = relationships_.constFind(old);
        if (found != relationships_.constEnd()) {
            element.setAttribute(name, *found);
        } else if (!old.isEmpty()) {
            qDebug() << "DocxMerger: Left out a reference to" << old << "of" << element.tagName();
            element.removeAttribute(name);
            const QDomElement holder = holderOfReference(element);
            if (!holder.isNull())
                toRemove_.append(holder);
        }
    }

    const RelationshipMap& relationships_;
    QVector<QDomElement> toRemove_;
};

} // namespace

void appendBody(const WordDocument& file, const RelationshipMap& relationships, MergedDocument* merged)
{
    const QDomElement fileRoot = file.document.documentElement();
    const QDomElement fileBody = fileRoot.firstChildElement(QStringLiteral("w:body"));
    const QDomElement mergedRoot = merged->document().documentElement();
    const QHash<QString, QString> different = adoptNamespaces(fileRoot, mergedRoot);
    adoptIgnorable(fileRoot, mergedRoot, different);
    breakPage(merged);

    References references(relationships);
    QDomElement body = merged->body();
    const auto append = [&](const QDomNode& node) {
        QDomElement added = body.appendChild(merged->document().importNode(node, true)).toElement();
        if (added.isNull())
            return;
        for (auto it = different.begin(); it != different.end(); ++it) {
            if (!added.hasAttribute(it.key()))
                added.setAttribute(it.key(), it.value());
        }
        references.rewrite(added);
    };
    for (QDomNode child = fileBody.firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (!isNamed(child.toElement(), "w:sectPr"))
            append(child);
    }
    const QDomElement section = fileBody.lastChildElement(sectionName());
    if (!section.isNull())
        append(section);
}

} // namespace docx
