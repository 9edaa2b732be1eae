// How a temperature log becomes one number, as the user says it.
#pragma once

#include "analysis/maps/kept_number.h"
#include "analysis/maps/temperature_wells.h"

#include <QWidget>
#include <array>

class QCheckBox;
class QDoubleSpinBox;
class QRadioButton;

class SamplingPane : public QWidget {
    Q_OBJECT
public:
    explicit SamplingPane(QWidget* parent = nullptr);

    Sampling::Mode mode() const;
    Sampling sampling() const;

    // The wells are others: keys and interval start anew, without a signal, but
    // for what the user set and their logs still reach. The depths ascend, the
    // elevations descend.
    void startWith(const std::vector<double>& depths, const std::vector<double>& elevations);

signals:
    void modeChanged();
    // Depth, interval or one of the boxes: the values are others, the keys are not.
    void changed();

private:
    void enableControls();
    void chooseMode();

    QRadioButton* byDepth_;
    QRadioButton* byElevation_;
    QRadioButton* byMean_;
    QDoubleSpinBox* key_;
    QDoubleSpinBox* from_;
    QDoubleSpinBox* to_;
    QCheckBox* toEnd_;
    QCheckBox* bottom_;
    // The spin box keeps a value of its own for depths and for elevations.
    std::array<KeptNumber, 2> keys_;
    KeptNumber begin_, end_; // of the interval
    bool elevationShown_ = false;
};
