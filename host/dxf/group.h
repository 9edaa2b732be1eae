// The smallest part of a drawing file: a group, that is a code which tells the
// meaning and one value; and the records that groups make up.
#pragma once

#include <QString>
#include <vector>

struct DxfGroup {
    int code = 0;
    QString value; // as in the file, without its line end; decoded to Unicode

    bool operator==(const DxfGroup& o) const { return code == o.code && value == o.value; }
};
using DxfGroups = std::vector<DxfGroup>;

// What a group of code 0 begins: an entity, a table's record, an object, a
// section's head. `groups` lacks the group of code 0 itself.
struct DxfRecord {
    QString type;
    DxfGroups groups;
};
using DxfRecords = std::vector<DxfRecord>;

// Value of the first group with the code, trimmed; an empty text when absent.
QString firstValue(const DxfGroups& groups, int code);

// A handle is written in hexadecimal digits; 0 for a text that is none.
quint64 handleOf(const QString& text);
QString handleText(quint64 handle);

// Whether the value of a group with this code names another object by handle.
bool isReferenceCode(int code);

// The groups without references to other objects: what a copy that goes to
// another drawing can keep. Control groups go, other references become null.
DxfGroups withoutReferences(const DxfGroups& groups);

// The groups without the part from "100 subclass" to the next group of code 100.
DxfGroups withoutSubclass(const DxfGroups& groups, const QString& subclass);
