#pragma once
// The layers of ground along a well as a column drawn to scale.

#include "elements/geology/ground_layers.h"
#include "elements/passports/forms/passport_page.h"

class QCheckBox;
class QComboBox;
class QTableWidget;

class GroundLayersPage : public PassportPage {
    Q_OBJECT

public:
    explicit GroundLayersPage(PassportRecord& record, QWidget* parent = nullptr);

    void showRecord() override;

private:
    void readLayers();
    void showLayers();
    void showLegend();
    void setRowHeights();
    void editLayers();

    GroundLayers layers_;
    QComboBox* scale_;
    QCheckBox* withLegend_;
    QTableWidget* table_;
    QTableWidget* legend_;
};
