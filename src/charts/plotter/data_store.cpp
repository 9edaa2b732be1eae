#include "charts/plotter/data_store.h"

int DataStore::addColumn(const QVector<double>& values, const QString& name)
{
    columns_.append({values, name});
    return columns_.size() - 1;
}

void DataStore::clear() { columns_.clear(); }

const QVector<double>& DataStore::values(int column) const
{
    static const QVector<double> none;
    return column >= 0 && column < columns_.size() ? columns_[column].values : none;
}

QString DataStore::name(int column) const
{
    return column >= 0 && column < columns_.size() ? columns_[column].name : QString();
}

int DataStore::find(const QString& name) const
{
    for (int column = columns_.size() - 1; column >= 0; --column) {
        if (columns_[column].name == name)
            return column;
    }
    return -1;
}
