// From the lines of a file to candidate measures: matching names, dates and
// serial numbers with what the database knows.
#pragma once

#include "exchange/element_scope.h"
#include "exchange/import_family.h"
#include "exchange/measure_table.h"

#include <functional>

struct ReadingTask {
    QStringList lines;
    QString separator;
    const ImportTemplate* format = nullptr;
    MeasureLists lists; ///< cycles, devices, performers
    ElementScope scope;
    int positionId = -1; ///< the measures'
};

/// `progress` is told the number of lines read, every family.progressStep lines
/// and at the end; false from it ends the reading with no measure at all.
MeasureTable::Measures readMeasures(const ImportFamily& family, const ReadingTask& task,
                                    const std::function<bool(int lines)>& progress = {});
