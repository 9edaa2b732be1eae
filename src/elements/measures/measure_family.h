// What tells the measures of one family from another's: tables, columns, texts.
#pragma once

#include "elements/families/families.h"

#include <QString>
#include <QVector>

/// A measured column, in statement order.
struct MeasureColumn {
    QString name;
    int decimals; ///< of the stored number; a text column has none and says -1
};

struct MeasureFamily {
    /// The columns of `select`: the values begin at the last of these, the
    /// performer stands behind them.
    enum SelectColumn { ElementId, CycleId, DeviceId, Date, FirstValue };
    int performerColumn() const { return FirstValue + columns.size(); }

    FamilyKey family;
    QString key; ///< "dm": of the management form's combo
    QString measureTable;
    QString idColumn;
    QString elementTable;
    QVector<MeasureColumn> columns;
    const char* select; ///< %1: the measure's id
    QString editTitle;  ///< window title of the edit dialog
    QString cycleTaken; ///< warning of the edit dialog: the cycle holds a measure already
    QString listName;   ///< in the management form's combo

    /// Names of the value columns joined by ",".
    QString columnList() const;
};

/// The six families that carry measures, in the order of the management form.
const FamilyTable<MeasureFamily, measuredFamilyCount>& measureFamilies();

/// Null for engineering-geological wells.
const MeasureFamily* measureFamily(FamilyKey family);
