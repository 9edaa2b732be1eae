#pragma once
// The measures of an element as tables. They show what the record holds and
// are told when that has changed.

#include "elements/passports/passport_record.h"

#include <QAbstractTableModel>

class MeasureTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit MeasureTableModel(const PassportRecord& record, QObject* parent = nullptr)
        : QAbstractTableModel(parent), record_(record)
    { }

    /// The record's measures were read anew.
    void showMeasures();
    /// The measure at the cell; null where there is none.
    const BaseMeasure* measureAt(const QModelIndex& cell) const;

    QVariant data(const QModelIndex& index, int role) const override;

protected:
    virtual int numberOfMeasure(const QModelIndex& cell) const = 0;
    virtual QString textAt(const QModelIndex& cell) const = 0;
    /// What is derived from the measures.
    virtual void prepare() { }

    const PassportRecord& record() const { return record_; }
    int measureCount() const { return int(record_.measures.size()); }
    const BaseMeasure& measure(int number) const { return *record_.measures[size_t(number)]; }
    QString dateOf(const BaseMeasure& measure) const;
    QString deviceOf(const BaseMeasure& measure) const;
    QString performerOf(const BaseMeasure& measure) const;

private:
    const PassportRecord& record_;
};

/// A row a measure; the columns are the family's.
class MeasureRows : public MeasureTableModel {
    Q_OBJECT

public:
    using MeasureTableModel::MeasureTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

protected:
    int numberOfMeasure(const QModelIndex& cell) const override { return cell.row(); }
    QString textAt(const QModelIndex& cell) const override;
};

/// A column a measure of a thermal well; below what is told of the measure a row
/// a depth that any of them has.
class ProfileTable : public MeasureTableModel {
    Q_OBJECT

public:
    using MeasureTableModel::MeasureTableModel;

    /// What the row titles are.
    static QString rowHeader() { return QStringLiteral("Абс.Отметка\n (Глубина), м."); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

protected:
    int numberOfMeasure(const QModelIndex& cell) const override { return cell.column(); }
    QString textAt(const QModelIndex& cell) const override;
    void prepare() override;

private:
    QVector<double> depths_;
    std::vector<TemperatureLog> logs_;
};
