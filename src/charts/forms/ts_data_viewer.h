// A look at one measure of a thermal well: its readings as a table and as a
// picture with what the check of the import found.
#pragma once

#include "charts/depth_chart.h"

#include <QDialog>

class QLabel;
class QStandardItemModel;
class QTableView;
class TSMeasure;

class TSDataViewer : public QDialog {
    Q_OBJECT

public:
    explicit TSDataViewer(QWidget* parent = nullptr);

    /// Shows the measure; the viewer keeps nothing of it.
    void setMeasure(const TSMeasure& measure);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void fillTable(const TemperatureCurve& profile);
    void plot(const TSMeasure& measure, const TemperatureCurve& profile);
    void renderPicture();

    QStandardItemModel* model_;
    QTableView* table_;
    QLabel* picture_;
    TSDataChartJK chart_;
    bool hasProfile_ = false;
};
