#pragma once
// The lines that the database keeps for positions, drawn again.

#include <QVector>

struct StoredLines {
    bool contours = true;
    bool deformationProfiles = true;
    bool temperatureProfiles = true;
};

/// Draws the wanted lines of the positions as open polylines on the current
/// layer. What cannot be read is passed over.
void drawStoredLines(const QVector<int>& positions, const StoredLines& wanted);
