#include "analysis/maps/forms/well_map_dialog.h"

#include "analysis/maps/forms/sampling_pane.h"
#include "base/text.h"

using namespace formkit;

namespace {

constexpr int kCycleLength = 20; // characters that the box of cycles has room for

} // namespace

QComboBox* cycleBox(const char* name, int chosen)
{
    QComboBox* cycles = narrowCombo(name, kCycleLength, session().cycleEntries(" - "));
    choose(cycles, chosen);
    return cycles;
}

WellMapDialog::WellMapDialog(const MapWords& words, QWidget* parent)
    : MapDialog(words, parent), sampling_(new SamplingPane)
{ }

void WellMapDialog::layOutWells(const std::vector<Cells>& rows, const std::vector<QComboBox*>& cycles)
{
    layOutMap(rows, sampling_);
    for (QComboBox* cycle : cycles)
        connect(cycle, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &WellMapDialog::reload);
    connect(sampling_, &SamplingPane::modeChanged, this, &WellMapDialog::showTables);
    connect(sampling_, &SamplingPane::changed, this, &WellMapDialog::recompute);
}

void WellMapDialog::startSampling() { sampling_->startWith(keys(Sampling::Depth), keys(Sampling::Elevation)); }

void WellMapDialog::showTables()
{
    showValues();
    recompute();
}

QString WellMapDialog::depthText() const { return samplingText(sampling_->sampling()); }

void WellMapDialog::recompute() { showSampled(sampling_->sampling()); }

void WellMapDialog::showValues()
{
    const Sampling::Mode mode = sampling_->mode();
    const std::vector<double> rows = keys(mode);
    const QStringList names = wellNames();
    QStringList titles;
    for (double key : rows)
        titles << fixed(key, 2);
    QTableWidget* table = values();
    table->clear();
    table->setRowCount(titles.size());
    table->setColumnCount(names.size());
    table->setHorizontalHeaderLabels(names);
    table->setVerticalHeaderLabels(titles);
    setValuesCorner(keyCaption(mode));
    for (int row = 0; row < titles.size(); ++row) {
        for (int column = 0; column < names.size(); ++column)
            table->setItem(row, column, valueItem(size_t(column), mode, rows[size_t(row)]));
    }
    table->resizeColumnsToContents();
}
