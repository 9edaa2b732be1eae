// What the reading of a number leaves out. Such a number is taken as it was
// found, and its row is marked.
#pragma once

#include <QString>
#include <QVector>

enum NumberLoss {
    nothingLost = 0,
    signLost = 1,     ///< a minus of another kind, or one apart from the digits
    groupLost = 2,    ///< groups of thousands, or a second decimal sign
    exponentLost = 4, ///< "1.5e-3", "1,5·10-3"
    numberLost = 8,   ///< digits are there, and the cell was not read at all
};

enum class LossIn { Value, Second, Profile };

struct ReadingLoss {
    LossIn place;
    QString text; ///< Russian, for a tool tip
};

/// E.g. "«−1,5» прочитано как 1.5: не учтено — знак".
QString lossText(const QString& cell, double read, int losses);
