#pragma once
// How the merger names the parts it copies, and what they are declared as.

#include <QString>

namespace docx {

/// Where a copied part goes.
struct PartPlace {
    QString prefix; ///< of the file name, a number follows
    QString folder; ///< with a slash at its end
};

/// The place of a part that the body of a later file points at, by the type of
/// the relationship.
PartPlace placeOfBodyPart(const QString& relationshipType);

/// The place of a part that a copied part points at.
PartPlace placeOfReachedPart(const QString& relationshipType);

/// "word/header1.xml" gives "word/".
QString folderOf(const QString& partName);

/// The content type by the type of the relationship, else by the name's suffix;
/// empty if neither tells.
QString contentTypeOf(const QString& relationshipType, const QString& partName);

/// What stands behind the last point of a file name, in letters and digits;
/// empty without a point.
QString suffixOf(const QString& partName);

/// "word/header1.xml" gives "word/_rels/header1.xml.rels".
QString relationshipsPartOf(const QString& partName);

/// The entry that `target` means in the relationships of `partName`; a target
/// with "/" in front counts from the container's root. Empty when it leaves the
/// container.
QString resolvedTarget(const QString& partName, const QString& target);

/// The target by which `fromPart` points at `toPart`.
QString relativeTarget(const QString& fromPart, const QString& toPart);

} // namespace docx
