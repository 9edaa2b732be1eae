// Editor of colour maps: choose one, change its ranges, keep it in a file or in
// the database.
#pragma once

#include "analysis/levels/level_map_set.h"

#include <QWidget>

class QComboBox;
class QDoubleSpinBox;
class QPushButton;
class QSpinBox;
class QTableWidget;
class QTableWidgetItem;

class ColorMapWidget : public QWidget {
    Q_OBJECT
public:
    explicit ColorMapWidget(QWidget* parent = nullptr);

    // An unknown id leaves the choice as it is.
    void setLevelMapId(int id);
    int levelMapId() const;
    const LevelMap& current() const;

signals:
    void levelMapChanged();

private:
    void build();
    void fillMaps();
    void showCurrent();
    void showLimits();
    void showRanges();
    void chooseMap();
    void editCell(QTableWidgetItem* item);
    void editColor(int row, int column);
    void changeCount(int count);
    void saveToFile();
    void loadFromFile();
    void writeToDatabase();
    void deleteFromDatabase();
    bool confirmDeletion(const LevelMap& map);
    void keepAsUserMap(LevelMap map);
    void selectMap(int id);
    LevelMap& currentMap();

    LevelMapSet maps_;
    QComboBox* levelMapType_;
    QTableWidget* colorTable_;
    QDoubleSpinBox* levelMin_;
    QDoubleSpinBox* levelMax_;
    QSpinBox* levelCount_;
    QPushButton* writeDatabase_;
    QPushButton* deleteDatabase_;
};
