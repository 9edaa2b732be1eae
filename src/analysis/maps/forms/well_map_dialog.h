// A map of thermal wells: how their logs become numbers, and the table of what
// they hold at every depth or elevation. An heir calls layOutWells() and start().
#pragma once

#include "analysis/maps/forms/map_dialog.h"
#include "analysis/maps/well_logs.h"

class SamplingPane;

class WellMapDialog : public MapDialog {
    Q_OBJECT
protected:
    WellMapDialog(const MapWords& words, QWidget* parent);

    // The rows of cycles; every box of them reads the wells anew.
    void layOutWells(const std::vector<formkit::Cells>& rows, const std::vector<QComboBox*>& cycles);

    // The wells have been read: the pane starts with their keys.
    void startSampling();
    void showTables() override;

    // --- what was read ---
    virtual std::vector<double> keys(Sampling::Mode mode) const = 0;
    virtual QStringList wellNames() const = 0;
    virtual QTableWidgetItem* valueItem(size_t well, Sampling::Mode mode, double key) const = 0;
    // What the row titles of the values hold.
    virtual QString keyCaption(Sampling::Mode mode) const = 0;
    // "6,00 м" and the like, as the pane stands.
    QString depthText() const;
    // Makes numbers of the logs and shows the points.
    virtual void showSampled(const Sampling& sampling) = 0;

private:
    void showValues();
    void recompute();

    SamplingPane* sampling_;
};

// The box of cycles in a map's group of places.
QComboBox* cycleBox(const char* name, int chosen);
