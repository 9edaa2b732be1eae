#pragma once
// All that the database knows of one element, pictures excepted.

#include "elements/inspections/inspections_of_element.h"
#include "elements/measures/measures_of_element.h"
#include "elements/passports/passport_lists.h"
#include "elements/passports/passport_row.h"

class PassportRecord {
public:
    explicit PassportRecord(const PassportFamily& family) : row(family) { }

    /// With its reference lists read.
    static PassportRecord withLists(FamilyKey family);

    const PassportFamily& family() const { return row.family(); }
    int id() const { return row.id(); }

    /// Both read anew; nothing while no row is read, or the family has none.
    void readMeasures();
    void readInspections();

    /// False when the server refuses, or the family has none such.
    bool deleteMeasure(int measureId);
    bool deleteInspection(int inspectId);
    /// After any change to inspections: the row's state is that of the latest one.
    void recomputeState();

    /// Elevations: of the mouth of a well, and of the ground around it.
    double mouth() const { return row.value(PlaceZ).toDouble(); }
    double ground() const { return mouth() - row.value(Height).toDouble(); }

    PassportRow row;
    PassportLists lists;
    Measures measures; ///< by date
    std::vector<InspectionRecord> inspections;
};
