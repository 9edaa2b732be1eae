// One reading of one element in one measurement cycle: a row of a family's
// measure table, and the matching of what a file says (a name, a serial, a
// date) to the ids of the database. Fields are open to the import dialogs.
#pragma once

#include "base/statement.h"
#include "elements/measures/measure_family.h"
#include "elements/measures/measure_lists.h"

#include <QDateTime>
#include <array>
#include <limits>

namespace sql {
class Result;
}

class BaseMeasure {
public:
    /// A value without data.
    static constexpr double noValue = std::numeric_limits<double>::infinity();

    /// The position is the session's current one; the lists may be ready ones.
    explicit BaseMeasure(const MeasureFamily& family, const MeasureLists& lists = {});
    virtual ~BaseMeasure();

    const MeasureFamily& family() const { return *family_; }

    int positionId;     ///< scopes the list of elements
    int measureId = -1; ///< the row's id once loaded
    int elementId = -1;
    QString elementName;
    int elementIndex = -1; ///< in the list, like the other indexes
    int cycleId = -1;
    QDateTime date; ///< as written: see base/written_date.h
    int cycleIndex = -1;
    int performerId = -1;
    int performerIndex = -1;
    QString performerText;
    int deviceId = -1;
    int deviceIndex = -1;
    QString deviceSerial;
    bool exists = false;   ///< a row for this element and cycle was found
    bool complete = false; ///< element, device, cycle and performer are all known
    MeasureLists lists;
    /// Numbers of the family's columns, in their order; noValue until known.
    std::array<double, 2> values{{noValue, noValue}};

    // --- lists ----------------------------------------------------------------
    int loadElements(bool allBase);
    int loadCycles();
    int loadDevices();
    int loadPerformers();

    // --- matching: a MeasureCode each --------------------------------------------
    /// By namesMatch, each entry against the name, then the name against each
    /// entry; the first match in list order. A failure leaves no element.
    int setElementName(const QString& name);
    /// The id is kept also when the list lacks it.
    int setElementId(int id);
    /// The cycle that holds the date, from the records or else the database.
    int setDate(const QDateTime& shown);
    /// -1 clears, here and below.
    int setCycleId(int id);
    int setDeviceSerial(const QString& serial);
    int setDeviceId(int id);
    int setPerformerId(int id);

    // --- the row -------------------------------------------------------------------
    /// Fills the record from the row. measureNotFound when there is none.
    virtual int load(int id);
    /// Fills the record from a row of a result with the columns of the family's
    /// `select`; the measure's id is not among them.
    void take(const sql::Result& rows, int row);
    /// The statements that write the record; empty for an incomplete one. Both
    /// set `complete`. A missing first value makes a refused statement: such a
    /// record is not fit to be stored.
    virtual Statement insertSql();
    virtual Statement updateSql(int id);
    /// The id of the stored measure of this element and cycle, -1 when there is
    /// none; sets `exists`.
    int findMeasureId();

    bool isComplete();
    /// What is missing, joined by the separator; "OK" when nothing is. Sets `complete`.
    QString problemText(const QString& separator);
    /// Noon of the middle day of the cycle: the date of a measure without one.
    /// Null while no cycle record is known.
    QDateTime cycleMiddle() const;

protected:
    /// Texts of the value columns for a statement.
    virtual QVector<Statement> valueTexts() const;
    /// Reads the value columns of the row, starting at `column`.
    virtual void readValues(const sql::Result& rows, int row, int column);
    /// A number; noValue when it is absent.
    static double numberAt(const sql::Result& rows, int row, int column);

private:
    int takeCycle(int id, const QDateTime& dateTime);
    Statement valueList() const;
    Statement columnList() const;

    const MeasureFamily* family_;
};
