#pragma once
// The inspections of an element as a table: a column a cycle, in the order of
// the cycles, a row what an inspection tells.

#include "elements/passports/passport_record.h"

#include <QAbstractTableModel>
#include <QHash>

class InspectionColumns : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit InspectionColumns(const PassportRecord& record, QObject* parent = nullptr);

    /// The record's inspections were read anew.
    void showInspections();
    int cycleAt(int column) const { return record_.lists.cycleOrder.value(column, -1); }
    /// The inspection of the column's cycle, of several the last one; -1 for none.
    int inspectionAt(int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const InspectionRecord* recordAt(int column) const;

    const PassportRecord& record_;
    QVector<int> rows_; ///< columns of the family's inspection
    QHash<int, int> byCycle_;
};
