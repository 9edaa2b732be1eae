#pragma once
// A table of an element's measures, each of which can be edited and deleted.

#include "elements/passports/measure_tables.h"

#include <QTableView>

class MeasureActions;

class MeasureView : public QTableView {
    Q_OBJECT

public:
    /// Shows the record by rows, or by columns where a measure is a profile; what
    /// is changed is read into the record before changed() tells of it.
    explicit MeasureView(PassportRecord& record, QWidget* parent = nullptr);

    void showMeasures();

signals:
    /// The record's measures became others.
    void changed();

private:
    void nameRowTitles();
    void showMenu(const QPoint& place);

    PassportRecord& record_;
    MeasureTableModel* model_;
    MeasureActions* actions_;
};
