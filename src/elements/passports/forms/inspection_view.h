#pragma once
// The inspections of an element: a column a cycle. They are created, edited,
// copied and deleted here; the element's state follows the latest.

#include "elements/passports/inspection_table.h"

#include <QTableView>

class InspectionView : public QTableView {
    Q_OBJECT

public:
    explicit InspectionView(PassportRecord& record, QWidget* parent = nullptr);

    void showInspections();

signals:
    /// Inspections became others, and the record's row with them.
    void changed();

private:
    void showMenu(const QPoint& place);
    void create(int cycleId);
    void edit(int inspectId);
    void copy(int inspectId);
    void erase(int inspectId);
    void finish(InspectionChange change);

    PassportRecord& record_;
    InspectionColumns* model_;
};
