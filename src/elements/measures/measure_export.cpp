#include "elements/measures/measure_export.h"

#include "base/dates.h"
#include "base/text.h"

#include <cmath>

namespace {

struct ExportFormat {
    FamilyKey family;
    QStringList header;
    QVector<int> decimals; ///< of the numbers
    bool profile = false;  ///< a column a depth; the serial stands before the date
};

const ExportFormat* exportFormat(FamilyKey family)
{
    static const FamilyTable<ExportFormat, 4> rows = {
        {FamilyKey::Dm, {"Имя", "Дата", "Отметка", "SN прибора"}, {3}},
        {FamilyKey::Rp, {"Имя", "Дата", "Отметка", "Точность", "SN прибора"}, {4, 2}},
        {FamilyKey::Ggs, {"Имя", "Дата", "Уровень ГВ", "SN прибора"}, {2}},
        {FamilyKey::Ts, {"Имя", "Серийный номер", "Дата замера", "Время замера", "Темп.возд"}, {2}, true},
    };
    return rows.find(family);
}

QString number(double value, int decimals) { return std::isfinite(value) ? fixed(value, decimals) : QString(); }

QString dayOf(const BaseMeasure& measure) { return dateText(measure.date, QStringLiteral("dd.MM.yyyy")); }

QString lineOf(const QStringList& fields) { return fields.join(QLatin1Char(';')) + QLatin1Char('\n'); }

QString depthTitle(double depth)
{
    const QString text = fixed(depth, 1);
    return text.endsWith(QLatin1String(".0")) ? text.chopped(2) : text;
}

QString numbersText(const ExportFormat& format, const Measures& measures)
{
    QString text = lineOf(format.header);
    for (const auto& measure : measures) {
        QStringList fields = {measure->elementName, dayOf(*measure)};
        for (int i = 0; i < format.decimals.size(); ++i)
            fields.append(number(measure->values[size_t(i)], format.decimals[i]));
        text += lineOf(fields << measure->deviceSerial);
    }
    return text;
}

QString profilesText(const ExportFormat& format, const Measures& measures)
{
    QString text;
    QVector<double> depthsBefore;
    bool first = true;
    for (const auto& measure : measures) {
        QVector<double> depths;
        QStringList titles, temperatures;
        for (const auto& [depth, temperature] : logOf(static_cast<const TSMeasure&>(*measure).profile)) {
            depths.append(depth);
            titles.append(depthTitle(depth));
            temperatures.append(number(temperature, 2));
        }
        if (first || depths != depthsBefore)
            text += lineOf(format.header + titles);
        first = false;
        depthsBefore = depths;
        text += lineOf(QStringList{measure->elementName, measure->deviceSerial, dayOf(*measure),
                                   QStringLiteral("12:00:00"), number(measure->values[0], format.decimals[0])}
                       + temperatures);
    }
    return text;
}

} // namespace

bool isExported(FamilyKey family) { return exportFormat(family) != nullptr; }

std::optional<Measures> loadMeasures(const MeasureFamily& family, const CycleRows& rows, const QVector<int>& cycles,
                                     const ElementProgress& progress)
{
    MeasureLists lists;
    loadElements(lists, family.elementTable, -1, true);
    loadCycles(lists);
    loadDevices(lists);
    loadPerformers(lists);
    Measures measures;
    int done = 0;
    for (const CycleRow& row : rows) {
        if (progress && !progress(done++, int(rows.size())))
            return {};
        for (int cycle : cycles) {
            if (row.idIn(cycle) == -1)
                continue;
            measures.push_back(makeMeasure(family.family, lists));
            if (measures.back()->load(row.idIn(cycle)) != measureOk)
                measures.pop_back();
        }
    }
    return measures;
}

QString exportText(FamilyKey family, const Measures& measures)
{
    const ExportFormat* format = exportFormat(family);
    if (!format)
        return {};
    return format->profile ? profilesText(*format, measures) : numbersText(*format, measures);
}
