// A file's cells as they stand, for looking at. Only what is seen is split.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>

class RawLines : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// As many columns as the longest line has cells, a thousand at the most.
    void setLines(const QStringList& lines, const QString& separator);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    QStringList lines_;
    QString separator_;
    int columns_ = 0;
    // The line that was split last: a view asks cell by cell along a row.
    mutable int splitRow_ = -1;
    mutable QStringList cells_;
};
