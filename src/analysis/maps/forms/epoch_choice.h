// The base cycle, and the current one or a forecast in its place, as the user
// chooses them.
#pragma once

#include "analysis/maps/epochs.h"
#include "formkit/layout.h"

#include <QObject>

class QCheckBox;
class QComboBox;

class EpochChoice : public QObject {
    Q_OBJECT
public:
    struct Names {
        const char* base; // object names of the boxes, and their captions
        const char* baseCaption;
        const char* current;
        const char* currentCaption;
    };
    // Starts with the session's cycles and without a forecast.
    EpochChoice(const Names& names, QObject* parent);

    // A caption and a box each.
    std::vector<formkit::Cells> rows() const;
    Epochs epochs() const;
    // What the boxes show of the cycles.
    QString baseText() const;
    QString currentText() const;
    // The forecast where it stands in the current cycle's place.
    QString currentShown() const;

signals:
    void changed();

private:
    void enableBoxes();

    Names names_;
    QComboBox* base_;
    QComboBox* current_;
    QCheckBox* useForecast_;
    QComboBox* forecasts_;
};
