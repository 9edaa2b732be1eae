#pragma once
// Elements and what they have in each cycle: a row an element, a column a cycle.
// Names carry a mark: whatever is done to many elements is done to the marked.

#include <QAbstractTableModel>
#include <QHash>
#include <QString>
#include <QVector>
#include <vector>

/// What an element has in a cycle.
struct CycleCell {
    int id = -1; ///< of the row behind it
    QString text;
};

struct CycleRow {
    int elementId = -1;
    QString name;
    QString stateId;             ///< where states are read
    QString state;               ///< shown where the table has the column
    QHash<int, CycleCell> cells; ///< by cycle
    bool marked = true;

    /// -1 when the element has nothing in the cycle.
    int idIn(int cycleId) const { return cells.value(cycleId).id; }
};
using CycleRows = std::vector<CycleRow>;

enum class Marks { All, None, Inverse };

class CycleTable : public QAbstractTableModel {
    Q_OBJECT

public:
    /// Titles stand before the columns of the cycles: that of the name, and that
    /// of the state where it is shown.
    explicit CycleTable(const QStringList& titles, QObject* parent = nullptr);

    /// Takes the cycles, in their order, from the session. Of other elements the
    /// marks start anew; of the same ones what was unmarked stays so.
    enum class Elements { Other, Same };
    void setRows(CycleRows rows, Elements elements);
    const CycleRows& rows() const { return rows_; }

    void mark(Marks marks);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QString textAt(const CycleRow& row, int column) const;

    QStringList titles_;
    QVector<int> cycles_;
    QStringList numbers_;
    CycleRows rows_;
};
