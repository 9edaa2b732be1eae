// The forecast of deformation marks: a line through their measures in a range of
// cycles, its value on the chosen day, and the chart.
#pragma once

#include "analysis/forecast/forecast_table.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QTableWidget;
class ScopeCombos;

namespace formkit {
class Item;
}

class DMPredictionForm : public QDialog {
    Q_OBJECT

public:
    explicit DMPredictionForm(QWidget* parent = nullptr);

    /// Ends as accepted where forecasts were stored or deleted.
    void reject() override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    formkit::Item choicePane();
    formkit::Item resultPane();
    void reload();    // the marks
    void recompute(); // the table
    void drawChart();
    void changeDate(const QDate& day);
    void showHeading();
    void tellRepeated() const;
    void addRow(int row, const QVector<int>& cycles);
    bool isChecked(int row, ForecastColumn column) const;
    QVector<int> cycles() const;
    void store();
    void exportRows();
    void showList();

    ScopeCombos* scope_;
    QComboBox* baseCycle_ = nullptr;
    QComboBox* currentCycle_ = nullptr;
    QDateEdit* date_ = nullptr;
    QLineEdit* name_ = nullptr;
    QCheckBox* band_ = nullptr;
    QTableWidget* table_ = nullptr;
    QLabel* heading_ = nullptr;
    QLabel* chart_ = nullptr;
    QLabel* shortage_ = nullptr;
    QDate day_; // that of the name
    QVector<MarkMeasures> marks_;
    QVector<MarkForecast> forecasts_; // in the order of the marks
    int shownCycles_ = 0;
    bool changed_ = false;
};
