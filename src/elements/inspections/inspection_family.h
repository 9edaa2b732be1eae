#pragma once
// What tells the inspections of one family from another's: findings, measured
// values, statements, words.

#include "elements/families/families.h"

enum class InspectionKind {
    Finding, ///< yes or no, stored as 1 and 0
    Number,  ///< as typed
    Note,
    State,
};

struct InspectionColumn {
    QString name;
    QString caption;
    InspectionKind kind = InspectionKind::Finding;
};

struct InspectionFamily {
    FamilyKey family;
    QString formName;
    QString title;
    QString nameCaption; ///< before the element's name
    /// Behind the key, the element and the cycle of `select`, in its order, which
    /// is that of the values in `insert` and `update` too.
    QVector<InspectionColumn> columns;
    const char* select;             ///< %1: the key
    const char* insert;             ///< %1 element, %2 cycle, then the columns
    const char* update;             ///< the same and the key
    int keyPlace;                   ///< the key's marker in `update`; what would be there moves on
    QString question;               ///< %1 the element's name, %2 the cycle's
    const char* afterOne = nullptr; ///< run for the element %1 after one inspection was changed

    enum SelectColumn { InspectId, ElementId, CycleId, FirstValue };
    /// Names of the family's tables.
    const Family& tables() const { return ::family(family); }
    int indexOf(InspectionKind kind) const; ///< the first column of the kind
};

const FamilyTable<InspectionFamily, measuredFamilyCount>& inspectionFamilies();

/// Null for engineering-geological wells.
const InspectionFamily* inspectionFamily(FamilyKey family);
