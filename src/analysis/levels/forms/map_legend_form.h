// Chooses what legend to insert, and the command that inserts it.
#pragma once

#include "analysis/levels/legend.h"

#include <QDialog>

class ColorMapWidget;
class QRadioButton;

class MapLegendForm : public QDialog {
    Q_OBJECT
public:
    explicit MapLegendForm(QWidget* parent = nullptr);

    struct Legend {
        LegendKind kind;
        LevelMap map;
    };
    Legend legend() const { return {kind(), levelMap()}; }
    LegendKind kind() const;
    const LevelMap& levelMap() const;

private:
    QRadioButton* temperatureOut_;
    ColorMapWidget* colorMap_;
};

// TERVA_MAP_LEGEND
void insertMapLegend();
