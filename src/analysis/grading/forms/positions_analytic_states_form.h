// The technical state of every position of the project for a pair of cycles.
#pragma once

#include "analysis/grading/position_measures.h"

#include <QDialog>
#include <map>

class QComboBox;
class QLabel;
class QTableWidget;

class PositionsAnalyticStatesForm : public QDialog {
    Q_OBJECT

public:
    explicit PositionsAnalyticStatesForm(QWidget* parent = nullptr);

private:
    void loadPositions();
    void run();
    void clearGrades();
    void showGrades(int row, const PositionGrades& grades);
    void save();
    void exportText();
    void showMenu(const QPoint& place);
    void openPassport(int row);
    void makeCurrent(int row);
    /// First and last of the chosen cycles; -1 without any.
    QPair<int, int> cyclePair() const;

    QComboBox* baseCycle_ = nullptr;
    QComboBox* currentCycle_ = nullptr;
    QTableWidget* table_ = nullptr;
    QLabel* status_ = nullptr;
    QVector<ListedPosition> positions_;
    std::map<int, PositionGrades> grades_; // by row
};
