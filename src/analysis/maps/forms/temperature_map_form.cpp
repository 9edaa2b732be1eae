#include "analysis/maps/forms/temperature_map_form.h"

#include "analysis/maps/forms/state_filter_form.h"
#include "analysis/maps/position_contours.h"
#include "base/text.h"
#include "formkit/choices.h"
#include "session/project_session.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSaveFile>
#include <QSignalBlocker>
#include <QTableWidget>
#include <cmath>

namespace {

enum PointColumn { NameColumn, XColumn, YColumn, ValueColumn, UseColumn, PointColumnCount };
constexpr int kWellRole = Qt::UserRole;
constexpr int kNumberRole = Qt::UserRole + 1;
const QColor kInterpolated(0, 255, 0);
const QString kNoValue = QStringLiteral("--");

// Sorts by number where it holds one.
class NumberItem : public QTableWidgetItem {
public:
    NumberItem(const QString& text, double number) : QTableWidgetItem(text)
    {
        setData(kNumberRole, number);
        setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    }
    bool operator<(const QTableWidgetItem& other) const override
    {
        return data(kNumberRole).toDouble() < other.data(kNumberRole).toDouble();
    }
};

QString modeTitle(Sampling::Mode mode)
{
    switch (mode) {
    case Sampling::Elevation: return QStringLiteral("Температура\nна отметке");
    case Sampling::Average: return QStringLiteral("Средневзвешенная\nтемпература");
    case Sampling::Depth: break;
    }
    return QStringLiteral("Температура\nна глубине");
}

} // namespace

TemperatureMapForm::TemperatureMapForm(QWidget* parent) : QDialog(parent), ui_(this)
{
    setObjectName(QStringLiteral("TemperatureMapForm"));
    setWindowTitle(QStringLiteral("Построение карты температур"));
    states_ = session().stateFilter.keys();
    ui_.SelectedStatesLb->setText(stateNotes(states_));
    fillCycleCombo(ui_.MeasData, QStringLiteral(" - "));
    ui_.MeasData->setCurrentIndex(qMax(0, ui_.MeasData->findData(session().currentCycleId)));
    ui_.BoundLayer->addItem(QString());
    ui_.BoundLayer->addItems(layerNames());
    for (const auto& [id, name] : positionContours(session().currentPositionId))
        ui_.PositionContourList->addItem(name, id);
    connectControls();
    enableControls();
    reload();
}

void TemperatureMapForm::connectControls()
{
    const auto comboChanged = QOverload<int>::of(&QComboBox::currentIndexChanged);
    const auto spinChanged = QOverload<double>::of(&QDoubleSpinBox::valueChanged);
    connect(ui_.ByPosition, &QRadioButton::toggled, this, &TemperatureMapForm::choosePlace);
    connect(ui_.PositionContourList, comboChanged, this, &TemperatureMapForm::chooseContour);
    connect(ui_.BoundLayer, comboChanged, this, &TemperatureMapForm::chooseBorderLayer);
    connect(ui_.MeasData, comboChanged, this, &TemperatureMapForm::reload);
    for (QRadioButton* mode : {ui_.DeepSampling, ui_.HSampling, ui_.AverageSampling}) {
        connect(mode, &QRadioButton::toggled, this, [this](bool on) {
            if (on)
                chooseMode();
        });
    }
    for (QDoubleSpinBox* spin : {ui_.DeepSpin, ui_.IntervalBegin, ui_.IntervalEnd})
        connect(spin, spinChanged, this, &TemperatureMapForm::recompute);
    for (QCheckBox* box : {ui_.ToEndSamplihg, ui_.EndPoint}) {
        connect(box, &QCheckBox::toggled, this, [this] {
            enableControls();
            recompute();
        });
    }
    connect(ui_.StateFilterBtn, &QPushButton::clicked, this, &TemperatureMapForm::chooseStates);
    connect(ui_.ExportCSVBTN, &QPushButton::clicked, this, &TemperatureMapForm::exportCsv);
    connect(ui_.CopyClipBTN, &QPushButton::clicked, this, &TemperatureMapForm::copyToClipboard);
    connect(ui_.okButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_.cancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

void TemperatureMapForm::setBorder(const PickedBorder& border)
{
    ui_.PositionContourList->setEnabled(false);
    {
        const QSignalBlocker quiet(ui_.BoundLayer);
        ui_.BoundLayer->setCurrentText(border.layer);
    }
    takeBorder(border.vertices, border.layer);
}

void TemperatureMapForm::offerPositionContours()
{
    ui_.PositionContourList->setEnabled(true);
    chooseContour();
}

void TemperatureMapForm::takeBorder(std::optional<geometry::PointList> border, const QString& layer)
{
    border_ = std::move(border);
    borderLayer_ = layer;
    ui_.BoundStatus->setText(border_ ? QStringLiteral("Загружена") : QStringLiteral("Не загружена"));
    if (ui_.ByDataBase->isChecked())
        reload();
}

void TemperatureMapForm::chooseContour()
{
    if (ui_.PositionContourList->currentIndex() < 0)
        return;
    takeBorder(contourPoints(ui_.PositionContourList->currentData().toInt()), QString());
}

void TemperatureMapForm::chooseBorderLayer()
{
    const QString layer = ui_.BoundLayer->currentText();
    takeBorder(layer.isEmpty() ? std::nullopt : loadBoundaryFromLayer(layer), layer);
}

void TemperatureMapForm::choosePlace()
{
    enableControls();
    reload();
}

void TemperatureMapForm::enableControls()
{
    ui_.BoundLayer->setEnabled(ui_.ByDataBase->isChecked());
    ui_.EndPoint->setEnabled(mode() == Sampling::Depth);
    ui_.DeepSpin->setEnabled(mode() != Sampling::Average && !sampling().bottom);
    ui_.IntervalBegin->setEnabled(mode() == Sampling::Average);
    ui_.IntervalEnd->setEnabled(mode() == Sampling::Average && !ui_.ToEndSamplihg->isChecked());
    ui_.ToEndSamplihg->setEnabled(mode() == Sampling::Average);
}

Sampling::Mode TemperatureMapForm::mode() const
{
    if (ui_.HSampling->isChecked())
        return Sampling::Elevation;
    return ui_.AverageSampling->isChecked() ? Sampling::Average : Sampling::Depth;
}

Sampling TemperatureMapForm::sampling() const
{
    Sampling wanted;
    wanted.mode = mode();
    wanted.key = ui_.DeepSpin->value();
    wanted.from = ui_.IntervalBegin->value();
    wanted.to = ui_.IntervalEnd->value();
    wanted.toEnd = ui_.ToEndSamplihg->isChecked();
    wanted.bottom = ui_.EndPoint->isEnabled() && ui_.EndPoint->isChecked();
    return wanted;
}

WellSelection TemperatureMapForm::selection() const
{
    WellSelection wanted;
    wanted.byPosition = ui_.ByPosition->isChecked();
    wanted.positionId = session().currentPositionId;
    wanted.cycleId = ui_.MeasData->currentIndex() < 0 ? -1 : ui_.MeasData->currentData().toInt();
    wanted.border = border_.value_or(geometry::PointList());
    wanted.states = states_;
    return wanted;
}

void TemperatureMapForm::chooseStates()
{
    StateFilterForm form(states_, this);
    if (form.exec() != QDialog::Accepted)
        return;
    states_ = form.chosenStates();
    ui_.SelectedStatesLb->setText(stateNotes(states_));
    reload();
}

void TemperatureMapForm::chooseMode()
{
    enableControls();
    const bool elevation = mode() == Sampling::Elevation;
    if (mode() != Sampling::Average && elevation != elevationShown_) {
        const QSignalBlocker quiet(ui_.DeepSpin);
        keys_[elevationShown_] = ui_.DeepSpin->value();
        ui_.DeepSpin->setValue(keys_[elevation]);
        elevationShown_ = elevation;
    }
    showValues();
    recompute();
}

void TemperatureMapForm::reload()
{
    if (!wells_.load(selection()))
        ui_.StatusLabel->setText(QStringLiteral("Ошибка соединения с базой данных"));
    else if (ui_.ByDataBase->isChecked() && !border_)
        ui_.StatusLabel->setText(QStringLiteral("Укажите слой"));
    else
        ui_.StatusLabel->clear();
    startKeys();
    startInterval();
    showValues();
    recompute();
}

void TemperatureMapForm::startKeys()
{
    for (Sampling::Mode kind : {Sampling::Depth, Sampling::Elevation}) {
        const std::vector<double> keys = wells_.keys(kind);
        keys_[kind == Sampling::Elevation] = keys.empty() ? 0.0 : keys.front();
    }
    const QSignalBlocker quiet(ui_.DeepSpin);
    ui_.DeepSpin->setValue(keys_[elevationShown_]);
}

void TemperatureMapForm::startInterval()
{
    const std::vector<double> depths = wells_.keys(Sampling::Depth);
    const QSignalBlocker quietBegin(ui_.IntervalBegin);
    const QSignalBlocker quietEnd(ui_.IntervalEnd);
    ui_.IntervalBegin->setValue(depths.empty() ? 0.0 : depths.front());
    ui_.IntervalEnd->setValue(depths.empty() ? 0.0 : depths.back());
}

void TemperatureMapForm::recompute()
{
    wells_.sample(sampling());
    showPoints();
}

void TemperatureMapForm::showPoints()
{
    QTableWidget* table = ui_.PointData;
    table->setSortingEnabled(false);
    table->setColumnCount(PointColumnCount);
    table->setHorizontalHeaderLabels({QStringLiteral("Имя"), QStringLiteral("X"), QStringLiteral("Y"),
                                      modeTitle(mode()), QStringLiteral("Использовать")});
    table->setRowCount(int(wells_.rows.size()));
    for (int row = 0; row < table->rowCount(); ++row) {
        const WellRow& well = wells_.rows[size_t(row)];
        auto* name = new QTableWidgetItem(well.name);
        name->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        auto* use = new QTableWidgetItem;
        use->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        use->setCheckState(well.valid ? Qt::Checked : Qt::Unchecked);
        use->setData(kWellRole, row);
        table->setItem(row, NameColumn, name);
        table->setItem(row, XColumn, new NumberItem(fixed(well.x, 2), well.x));
        table->setItem(row, YColumn, new NumberItem(fixed(well.y, 2), well.y));
        table->setItem(
            row, ValueColumn,
            new NumberItem(well.valid ? fixed(well.value, 2) : kNoValue, well.valid ? well.value : -HUGE_VAL));
        table->setItem(row, UseColumn, use);
    }
    table->setSortingEnabled(true);
    table->resizeColumnsToContents();
    table->horizontalHeader()->setStretchLastSection(true);
}

void TemperatureMapForm::showValues()
{
    QTableWidget* table = ui_.ValuesData;
    const std::vector<double> keys = wells_.keys(mode());
    table->clear();
    table->setRowCount(int(keys.size()));
    table->setColumnCount(int(wells_.rows.size()));
    QStringList names;
    for (const WellRow& well : wells_.rows)
        names << well.name;
    table->setHorizontalHeaderLabels(names);
    QStringList headers;
    for (double key : keys)
        headers << fixed(key, 2);
    table->setVerticalHeaderLabels(headers);
    ui_.ValuesCorner->setText(mode() == Sampling::Elevation ? QStringLiteral("Отметка") : QStringLiteral("Глубина"));
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < table->columnCount(); ++column)
            showValueCell(row, column, keys[size_t(row)]);
    }
    table->resizeColumnsToContents();
}

void TemperatureMapForm::showValueCell(int row, int column, double key)
{
    const TemperatureLog& log = wells_.log(size_t(column), mode());
    const auto reading = log.find(key);
    double value = 0.0;
    auto* item = new QTableWidgetItem(kNoValue);
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (reading != log.end()) {
        item->setText(fixed(reading->second, 2));
    } else if (interpolate(log, key, value)) {
        item->setText(fixed(value, 2));
        item->setBackground(kInterpolated);
    }
    ui_.ValuesData->setItem(row, column, item);
}

geometry::PointList TemperatureMapForm::usedPoints() const
{
    geometry::PointList points;
    for (int row = 0; row < ui_.PointData->rowCount(); ++row) {
        const QTableWidgetItem* use = ui_.PointData->item(row, UseColumn);
        const WellRow& well = wells_.rows[size_t(use->data(kWellRole).toInt())];
        if (use->checkState() == Qt::Checked && well.valid && std::isfinite(well.value))
            points.push_back({well.x, well.y, well.value});
    }
    return points;
}

bool TemperatureMapForm::labelsWanted() const { return ui_.LabelsOutEnabled->isChecked(); }

// Rows of the table of values, each with its header first.
QString TemperatureMapForm::valuesText(QChar separator) const
{
    const QTableWidget* table = ui_.ValuesData;
    QString text;
    for (int row = 0; row < table->rowCount(); ++row) {
        QStringList cells{table->verticalHeaderItem(row)->text()};
        for (int column = 0; column < table->columnCount(); ++column)
            cells << table->item(row, column)->text();
        text += cells.join(separator) + QLatin1Char('\n');
    }
    return text;
}

void TemperatureMapForm::exportCsv()
{
    const QString path =
        QFileDialog::getSaveFileName(this, QStringLiteral("Экспорт в csv"), QString(), QStringLiteral("*.csv"));
    if (path.isEmpty())
        return;
    QSaveFile file(path);
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(valuesText(QLatin1Char(';')).toUtf8()) >= 0 && file.commit();
    if (!written)
        QMessageBox::warning(this, QStringLiteral("Внимание"), QStringLiteral("Не удалось записать файл ") + path);
}

void TemperatureMapForm::copyToClipboard() const { QApplication::clipboard()->setText(valuesText(QLatin1Char('\t'))); }
