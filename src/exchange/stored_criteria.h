// What the import's checks ask of the database. A file asks the same of the
// same wells thousands of times over, so answers are kept until forget().
#pragma once

#include "exchange/work_step.h"

#include <QHash>
#include <QPair>
#include <QString>
#include <QVector>
#include <limits>

/// What a position demands; a missing number is infinite.
struct PositionNorms {
    bool found = false;
    double settlement = std::numeric_limits<double>::infinity(); ///< the greatest mean settlement, cm
    double depthFrom = std::numeric_limits<double>::infinity();  ///< depths of the thermal criterion, m
    double depthTo = std::numeric_limits<double>::infinity();
};

/// The value stored for the cycle before.
struct PreviousMeasure {
    enum State { Failed, None, Found };
    State state = None;
    QString text; ///< empty when absent
};

/// An element and a cycle.
using MeasureKey = QPair<int, int>;

class StoredCriteria {
public:
    PositionNorms norms(int positionId);
    /// `statement` has the value in its first column; %1 is the element, %2 the cycle.
    PreviousMeasure previous(const char* statement, int elementId, int cycleId);
    /// Asks for many at once what previous() would ask for one by one; over a slow link the
    /// round trips are what takes the time. False once the step has stopped it.
    bool readAhead(const char* statement, const QVector<MeasureKey>& wanted, const WorkStep& step = {});
    void forget();

private:
    QHash<int, PositionNorms> norms_;
    QHash<MeasureKey, PreviousMeasure> previous_;
};
