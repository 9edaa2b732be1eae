// How far marks have moved from a base cycle to a current one or to a forecast.
#pragma once

#include "analysis/maps/deformation_marks.h"
#include "analysis/maps/forms/map_dialog.h"

class EpochChoice;

class DeformationMapForm : public MapDialog {
    Q_OBJECT
public:
    explicit DeformationMapForm(QWidget* parent = nullptr);

    int levelMapId() const override { return session().deformationColormapId; }
    MapSubject subject() const override;
    void drawLabels(const geometry::PointList& points) const override;

protected:
    Loaded load(const MapProgress& progress) override;
    QString loadRemarks() const override;
    void showTables() override;
    bool mayAccept() override;

private:
    void showValues();
    void showMarks();

    EpochChoice* epochs_;
    DeformationMarks marks_;
    std::set<size_t> degenerate_; // numbers of rows
};
