#include "formkit/choices.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace formkit {

Choices choicesOf(const sql::Result& rows, int texts, const QString& separator)
{
    Choices choices;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        QStringList parts;
        for (int column = 1; column <= texts; ++column)
            parts.append(rows.getvalue(row, column));
        choices.append({parts.join(separator), rows.toInt(row, 0)});
    }
    return choices;
}

void addChoices(QComboBox* combo, const Choices& choices)
{
    for (const ComboEntry& choice : choices)
        combo->addItem(choice.text, choice.data);
}

void setChoices(QComboBox* combo, const Choices& choices, Otherwise otherwise)
{
    const QSignalBlocker quiet(combo);
    const QVariant chosen = combo->currentData();
    combo->clear();
    addChoices(combo, choices);
    const int before = chosen.isValid() ? combo->findData(chosen) : -1;
    combo->setCurrentIndex(otherwise == Otherwise::First ? qMax(0, before) : before);
}

bool choose(QComboBox* combo, const QVariant& id)
{
    const int index = combo->findData(id);
    if (index < 0)
        return false;
    combo->setCurrentIndex(index);
    return true;
}

int chosenId(const QComboBox* combo, int none)
{
    return combo->currentIndex() < 0 ? none : combo->currentData().toInt();
}

} // namespace formkit

void fillCycleCombo(QComboBox* combo, const QString& separator)
{
    formkit::addChoices(combo, session().cycleEntries(separator));
}

void fillPredictionCombo(QComboBox* combo, const QString& separator)
{
    formkit::addChoices(combo, session().predictionEntries(separator));
}

void fillStateCombo(QComboBox* combo) { formkit::addChoices(combo, session().stateEntries()); }
