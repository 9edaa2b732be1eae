#pragma once
// The page "Расстановка" of the project settings: how large elements are drawn,
// which colour maps the project uses, which states are shown and in what colour.

#include <QWidget>
#include <array>

class QDoubleSpinBox;
class QPushButton;
class StatesTable;

class ProjectPlacementProps : public QWidget {
    Q_OBJECT

public:
    explicit ProjectPlacementProps(QWidget* parent = nullptr);

    /// Shows what the session and the database hold.
    void refresh();

private:
    QLayout* colorMaps();
    void showMaps();
    void chooseMap(int use);
    void apply();

    QDoubleSpinBox* scale_;
    std::array<QPushButton*, 3> maps_{};
    StatesTable* states_;
};
