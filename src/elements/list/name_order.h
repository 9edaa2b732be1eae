#pragma once
// The order of every list that shows names of elements: numbers within them
// count as numbers, so that a name ending in 2 stands before one ending in 10.

#include <QCollator>
#include <QHash>
#include <QSortFilterProxyModel>
#include <vector>

class ElementListProxyFilterModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit ElementListProxyFilterModel(QObject* parent = nullptr);
    void setSourceModel(QAbstractItemModel* source) override;

protected:
    /// Compares the two cells as texts.
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    const QCollatorSortKey& keyOf(const QModelIndex& index) const;
    const QCollatorSortKey& keyOfText(const QString& text) const;
    void forgetRows(int first, int last);
    void forgetAllRows() { rowKeys_.clear(); }

    QCollator collator_;
    // A sort asks for the same text many times; its key is made once.
    mutable QHash<QString, QCollatorSortKey> keys_;
    // Of the outermost rows, in one column of the source: their keys within keys_, null until asked for.
    mutable std::vector<const QCollatorSortKey*> rowKeys_;
    mutable int keyColumn_ = -1;
};
