#include "elements/measures/forms/measured_families.h"

#include <QComboBox>
#include <algorithm>

formkit::Choices measuredFamilies()
{
    formkit::Choices choices;
    for (const MeasureFamily& family : measureFamilies())
        choices.append({family.listName, family.key});
    return choices;
}

const MeasureFamily& chosenMeasureFamily(const QComboBox* combo)
{
    const QString key = combo->currentData().toString();
    const auto& rows = measureFamilies();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const MeasureFamily& row) { return row.key == key; });
    return found == rows.end() ? *rows.begin() : *found;
}
