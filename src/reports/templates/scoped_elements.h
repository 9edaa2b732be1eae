#pragma once
// The elements of a part of the project, in the order of a report.

#include "base/statement.h"
#include "reports/templates/report_parameters.h"

enum class ElementQuery {
    Names,          ///< element_id, element_name, position
    WithAttributes, ///< the same and temperature_h
    Lists,          ///< all that a list of elements tells; %3 is the table of types
    States,         ///< element_id, element_name, position, state_id
};

/// Columns that all the queries but Lists begin with.
enum ScopedElementColumn { ScopedId, ScopedName, ScopedPosition };

/// Empty for an unknown level.
Statement elementStatement(ElementQuery query, const ProjectPart& part, const QString& elementTable,
                           const QString& typeTable = QString());

/// Elements without a satisfactory inspection in the cycle; the columns of States.
Statement defectiveStatement(const ProjectPart& part, const QString& elementTable, const QString& inspectionTable,
                             int cycleId);
