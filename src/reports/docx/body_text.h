#pragma once
// A document part as text, taken apart at its body.

#include "reports/docx/markup_reader.h"

#include <QHash>
#include <QString>
#include <functional>

namespace docx {

/// Old relationship id to the one in the merged document.
using RelationshipMap = QHash<QString, QString>;

/// What becomes of a body on its way into another document.
struct BodyChanges {
    RelationshipMap relationships;
    QVector<MarkupAttribute> namespaces; ///< that each of its elements declares by itself
    std::function<qint64()> newDrawingId;
};

/// The children of a body. The section that stands last among them is kept
/// apart: it ends the document, or its part of one.
struct BodyText {
    QByteArray before;
    QByteArray section; ///< empty when there is none
    QByteArray behind;  ///< of a sound document nothing
};

/// What stands around a body.
struct AroundBody {
    QByteArray prolog; ///< in front of the root
    QByteArray rootName;
    QVector<MarkupAttribute> rootAttributes;
    QByteArray beforeBody; ///< inside the root, with the start tag of the body
    QByteArray tail;       ///< from the end tag of the body on
};

/// Reads a document part that checkXml() has passed, in three steps. Everything
/// is indented by one a level, as all parts that are written; white space that
/// stands in the part stays.
class DocumentText {
public:
    explicit DocumentText(const QByteArray& xml) : reader_(xml) { }

    /// Up to the body; false when there is none.
    bool readHead();
    /// The children of the body, changed. References are rewritten; what refers
    /// to parts that are not carried over (charts of the body, notes, comments)
    /// is left out, since a reference into nowhere makes Word refuse the file.
    BodyText readBody(const BodyChanges& changes);
    /// The children of the body as they are.
    BodyText readBody();
    void readTail();

    const AroundBody& around() const { return around_; }

private:
    MarkupReader reader_;
    AroundBody around_;
    bool emptyBody_ = false;
};

} // namespace docx
