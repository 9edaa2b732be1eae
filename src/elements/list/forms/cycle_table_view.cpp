#include "elements/list/forms/cycle_table_view.h"

#include "elements/list/name_order.h"

#include <QHeaderView>
#include <QMenu>

CycleTableView::CycleTableView(CycleTable* table) : table_(table), order_(new ElementListProxyFilterModel(this))
{
    order_->setSourceModel(table_);
    setModel(order_);
    setSortingEnabled(true);
    sortByColumn(0, Qt::AscendingOrder);
    setAlternatingRowColors(true);
    verticalHeader()->hide();
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, &CycleTableView::showMenu);
    connect(this, &QAbstractItemView::doubleClicked, this, &CycleTableView::open);
}

CycleRows CycleTableView::markedRows() const
{
    CycleRows marked;
    for (int row = 0; row < order_->rowCount(); ++row) {
        const CycleRow& source = table_->rows()[size_t(order_->mapToSource(order_->index(row, 0)).row())];
        if (source.marked)
            marked.push_back(source);
    }
    return marked;
}

void CycleTableView::fit()
{
    horizontalHeader()->setResizeContentsPrecision(0);
    resizeColumnsToContents();
}

void CycleTableView::open(const QModelIndex& index)
{
    const QVariant id = index.data(Qt::UserRole);
    if (index.column() > 0 && id.isValid() && id.toInt() != -1)
        emit opened(index.sibling(index.row(), 0).data(Qt::UserRole).toInt(), id.toInt());
}

void CycleTableView::showMenu(const QPoint& place)
{
    static const struct {
        const char* caption;
        Marks marks;
    } entries[] = {{"Выбрать все", Marks::All}, {"Снять все", Marks::None}, {"Инвертировать выбор", Marks::Inverse}};
    QMenu menu(this);
    for (const auto& entry : entries)
        connect(menu.addAction(entry.caption), &QAction::triggered, this,
                [this, &entry] { table_->mark(entry.marks); });
    menu.exec(viewport()->mapToGlobal(place));
}
