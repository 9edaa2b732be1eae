// The temperatures of one cycle: chooses it, and how a well's log becomes one number.
#pragma once

#include "analysis/maps/forms/map_dialog.h"
#include "analysis/maps/temperature_wells.h"

class SamplingPane;

class TemperatureMapForm : public MapDialog {
    Q_OBJECT
public:
    explicit TemperatureMapForm(QWidget* parent = nullptr);

    int levelMapId() const override { return session().temperatureColormapId; }

protected:
    bool load() override;
    void showTables() override;

private:
    void recompute();
    void showValues();
    QTableWidgetItem* valueItem(size_t well, double key) const;

    SamplingPane* sampling_;
    QComboBox* cycle_;
    TemperatureWells wells_;
};
