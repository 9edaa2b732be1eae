#include "session/forms/combos.h"

#include "session/project_session.h"

#include <QComboBox>

namespace {

void addEntries(QComboBox* combo, const QVector<ComboEntry>& entries)
{
    for (const ComboEntry& entry : entries)
        combo->addItem(entry.text, entry.data);
}

} // namespace

void fillCycleCombo(QComboBox* combo, const QString& separator)
{
    addEntries(combo, session().cycleEntries(separator));
}

void fillPredictionCombo(QComboBox* combo, const QString& separator)
{
    addEntries(combo, session().predictionEntries(separator));
}

void fillStateCombo(QComboBox* combo) { addEntries(combo, session().stateEntries()); }
