#pragma once
// What tells the passport and the inspector of one family from another's:
// titles, fields, statements, tables, words.

#include "elements/families/families.h"

#include <QStringList>
#include <QVector>

/// The values of an element's row, in the order of all statements; the columns
/// that a family has beyond the common ones follow.
enum ElementColumn { TypeId, ElementName, StateId, PositionId, PlaceX, PlaceY, PlaceZ, Height, FirstExtra };

enum class PassportFieldKind { Text, Number, Type, State, Position, Construction };
/// Where a field stands.
enum class PassportGroup { Plain, Survey, Place };

struct PassportField {
    const char* name;
    QString caption;
    PassportFieldKind kind;
    PassportGroup group;
    int column; ///< an ElementColumn, or an extra one
};

/// A column of a table of measures.
enum class MeasurePart { Cycle, FirstValue, SecondValue, Date, Device, Performer };
struct MeasureTitle {
    MeasurePart part;
    QString caption;
};

struct PassportFamily {
    FamilyKey family;
    QString passportName;
    QString inspectorName;
    QString plainTitle; ///< until the row is read
    QString loading;    ///< of the element while the rest is read; empty: none
    QString title;      ///< %1 is the name, here and above
    QString whose;      ///< the family's word in messages about inspections
    QVector<PassportField> fields;
    const char* extraColumns; ///< as they stand in a select
    /// %1 to %8 the values, %9 the key, then the extra values, then the table.
    const char* update;
    const char* inspectorUpdate;
    const char* inspectorExtra; ///< a second statement of the inspector: the extra values and the key; may be null
    QString inspectorTaken;     ///< its warning; %1 the name
    const char* measures;       ///< ids and order for the element %1; null without measures
    QVector<MeasureTitle> measureTitles;
    QStringList inspectionRows; ///< columns of the family's inspection, as a passport lists them
    QString thirdPicture;       ///< empty without pictures

    const Family& tables() const { return ::family(family); }
    int extraCount() const;
};

const FamilyTable<PassportFamily>& passportFamilies();
const PassportFamily& passportFamily(FamilyKey family);

enum class InspectionChange { Created, Edited, Copied, Deleted };
/// What the console is told after an inspection was changed.
QString inspectionMessage(const PassportFamily& family, InspectionChange change, const QString& elementName);
