#include "reports/docx/xml_walk.h"

#include "base/xml_text.h"

#include <QDomDocument>

namespace docx {
namespace {

bool isWrapper(const QString& name)
{
    static const QStringList names{QStringLiteral("w:sdt"),       QStringLiteral("w:sdtContent"),
                                   QStringLiteral("w:customXml"), QStringLiteral("w:smartTag"),
                                   QStringLiteral("w:hyperlink"), QStringLiteral("w:ins"),
                                   QStringLiteral("w:moveTo")};
    return names.contains(name);
}

/// Calls `visit` for each of ownElements() until it gives false, and gives
/// false then. Nodes become elements only where needed: a table of a thousand
/// rows is walked for every cell.
template <typename Visit>
bool visitOwn(const QDomNode& root, const QString& wanted, Visit& visit)
{
    for (QDomNode child = root.firstChild(); !child.isNull(); child = child.nextSibling()) {
        const QString name = child.nodeName();
        const bool goOn = name == wanted ? visit(child) : !isWrapper(name) || visitOwn(child, wanted, visit);
        if (!goOn)
            return false;
    }
    return true;
}

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
}

} // namespace

QDomElement nextElement(const QDomElement& root, const QDomElement& at, bool inside)
{
    if (inside) {
        const QDomElement child = at.firstChildElement();
        if (!child.isNull())
            return child;
    }
    for (QDomElement up = at; up != root && !up.isNull(); up = up.parentNode().toElement()) {
        const QDomElement sibling = up.nextSiblingElement();
        if (!sibling.isNull())
            return sibling;
    }
    return QDomElement();
}

QDomElement firstDescendant(const QDomElement& root, const char* name)
{
    QDomElement at = nextElement(root, root);
    while (!at.isNull() && !isNamed(at, name))
        at = nextElement(root, at);
    return at;
}

QVector<QDomElement> descendants(const QDomElement& root, const char* name)
{
    QVector<QDomElement> found;
    forEachElement(root, [&](const QDomElement& element) {
        if (isNamed(element, name))
            found.append(element);
    });
    return found;
}

QVector<QDomElement> ownElements(const QDomElement& root, const char* name)
{
    QVector<QDomElement> found;
    auto visit = [&found](const QDomNode& node) {
        found.append(node.toElement());
        return true;
    };
    visitOwn(root, QString::fromLatin1(name), visit);
    return found;
}

QDomElement ownElement(const QDomElement& root, const char* name, int place)
{
    QDomElement found;
    auto visit = [&found, place](const QDomNode& node) mutable {
        if (place-- > 0)
            return true;
        found = node.toElement();
        return false;
    };
    if (place >= 0)
        visitOwn(root, QString::fromLatin1(name), visit);
    return found;
}

QDomElement childInOrder(QDomElement parent, const QString& name, const QStringList& order)
{
    const QDomElement existing = parent.firstChildElement(name);
    if (!existing.isNull())
        return existing;
    QDomElement made = parent.ownerDocument().createElement(name);
    const int place = order.indexOf(name);
    QDomElement sibling = parent.firstChildElement();
    while (!sibling.isNull() && (place < 0 || order.indexOf(sibling.tagName()) <= place))
        sibling = sibling.nextSiblingElement();
    if (sibling.isNull())
        parent.appendChild(made);
    else
        parent.insertBefore(made, sibling);
    return made;
}

void setText(QDomElement textElement, const QString& text)
{
    const QString valid = storableInXml(text);
    const QDomText node = textElement.ownerDocument().createTextNode(valid);
    const QDomNode old = textElement.firstChild();
    if (old.isNull())
        textElement.appendChild(node);
    else
        textElement.replaceChild(node, old);
    if (!valid.isEmpty() && (isBlank(valid.front()) || isBlank(valid.back())))
        textElement.setAttribute(QStringLiteral("xml:space"), QStringLiteral("preserve"));
}

void removePlaceholderFlag(const QDomElement& control)
{
    QDomElement properties = control.firstChildElement(QStringLiteral("w:sdtPr"));
    properties.removeChild(properties.firstChildElement(QStringLiteral("w:showingPlcHdr")));
}

} // namespace docx
