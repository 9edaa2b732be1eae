// The norms of a position in words.
#pragma once

#include "analysis/grading/grades.h"

#include <QString>

/// "Глубина 3.0 м." where both depths are the same, else the interval.
QString depthText(const PositionAttributes& attributes);
/// The limit of settlement in centimetres.
QString settlementText(const PositionAttributes& attributes);
/// "ID: 5"; "ID: --" without a row.
QString attributeIdText(const PositionAttributes& attributes);

/// From where to where a grade reaches; empty for one that the side does not have.
QString thermalRange(Grade grade, const PositionAttributes& attributes);
QString settlementRange(Grade grade, const PositionAttributes& attributes);
QString relativeRange(Grade grade, const PositionAttributes& attributes);

/// A norm as it stands in a list; an empty limit is "inf".
QString normText(const Norm& norm);

/// The number, or "--" where it is not set.
QString numberOrDashes(double number, int decimals, double factor = 1.0);

/// Why a side of a position could not be graded, in a sentence; empty where nothing is missing.
QString thermalRemark(const PositionAttributes& attributes, const GradeCounts& wells);
QString settlementRemark(const PositionAttributes& attributes, const GradeCounts& marks);
QString relativeRemark(const PositionAttributes& attributes, const GradeCounts& profiles);
