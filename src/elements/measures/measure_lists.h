// The lists by which a measure finds its ids: elements, cycles, devices,
// performers. Copies share their data, so the rows of an import table read the
// lists once and hand them round.
#pragma once

#include <QDate>
#include <QString>
#include <QVector>

/// What a combo shows and what it stands for.
struct ListEntry {
    QString text;
    int id = -1;
};
using EntryList = QVector<ListEntry>;

struct CycleRecord {
    int id = -1;
    QString number;
    QDate first, last; ///< invalid where the database holds no date
    QString description;

    /// Both ends belong to the cycle; one without an end holds no date.
    bool holds(const QDate& date) const;
};

struct MeasureLists {
    EntryList elements;   ///< the name
    EntryList cycles;     ///< number | first day | last day | description
    EntryList devices;    ///< serial | description
    EntryList performers; ///< full name | name
    QVector<CycleRecord> cycleRecords;
};

/// Codes of the operations on measures.
enum MeasureCode {
    measureOk = 0,
    measureNoConnection = 5, ///< or the query of a list failed
    measureNoElement = 7,    ///< name not found
    measureNoCycle = 8,
    measureNoDevice = 9,  ///< serial not found
    measureNotFound = 11, ///< id not in the list, or the row could not be read
};

/// Each replaces its list and returns measureOk, or measureNoConnection, which
/// leaves the list alone; a missing connection is also said on the console.
/// `positionId` scopes the elements unless `allBase`.
int loadElements(MeasureLists& lists, const QString& elementTable, int positionId, bool allBase);
int loadCycles(MeasureLists& lists);
int loadDevices(MeasureLists& lists);
int loadPerformers(MeasureLists& lists);

/// Where the id stands in the list; -1 when it does not.
int indexOfId(const EntryList& list, int id);

/// The serial that a device's entry starts with.
QString serialOf(const ListEntry& device);
