#pragma once
// Temperatures of wells by depth: of one cycle, or the difference of two.

#include "elements/measures/temperature_log.h"
#include "reports/docx/docx_table.h"
#include "reports/templates/report_parameters.h"

struct TemperatureTable {
    struct Row {
        QString name;
        QString position;
        QString date;          ///< "----" without a measure; of differences that of the base
        QString serial;        ///< "-" without a measure; of differences the date of the current one
        TemperatureLog values; ///< degrees Celsius by depth
    };
    QVector<Row> rows;
    bool differences = false;

    /// All depths that occur in any row.
    QVector<double> depths() const;
};

/// Each reads the wells of the part; false when the user stopped it.
bool loadTemperatures(const ReportParameters& parameters, TemperatureTable& into);
/// The current cycle less the base one, at depths that both have.
bool loadTemperatureDifferences(const ReportParameters& parameters, TemperatureTable& into);

enum class Sections { None, ByPosition };
/// Columns: number, name, date, serial, then a depth each; in the template one
/// depth stands, and the lowest heading row receives the depths.
void fillTemperatureTable(DocxTable& table, const TemperatureTable& data, const LevelMap& map, Sections sections);
