// What the combo boxes and labels of an import show. The boxes are filled anew
// and keep their choice where it is still there.
#pragma once

#include <QString>

class QComboBox;

void fillCycles(QComboBox* combo);
void fillDevices(QComboBox* combo);
void fillPerformers(QComboBox* combo);
void fillPositions(QComboBox* combo);

/// Project, object, subobject and position joined by "/".
QString positionLabel(int positionId);
