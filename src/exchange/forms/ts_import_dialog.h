// The import of thermal wells' profiles: the frame, one temperature of the air
// for all rows, and a look at each profile.
#pragma once

#include "exchange/forms/measure_import_dialog.h"

class QDoubleSpinBox;

class TSImportCmdDialog : public MeasureImportDialog {
    Q_OBJECT

public:
    explicit TSImportCmdDialog(QWidget* parent = nullptr);

private:
    void addAirTemperature();
    void addProfileButtons();

    QDoubleSpinBox* airTemperature_ = nullptr;
};
