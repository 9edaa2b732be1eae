// The temperatures of one cycle: chooses it, and how a well's log becomes one number.
#pragma once

#include "analysis/maps/forms/well_map_dialog.h"
#include "analysis/maps/temperature_wells.h"

class TemperatureMapForm : public WellMapDialog {
    Q_OBJECT
public:
    explicit TemperatureMapForm(QWidget* parent = nullptr);

    int levelMapId() const override { return session().temperatureColormapId; }
    MapSubject subject() const override;

protected:
    Loaded load(const MapProgress& progress) override;
    std::vector<double> keys(Sampling::Mode mode) const override { return wells_.keys(mode); }
    QStringList wellNames() const override;
    QTableWidgetItem* valueItem(size_t well, Sampling::Mode mode, double key) const override;
    QString keyCaption(Sampling::Mode mode) const override;
    void showSampled(const Sampling& sampling) override;

private:
    QComboBox* cycle_;
    TemperatureWells wells_;
};
