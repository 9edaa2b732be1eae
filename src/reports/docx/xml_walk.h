#pragma once
// Walks over a tree in document order. QDom's own lists look the whole document
// through again after every change; these do not.

#include <QDomElement>
#include <QStringList>
#include <QVector>

namespace docx {

inline bool isNamed(const QDomElement& element, const char* name) { return element.tagName() == QLatin1String(name); }

/// The element behind `at` in document order, not leaving `root`; null at the
/// end. With `inside` false what `at` holds is passed over.
QDomElement nextElement(const QDomElement& root, const QDomElement& at, bool inside = true);

/// Calls `visit` for each element under `root`, itself not included. The
/// visitor may change attributes, not the structure.
template <typename Visit>
void forEachElement(const QDomElement& root, Visit&& visit)
{
    for (QDomNode child = root.firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (!child.isElement())
            continue;
        const QDomElement element = child.toElement();
        visit(element);
        forEachElement(element, visit);
    }
}

/// The first element of the name under `root` at any depth, null if none.
QDomElement firstDescendant(const QDomElement& root, const char* name);

/// All elements of the name under `root` at any depth.
QVector<QDomElement> descendants(const QDomElement& root, const char* name);

/// Those of the name under `root` that belong to it: found through what merely
/// wraps content (controls, custom XML, hyperlinks, insertions), not inside
/// other elements.
QVector<QDomElement> ownElements(const QDomElement& root, const char* name);
/// The one at `place` among them, null if there are fewer.
QDomElement ownElement(const QDomElement& root, const char* name, int place = 0);

/// The child of the name, made if there is none. `order` lists the names of the
/// siblings as the format wants them; a new child stands before the first
/// sibling that follows it in that order. A name outside the list goes last.
QDomElement childInOrder(QDomElement parent, const QString& name, const QStringList& order);

/// Puts `text` in the place of the first child of a `w:t`; blanks at its ends
/// are marked as meant, else Word cuts them off.
void setText(QDomElement textElement, const QString& text);

/// A control (`w:sdt`) that holds a value no longer shows its prompt. With the
/// flag left Word takes the value for the prompt and drops it at the first key.
void removePlaceholderFlag(const QDomElement& control);

} // namespace docx
