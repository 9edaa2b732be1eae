#include "analysis/maps/forms/deformation_map_form.h"

#include "analysis/maps/build_messages.h"
#include "analysis/maps/forms/epoch_choice.h"
#include "analysis/maps/value_labels.h"
#include "base/placeholders.h"
#include "base/text.h"
#include "formkit/boxes.h"

#include <QHeaderView>

using namespace formkit;

namespace {

constexpr int kMetreDecimals = 4; // of levelled elevations
constexpr int kDecimals = 2;      // of coordinates and millimetres

const char* const kDegenerate =
    "Набор данных содержит вырожденные точки, их использование может привести к непредсказуемым результатам\n"
    " Снимите отключите выделенные точки для корректной работы.\n"
    "<Игнорировать> Продолжить выполнение.\n"
    "<Возврат> Отключить точки. \n"
    "<Закрыть> Закрыть окно.";
enum DegenerateAnswer { Ignore, Return, Close };

} // namespace

DeformationMapForm::DeformationMapForm(QWidget* parent)
    : MapDialog(
        {"DeformationMapForm", "Построение карты деформаций", "Деформационные марки", "", WithTitles, CellsOnly},
        parent),
      epochs_(
          new EpochChoice({"BaseCycleCombo", "Исходный цикл измерений", "MeasData", "Текущий цикл измерений"}, this))
{
    layOutMap(epochs_->rows(), nullptr, {{"Позиция", readOut("Position", session().currentPositionName)}});
    values()->verticalHeader()->hide();
    connect(epochs_, &EpochChoice::changed, this, &DeformationMapForm::reload);
    start();
}

MapSubject DeformationMapForm::subject() const
{
    return {QStringLiteral("Карта деформаций, мм"), fill("%1 … %2", epochs_->baseText(), epochs_->currentShown()),
            QString()};
}

Loaded DeformationMapForm::load(const MapProgress& progress)
{
    const Loaded loaded = marks_.load(place(), epochs_->epochs(), progress);
    degenerate_ = degenerateMarks(marks_.rows);
    return loaded;
}

QString DeformationMapForm::loadRemarks() const
{
    QStringList names;
    for (const DeformationRow& mark : marks_.rows)
        names << mark.name;
    QStringList lines = {repeatedNote(marks_.repeated(), QStringLiteral("перемещения нет"))};
    if (!degenerate_.empty())
        lines << QStringLiteral("Вырожденные точки (ближе 0,1 м друг к другу): %1.")
                     .arg(pointNames({degenerate_.begin(), degenerate_.end()}, names));
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

void DeformationMapForm::showTables()
{
    showValues();
    showMarks();
}

void DeformationMapForm::showValues()
{
    const Epochs epochs = epochs_->epochs();
    const QString current =
        epochs.forecast ? forecastColumn(forecastName(*epochs.forecast)) : cycleColumn(epochs_->currentText());
    const QStringList titles = {"Имя", "X", "Y", cycleColumn(epochs_->baseText()), current, "Перемещение(мм)"};
    QTableWidget* table = values();
    table->setSortingEnabled(false);
    table->setColumnCount(titles.size());
    table->setHorizontalHeaderLabels(titles);
    table->setRowCount(int(marks_.rows.size()));
    int row = 0;
    for (const DeformationRow& mark : marks_.rows) {
        int column = 0;
        table->setItem(row, column++, textItem(mark.name));
        for (const double coordinate : {mark.x, mark.y})
            table->setItem(row, column++, numberItem(coordinate, kDecimals));
        for (const double elevation : {mark.base, mark.current})
            table->setItem(row, column++, numberItem(elevation, kMetreDecimals));
        table->setItem(row++, column, numberItem(mark.movement, kDecimals));
    }
    table->setSortingEnabled(true);
    fitColumns(table);
}

void DeformationMapForm::showMarks()
{
    std::vector<MapPoint> points;
    for (const DeformationRow& mark : marks_.rows) {
        const bool degenerate = degenerate_.count(points.size()) > 0;
        points.push_back(
            {mark.name, mark.x, mark.y, {mark.current, mark.movement}, mark.movement, mark.valid, degenerate});
    }
    showPoints({QStringLiteral("Абс.отметка"), QStringLiteral("Перемещение(мм)")}, points);
}

bool DeformationMapForm::mayAccept()
{
    if (degenerate_.empty())
        return true;
    const int answer = ask(this, kDegenerate, {{"Игнорировать", true}, {"Возврат", false}, {"Закрыть", false}}, Return);
    if (answer == Close)
        reject();
    return answer == Ignore;
}

void DeformationMapForm::drawLabels(const geometry::PointList& /*points*/) const
{
    std::vector<LabelPair> pairs;
    for (const size_t row : usedRows()) {
        const DeformationRow& mark = marks_.rows[row];
        pairs.push_back({{mark.x, mark.y, 0.0}, fixed(mark.current, kMetreDecimals), fixed(mark.movement, kDecimals)});
    }
    drawLabelPairs(pairs);
}
