// The columns of numbers behind the graphs of a plot.
#pragma once

#include <QString>
#include <QVector>

class DataStore {
public:
    /// Copies the numbers and gives the column's index. Names may repeat and
    /// may be empty: columns are told apart by index.
    int addColumn(const QVector<double>& values, const QString& name);
    void clear();

    int columnCount() const { return columns_.size(); }
    /// Empty outside 0..columnCount()-1.
    const QVector<double>& values(int column) const;
    QString name(int column) const;
    /// The last column of this name; -1 when there is none.
    int find(const QString& name) const;

private:
    struct Column {
        QVector<double> values;
        QString name;
    };
    QVector<Column> columns_;
};
