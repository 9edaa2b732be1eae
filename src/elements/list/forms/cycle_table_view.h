#pragma once
// The view of elements and what they have in each cycle: sorted as names are,
// marks set from its menu.

#include "elements/list/cycle_table.h"

#include <QTableView>

class ElementListProxyFilterModel;

class CycleTableView : public QTableView {
    Q_OBJECT

public:
    explicit CycleTableView(CycleTable* table);

    /// The marked rows in the order in which they are seen.
    CycleRows markedRows() const;
    /// Makes the columns as wide as what is seen in them.
    void fit();

signals:
    /// A cell that holds something was double-clicked.
    void opened(int elementId, int id);

private:
    void showMenu(const QPoint& place);
    void open(const QModelIndex& index);

    CycleTable* table_;
    ElementListProxyFilterModel* order_;
};
