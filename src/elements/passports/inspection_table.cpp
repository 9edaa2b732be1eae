#include "elements/passports/inspection_table.h"

#include "session/project_session.h"

namespace {

QString shownValue(const InspectionColumn& column, const QString& value)
{
    switch (column.kind) {
    case InspectionKind::Finding: return value == QLatin1String("1") ? QStringLiteral("Да") : QStringLiteral("Нет");
    case InspectionKind::State: return session().states.value(value, value);
    case InspectionKind::Number:
    case InspectionKind::Note: break;
    }
    return value;
}

} // namespace

InspectionColumns::InspectionColumns(const PassportRecord& record, QObject* parent)
    : QAbstractTableModel(parent), record_(record)
{
    const InspectionFamily* inspected = inspectionFamily(record.family().family);
    for (const QString& name : record.family().inspectionRows) {
        for (int i = 0; inspected && i < inspected->columns.size(); ++i) {
            if (inspected->columns[i].name == name)
                rows_.append(i);
        }
    }
}

void InspectionColumns::showInspections()
{
    beginResetModel();
    byCycle_.clear();
    for (size_t i = 0; i < record_.inspections.size(); ++i)
        byCycle_.insert(record_.inspections[i].cycleId, int(i));
    endResetModel();
}

const InspectionRecord* InspectionColumns::recordAt(int column) const
{
    const auto found = byCycle_.constFind(cycleAt(column));
    // The record may hold others already while the table is still to be told.
    const bool known = found != byCycle_.constEnd() && size_t(*found) < record_.inspections.size();
    return known ? &record_.inspections[size_t(*found)] : nullptr;
}

int InspectionColumns::inspectionAt(int column) const
{
    const InspectionRecord* inspection = recordAt(column);
    return inspection ? inspection->inspectId : -1;
}

int InspectionColumns::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_.size(); }

int InspectionColumns::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : record_.lists.cycleOrder.size();
}

QVariant InspectionColumns::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Horizontal)
        return record_.lists.cycleText(cycleAt(section));
    return section < rows_.size() ? inspectionFamily(record_.family().family)->columns[rows_[section]].caption
                                  : QString();
}

QVariant InspectionColumns::data(const QModelIndex& index, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignCenter);
    if (role != Qt::DisplayRole || !index.isValid() || index.row() >= rows_.size())
        return {};
    const InspectionRecord* inspection = recordAt(index.column());
    const int column = rows_[index.row()];
    return inspection ? shownValue(inspection->family().columns[column], inspection->values.value(column))
                      : QStringLiteral("--");
}
