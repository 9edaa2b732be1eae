#include "analysis/forecast/forms/dm_prediction_form.h"

#include "files/written_file.h"

#include "analysis/forecast/forms/device_choice.h"
#include "analysis/forecast/forms/dm_prediction_list_form.h"
#include "analysis/forecast/forms/scope_combos.h"
#include "analysis/forecast/prediction_chart.h"
#include "base/dates.h"
#include "base/placeholders.h"
#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/modal.h"
#include "formkit/progress_box.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"
#include "hostkit/console.h"

#include <QInputDialog>
#include <QSignalBlocker>
#include <QSplitter>
#include <algorithm>

using namespace formkit;

namespace {

constexpr int kCycleLength = 24; // characters of the cycle boxes

} // namespace

DMPredictionForm::DMPredictionForm(QWidget* parent)
    : QDialog(parent), scope_(new ScopeCombos(this)), day_(QDate::currentDate())
{
    nameForm(this, "DMPredictionForm", "Построение прогноза деформаций");
    layOut(this).column({
        choicePane(),
        growing(resultPane()),
        shortage_ = note("ShortageNote"),
        row({
            button("ExportBTN", "Экспорт", this, &DMPredictionForm::exportRows),
            button("WriteBTN", "Записать", this, &DMPredictionForm::store),
            stretch(),
            endButtons(this, {rejects("CloseBtn", "Закрыть")}),
        }),
    });
    resize(1366, 760);
    choose(baseCycle_, session().baseCycleId);
    if (!choose(currentCycle_, session().currentCycleId))
        currentCycle_->setCurrentIndex(currentCycle_->count() - 1);
    for (QComboBox* combo : {baseCycle_, currentCycle_})
        connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &DMPredictionForm::recompute);
    connect(scope_, &ScopeCombos::changed, this, &DMPredictionForm::reload);
    connect(date_, &QDateEdit::dateChanged, this, &DMPredictionForm::changeDate);
    connect(table_, &QTableWidget::itemChanged, this, &DMPredictionForm::drawChart);
    connect(band_, &QCheckBox::toggled, this, &DMPredictionForm::drawChart);
    reload();
}

Item DMPredictionForm::choicePane()
{
    return row({
        growing(group("Элементы")
                    .grid({
                        {"Проект", growing(scope_->combo(ScopeCombos::Project))},
                        {"Объект", scope_->combo(ScopeCombos::Object)},
                        {"Подобъект", scope_->combo(ScopeCombos::Subobject)},
                        {"Позиция", scope_->combo(ScopeCombos::Position)},
                    })),
        growing(group("Прогноз").grid({
            {"Исходный цикл",
             growing(baseCycle_ = narrowCombo("BaseCyclesCombo", kCycleLength, session().cycleEntries(" - ")))},
            {"Текущий цикл",
             currentCycle_ = narrowCombo("CurrentCyclesCombo", kCycleLength, session().cycleEntries(" - "))},
            {"Дата прогноза", date_ = dateEdit("PredictionDate", day_)},
            {"Имя прогноза",
             row({growing(name_ = edit("PredictionName", defaultForecastName(day_))),
                  tipped(button("ListPredictionsBTN", "Список...", this, &DMPredictionForm::showList),
                         "Сохранённые прогнозы")})},
        })),
    });
}

Item DMPredictionForm::resultPane()
{
    table_ = table("ElementsView");
    chart_ = named<QLabel>("ChartLabel");
    chart_->setAlignment(Qt::AlignCenter);
    // The picture follows the label, never the label the picture.
    chart_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    chart_->setMinimumSize(280, 160);
    auto* parts = named<QSplitter>("Parts", Qt::Vertical);
    parts->addWidget(table_);
    parts->addWidget(pane(column({
        row({heading_ = readOut("ChartHeading"), stretch(),
             band_ = tipped(check("BandCheck", "Полоса 95 %"),
                            "Границы, в которых с вероятностью 95 % окажется новое измерение")}),
        growing(chart_),
    })));
    parts->setChildrenCollapsible(false);
    parts->setSizes({240, 340});
    connect(parts, &QSplitter::splitterMoved, this, &DMPredictionForm::drawChart);
    return parts;
}

QVector<int> DMPredictionForm::cycles() const
{
    return session().cycleRange(chosenId(baseCycle_), chosenId(currentCycle_));
}

void DMPredictionForm::reload()
{
    {
        ProgressBox progress(this, "Загрузка измерений", QString());
        const bool loaded = loadMarks(scope_->scope(), marks_, [&progress](int done, int total) {
            return progress.step(done, total, fill("Марка %1 из %2", done, total));
        });
        if (!loaded)
            say("\nИзмерения марок не прочитаны: сервер отказал или не отвечает\n");
    }
    tellRepeated();
    {
        const QSignalBlocker quiet(table_);
        table_->setRowCount(0); // other marks: what was ticked is of the past
    }
    recompute();
}

void DMPredictionForm::tellRepeated() const
{
    for (const MarkMeasures& mark : marks_) {
        for (int cycle : mark.repeated)
            say(fill("\nМарка '%1' измерена в цикле %2 не один раз: взято последнее измерение\n", mark.name,
                     session().cycles.value(cycle).value(0)));
    }
}

void DMPredictionForm::recompute()
{
    const QVector<int> chosen = cycles();
    QStringList numbers;
    for (int cycle : chosen)
        numbers << session().cycles.value(cycle).value(0);
    QVector<bool> measures, trends; // what the user ticked stays
    for (int row = 0; row < table_->rowCount(); ++row) {
        measures << isChecked(row, ForecastColumn::Measures);
        trends << isChecked(row, ForecastColumn::Trend);
    }
    const bool sameRows = measures.size() == marks_.size();

    const QSignalBlocker quiet(table_);
    forecasts_.clear();
    shownCycles_ = chosen.size();
    const QStringList titles = forecastTitles(numbers);
    table_->setRowCount(0);
    table_->setColumnCount(titles.size());
    table_->setHorizontalHeaderLabels(titles);
    table_->setRowCount(marks_.size());
    for (int row = 0; row < marks_.size(); ++row) {
        forecasts_.append(forecastOf(marks_[row], chosen, date_->date()));
        addRow(row, chosen);
        if (sameRows && measures[row])
            table_->item(row, columnOf(ForecastColumn::Measures, shownCycles_))->setCheckState(Qt::Checked);
        if (sameRows && trends[row] && forecasts_[row].exists())
            table_->item(row, columnOf(ForecastColumn::Trend, shownCycles_))->setCheckState(Qt::Checked);
    }
    fitColumns(table_);
    const auto exists = [](const MarkForecast& forecast) { return forecast.exists(); };
    const auto without = forecasts_.size() - std::count_if(forecasts_.begin(), forecasts_.end(), exists);
    shortage_->setText(shortageText(int(without), forecasts_.size()));
    showHeading();
    drawChart();
}

void DMPredictionForm::addRow(int row, const QVector<int>& cycles)
{
    const QStringList cells = forecastCells(marks_[row], forecasts_[row], cycles);
    const int measures = columnOf(ForecastColumn::Measures, shownCycles_);
    const int trend = columnOf(ForecastColumn::Trend, shownCycles_);
    for (int column = 0; column < cells.size(); ++column) {
        QTableWidgetItem* item = column == measures || column == trend ? checkItem(false) : textItem(cells[column]);
        if (column > 0 && column != measures && column != trend)
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (column == trend && !forecasts_[row].exists())
            item->setFlags(Qt::NoItemFlags);
        table_->setItem(row, column, item);
    }
}

bool DMPredictionForm::isChecked(int row, ForecastColumn column) const
{
    const QTableWidgetItem* item = table_->item(row, columnOf(column, shownCycles_));
    return item && item->checkState() == Qt::Checked;
}

void DMPredictionForm::drawChart()
{
    DMPredictionChartJK chart;
    chart.setPictureSize(chart_->width(), chart_->height());
    int number = 0;
    for (int row = 0; row < table_->rowCount() && row < forecasts_.size(); ++row) {
        const bool measures = isChecked(row, ForecastColumn::Measures);
        const bool trend = isChecked(row, ForecastColumn::Trend);
        if (measures)
            chart.plotMeasures(marks_[row].name, forecasts_[row].samples, number);
        if (trend)
            chart.plotTrend(marks_[row].name, forecasts_[row], date_->date(), number);
        if (trend && band_->isChecked())
            chart.plotBand(forecasts_[row], date_->date(), number);
        number += measures || trend ? 1 : 0;
    }
    chart_->setPixmap(number > 0 ? chart.render(chart_->devicePixelRatioF()) : QPixmap());
}

void DMPredictionForm::changeDate(const QDate& day)
{
    // A name that the user gave stays.
    if (name_->text() == defaultForecastName(day_))
        name_->setText(defaultForecastName(day));
    day_ = day;
    recompute();
}

void DMPredictionForm::showHeading()
{
    heading_->setText(fill("%1 (%2)", defaultForecastName(date_->date()), scope_->text()));
}

void DMPredictionForm::store()
{
    bool given = false;
    NewPrediction prediction;
    prediction.name = QInputDialog::getText(this, "Сохранить прогноз", "Имя", QLineEdit::Normal, name_->text(), &given);
    const QVector<int> chosen = cycles();
    if (!given || prediction.name.isEmpty() || chosen.isEmpty())
        return;
    prediction.day = date_->date();
    prediction.beginCycle = chosen.first();
    prediction.endCycle = chosen.last();
    for (int row = 0; row < marks_.size(); ++row) {
        if (forecasts_[row].exists())
            prediction.marks.append({marks_[row].id, forecastText(forecasts_[row])});
    }
    if (prediction.marks.isEmpty())
        return warn(this, "Ни у одной марки нет прогноза: записывать нечего");
    QString problem;
    const bool stored = storePrediction(prediction, &problem);
    changed_ = true; // also what was stored in part is in the list
    say(stored ? fill("Прогоз '%1' сохранен в БД", prediction.name) : fill("Ошибка записи в БД %1", problem));
}

void DMPredictionForm::exportRows()
{
    const std::optional<QString> serial = askOver(this, &DeviceChoice::serial);
    if (!serial)
        return;
    const QString path = askFileToSave(this, {"Сохранить файл измерений", "csv (*.csv)"});
    if (path.isEmpty())
        return;
    QVector<ExportedForecast> rows;
    for (int row = 0; row < marks_.size(); ++row) {
        if (forecasts_[row].exists())
            rows.append({marks_[row].name, forecastText(forecasts_[row])});
    }
    QString problem;
    if (!saveFile(path, forecastCsv(rows, date_->date(), *serial).toUtf8(), &problem))
        warn(this, fill("Не удалось записать файл %1: %2", path, problem));
}

void DMPredictionForm::showList()
{
    DMPredictionListForm list(this);
    list.exec();
    changed_ = changed_ || list.hasDeleted();
}

void DMPredictionForm::reject() { done(changed_ ? QDialog::Accepted : QDialog::Rejected); }

void DMPredictionForm::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    drawChart();
}

// The layout settles the label's size when the dialog is shown.
void DMPredictionForm::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    drawChart();
}
