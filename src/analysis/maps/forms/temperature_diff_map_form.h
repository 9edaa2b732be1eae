// How the temperature has changed from a base cycle to a current one.
#pragma once

#include "analysis/maps/forms/well_map_dialog.h"
#include "analysis/maps/temperature_differences.h"

class TemperatureDiffMapForm : public WellMapDialog {
    Q_OBJECT
public:
    explicit TemperatureDiffMapForm(QWidget* parent = nullptr);

    int levelMapId() const override { return session().dynamicTemperatureColormapId; }
    MapSubject subject() const override;
    void drawLabels(const geometry::PointList& points) const override;

protected:
    Loaded load(const MapProgress& progress) override;
    QString loadRemarks() const override;
    std::vector<double> keys(Sampling::Mode mode) const override { return wells_.keys(mode); }
    QStringList wellNames() const override;
    QTableWidgetItem* valueItem(size_t well, Sampling::Mode mode, double key) const override;
    QString keyCaption(Sampling::Mode mode) const override;
    void showSampled(const Sampling& sampling) override;

private:
    QComboBox* base_;
    QComboBox* current_;
    TemperatureDifferences wells_;
};
