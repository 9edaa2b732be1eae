#include "elements/list/cycle_table.h"

#include "base/placeholders.h"
#include "session/project_session.h"

#include <QSet>

namespace {

constexpr int nameColumn = 0;

} // namespace

CycleTable::CycleTable(const QStringList& titles, QObject* parent) : QAbstractTableModel(parent), titles_(titles) { }

void CycleTable::setRows(CycleRows rows, Elements elements)
{
    QSet<int> unmarked;
    for (const CycleRow& row : rows_) {
        if (!row.marked)
            unmarked.insert(row.elementId);
    }
    beginResetModel();
    rows_ = std::move(rows);
    for (CycleRow& row : rows_)
        row.marked = elements == Elements::Other || !unmarked.contains(row.elementId);
    cycles_ = session().cycleOrder;
    numbers_.clear();
    for (int id : qAsConst(cycles_))
        numbers_.append(session().cycles.value(id).value(0));
    endResetModel();
}

void CycleTable::mark(Marks marks)
{
    for (CycleRow& row : rows_)
        row.marked = marks == Marks::All || (marks == Marks::Inverse && !row.marked);
    if (!rows_.empty())
        emit dataChanged(index(0, nameColumn), index(rowCount() - 1, nameColumn), {Qt::CheckStateRole});
}

int CycleTable::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(rows_.size()); }

int CycleTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : titles_.size() + cycles_.size();
}

QString CycleTable::textAt(const CycleRow& row, int column) const
{
    if (column == nameColumn)
        return row.name;
    if (column < titles_.size())
        return row.state;
    const auto cell = row.cells.constFind(cycles_.value(column - titles_.size()));
    return cell == row.cells.constEnd() ? QStringLiteral("--") : cell->text;
}

QVariant CycleTable::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const CycleRow& row = rows_[size_t(index.row())];
    if (role == Qt::DisplayRole)
        return textAt(row, index.column());
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::CheckStateRole && index.column() == nameColumn)
        return row.marked ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::UserRole && index.column() == nameColumn)
        return row.elementId;
    if (role == Qt::UserRole && index.column() >= titles_.size())
        return row.idIn(cycles_.value(index.column() - titles_.size()));
    return {};
}

bool CycleTable::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole || index.column() != nameColumn)
        return false;
    rows_[size_t(index.row())].marked = value.toInt() == Qt::Checked;
    emit dataChanged(index, index, {role});
    return true;
}

QVariant CycleTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return section < titles_.size() ? titles_[section] : fill("Цикл %1", numbers_.value(section - titles_.size()));
}

Qt::ItemFlags CycleTable::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.column() == nameColumn ? plain | Qt::ItemIsUserCheckable : plain;
}
