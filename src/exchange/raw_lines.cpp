#include "exchange/raw_lines.h"

#include "exchange/text_file.h"

namespace {

constexpr int mostColumns = 1000;

} // namespace

void RawLines::setLines(const QStringList& lines, const QString& separator)
{
    beginResetModel();
    lines_ = lines;
    separator_ = separator;
    splitRow_ = -1;
    cells_.clear();
    columns_ = 0;
    for (const QString& line : lines_)
        columns_ = qMin(mostColumns, qMax(columns_, countCells(line, separator_)));
    endResetModel();
}

int RawLines::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : lines_.size(); }

int RawLines::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_; }

QVariant RawLines::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (splitRow_ != index.row()) {
        cells_ = splitCells(lines_[index.row()], separator_);
        splitRow_ = index.row();
    }
    return cells_.value(index.column());
}

void RawLines::setTitles(Qt::Orientation direction, const QHash<int, QString>& titles)
{
    titled_ = direction;
    titles_ = titles;
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        const int sections = orientation == Qt::Horizontal ? columns_ : lines_.size();
        if (sections > 0)
            emit headerDataChanged(orientation, 0, sections - 1);
    }
}

QVariant RawLines::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::DisplayRole && orientation == titled_ && titles_.contains(section))
        return titles_.value(section);
    return QAbstractTableModel::headerData(section, orientation, role);
}
