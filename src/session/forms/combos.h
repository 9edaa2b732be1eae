#pragma once
// Combo boxes over the session's reference lists. Entries are added behind
// those that the box has.

class QComboBox;
class QString;

/// The four values of a cycle joined by the separator; the data is the id.
void fillCycleCombo(QComboBox* combo, const QString& separator);
/// Date and name of a prediction joined by the separator; the data is the id.
void fillPredictionCombo(QComboBox* combo, const QString& separator);
/// The note of a state; the data is the state_id.
void fillStateCombo(QComboBox* combo);
