// Chooses the wells, the cycle and how a well's log becomes one number.
#pragma once

#include "analysis/maps/forms/temperature_map_widgets.h"
#include "analysis/maps/layer_input.h"
#include "analysis/maps/temperature_wells.h"

#include <QDialog>
#include <array>
#include <optional>

class TemperatureMapForm : public QDialog {
    Q_OBJECT
public:
    explicit TemperatureMapForm(QWidget* parent = nullptr);

    // A line picked in the drawing becomes the border.
    void setBorder(const PickedBorder& border);
    // No line was picked: the position's contours are offered, the first one is taken.
    void offerPositionContours();

    // The checked wells with a finite value, z being the value.
    geometry::PointList usedPoints() const;
    const std::optional<geometry::PointList>& border() const { return border_; }
    QString borderLayer() const { return borderLayer_; }
    bool labelsWanted() const;

private:
    void connectControls();
    void choosePlace();
    void chooseContour();
    void chooseBorderLayer();
    void chooseMode();
    void chooseStates();
    void reload();
    void recompute();
    void enableControls();
    void takeBorder(std::optional<geometry::PointList> border, const QString& layer);
    Sampling::Mode mode() const;
    Sampling sampling() const;
    WellSelection selection() const;
    void startKeys();
    void startInterval();
    void showPoints();
    void showValues();
    void showValueCell(int row, int column, double key);
    QString valuesText(QChar separator) const;
    void exportCsv();
    void copyToClipboard() const;

    TemperatureMapWidgets ui_;
    TemperatureWells wells_;
    std::optional<geometry::PointList> border_;
    QString borderLayer_;
    QStringList states_;
    // The spin box keeps a value of its own for depths and for elevations.
    std::array<double, 2> keys_{{0.0, 0.0}};
    bool elevationShown_ = false;
};
