// A file's cells as they stand, for looking at. Only what is seen is split.
#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QStringList>

class RawLines : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// As many columns as the longest line has cells, a thousand at the most.
    void setLines(const QStringList& lines, const QString& separator);

    /// What the headers of columns (or of rows) show in place of their numbers;
    /// those of the other direction show numbers alone.
    void setTitles(Qt::Orientation direction, const QHash<int, QString>& titles);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QStringList lines_;
    QString separator_;
    int columns_ = 0;
    Qt::Orientation titled_ = Qt::Horizontal;
    QHash<int, QString> titles_;
    // The line that was split last: a view asks cell by cell along a row.
    mutable int splitRow_ = -1;
    mutable QStringList cells_;
};
