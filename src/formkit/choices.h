#pragma once
// What a combo box offers: texts, each with the id that it stands for.

#include "session/project_session.h"

class QComboBox;

namespace formkit {

using Choices = QVector<ComboEntry>;

/// A choice a row: the key is the first column, the text the next `texts`
/// columns joined. None when the statement was refused.
Choices choicesOf(const sql::Result& rows, int texts = 1, const QString& separator = QStringLiteral(" - "));

/// Adds the choices behind those that the box has.
void addChoices(QComboBox* combo, const Choices& choices);

/// What is chosen when the choice before is gone.
enum class Otherwise { First, None };
/// Offers these choices alone, without a signal; what was chosen stays chosen.
void setChoices(QComboBox* combo, const Choices& choices, Otherwise otherwise = Otherwise::First);

/// Chooses the id; an unknown one leaves the choice and returns false.
bool choose(QComboBox* combo, const QVariant& id);

/// The chosen id; `none` when nothing is chosen.
int chosenId(const QComboBox* combo, int none = -1);

} // namespace formkit

/// The four values of a cycle joined by the separator; the data is the id.
void fillCycleCombo(QComboBox* combo, const QString& separator);
/// Date and name of a prediction joined by the separator; the data is the id.
void fillPredictionCombo(QComboBox* combo, const QString& separator);
/// The note of a state; the data is the state_id.
void fillStateCombo(QComboBox* combo);
