// What the passport of a position shows of its measures and their history.
#include "analysis/grading/attribute_texts.h"
#include "analysis/grading/forms/grade_items.h"
#include "analysis/grading/forms/position_passport.h"
#include "analysis/grading/position_history.h"
#include "base/placeholders.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"
#include "session/project_session.h"

using namespace formkit;

namespace {

constexpr int kElevation = 4, kTemperature = 2, kDepth = 1, kMillimetre = 1, kRatio = 5; // decimals

enum CycleValue { Number, Start, End };
QString cycleValue(int cycle, CycleValue value) { return session().cycles.value(cycle).value(value); }

QString cycleName(int cycle) { return fill("Цикл %1", cycleValue(cycle, Number)); }

void setTitles(QTableWidget* table, const QStringList& titles)
{
    table->setRowCount(0);
    table->setColumnCount(titles.size());
    table->setHorizontalHeaderLabels(titles);
}

void addRow(QTableWidget* table, const QVector<QTableWidgetItem*>& items)
{
    const int row = table->rowCount();
    table->insertRow(row);
    for (int column = 0; column < items.size(); ++column)
        table->setItem(row, column, items[column]);
}

QTableWidgetItem* countItem(int count) { return formkit::numberItem(count, 0); }

QTableWidgetItem* historyCycle(int cycle)
{
    return textItem(cycleName(cycle) + QLatin1Char('\n') + fill("от %1", cycleValue(cycle, Start)));
}

QTableWidgetItem* valueItem(double value, int decimals) { return numberItem(value, decimals, QStringLiteral("--")); }

void fitHistory(QTableWidget* table)
{
    fitColumns(table);
    table->resizeRowsToContents();
}

QVector<QPair<int, QString>> elementsOf(const char* elements, int positionId)
{
    const sql::Result rows = session().run(compose(
        "select element_id, element_name from %1 where position_id=%2 order by element_name", elements, positionId));
    QVector<QPair<int, QString>> found;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        found.append({rows.toInt(row, 0), rows.getvalue(row, 1)});
    return found;
}

QVector<int> idsOf(const QVector<QPair<int, QString>>& elements)
{
    QVector<int> ids;
    for (const auto& element : elements)
        ids.append(element.first);
    return ids;
}

} // namespace

int PositionPassport::baseCycle() const
{
    const QVector<int>& order = session().cycleOrder;
    return order.contains(session().baseCycleId) ? session().baseCycleId : order.value(0, -1);
}

void PositionPassport::showCounts()
{
    const MeasureCounts counts = loadMeasureCounts(positionId_);
    QStringList titles{QStringLiteral("Элементы")};
    for (int cycle : session().cycleOrder)
        titles << fill("Цикл %1 %2-%3", cycleValue(cycle, Number), cycleValue(cycle, Start), cycleValue(cycle, End));
    setTitles(counts_, titles);
    const auto add = [this](const char* family, const QMap<int, int>& ofCycles) {
        QVector<QTableWidgetItem*> items{textItem(QString::fromUtf8(family))};
        for (int cycle : session().cycleOrder)
            items << countItem(ofCycles.value(cycle));
        addRow(counts_, items);
    };
    add("Деформационные марки", counts.marks);
    add("Термоскважины", counts.wells);
    fitColumns(counts_);
}

void PositionPassport::showMarks()
{
    marks_ = elementsOf("dm_elements", positionId_);
    markCount_->setText(fill("Всего %1", marks_.size()));
    QStringList titles{QStringLiteral("Имя")};
    for (int cycle : session().cycleOrder)
        titles << cycleName(cycle);
    setTitles(markTable_, titles);
    const QMap<int, QMap<int, double>> measures = loadMarkMeasures(idsOf(marks_));
    for (const auto& [id, name] : marks_) {
        QVector<QTableWidgetItem*> items{textItem(name)};
        const QMap<int, double> ofMark = measures.value(id);
        for (int cycle : session().cycleOrder)
            items << valueItem(ofMark.value(cycle, PositionAttributes::none), kElevation);
        addRow(markTable_, items);
    }
    fitColumns(markTable_);
}

void PositionPassport::showWells()
{
    wells_ = elementsOf("ts_elements", positionId_);
    wellCount_->setText(fill("Всего %1", wells_.size()));
    setTitles(wellTable_,
              {QStringLiteral("Имя"), QStringLiteral("Дата"),
               fill("Ср.Взеш.\n%1 - %2 м", numberOrDashes(attributes_.deepMin, kDepth),
                    numberOrDashes(attributes_.deepMax, kDepth)),
               fill("Tz\n%1 м", numberOrDashes(attributes_.baseDepth, kDepth))});
    QMap<int, WellMeasure> measures;
    for (const WellMeasure& measure : loadWellMeasures(idsOf(wells_), chosenId(cycle_)))
        measures[measure.element] = measure;
    for (const auto& [id, name] : wells_) {
        const WellMeasure measure = measures.value(id);
        double mean = PositionAttributes::none, base = PositionAttributes::none;
        weightedMean(measure.log, attributes_.deepMin, attributes_.deepMax, false, mean, EqualBounds::Interpolate);
        interpolate(measure.log, attributes_.baseDepth, base);
        addRow(wellTable_,
               {textItem(name), textItem(measure.date.isEmpty() ? QStringLiteral("--") : measure.date),
                valueItem(mean, kTemperature), valueItem(base, kTemperature)});
    }
    fitColumns(wellTable_);
}

void PositionPassport::showThermalHistory()
{
    setTitles(thermal_,
              {QStringLiteral("Цикл"), QStringLiteral("Нет \nИзмерений"), QStringLiteral("Рабочие"),
               QStringLiteral("Ограниченно \nРабочие I"), QStringLiteral("Ограниченно \nРабочие II"),
               QStringLiteral("Нерабочие"), QStringLiteral("Т-ра "), QStringLiteral("Состояние\n грунтов")});
    for (const ThermalCycle& told : thermalHistory(attributes_)) {
        QVector<QTableWidgetItem*> items{historyCycle(told.cycle)};
        for (Grade grade : {Grade::NoMeasures, Grade::Normal, Grade::Limited, Grade::LimitedII, Grade::Fail})
            items << countItem(told.wells[size_t(grade)]);
        items << valueItem(told.temperature, kTemperature)
              << gradeItem(told.grade, thermalRemark(attributes_, told.wells));
        addRow(thermal_, items);
    }
    fitHistory(thermal_);
}

void PositionPassport::showDeformationHistory()
{
    const int base = baseCycle();
    base_->setText(base == -1 ? QString() : fill("Относительно исходного цикла: %1", cycleName(base)));
    // The doubled letter of the fourth title is the users' own.
    setTitles(deformation_,
              {QStringLiteral("Цикл"), QStringLiteral("Нет \nИзмерений"), QStringLiteral("Рабочие"),
               QStringLiteral("Оограниченно \nРабочие"), QStringLiteral("Нерабочие"), QStringLiteral("Осадка, мм"),
               QStringLiteral("Состояние"), QStringLiteral("Отн. осадка"), QStringLiteral("Состояние \n деформ.")});
    for (const DeformationCycle& told : deformationHistory(attributes_, base)) {
        QVector<QTableWidgetItem*> items{historyCycle(told.cycle)};
        for (Grade grade : {Grade::NoMeasures, Grade::Normal, Grade::Limited, Grade::Fail})
            items << countItem(told.marks[size_t(grade)]);
        items << valueItem(told.settlement * 1000.0, kMillimetre)
              << gradeItem(told.settlementGrade, settlementRemark(attributes_, told.marks))
              << valueItem(told.relative, kRatio) << gradeItem(told.relativeGrade);
        addRow(deformation_, items);
    }
    fitHistory(deformation_);
}
