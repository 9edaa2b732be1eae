#include "elements/list/name_order.h"

#include <algorithm>

namespace {

constexpr int kMostKeys = 200000;

} // namespace

// The collator of the plain locale knows no numbers.
ElementListProxyFilterModel::ElementListProxyFilterModel(QObject* parent)
    : QSortFilterProxyModel(parent), collator_(QLocale(QLocale::Russian, QLocale::Russia))
{
    collator_.setNumericMode(true);
}

// This hears of a change before the sorting does, which asks for keys at once.
void ElementListProxyFilterModel::setSourceModel(QAbstractItemModel* source)
{
    using Model = QAbstractItemModel;
    if (sourceModel())
        disconnect(sourceModel(), nullptr, this, nullptr);
    forgetAllRows();
    if (source) {
        connect(source, &Model::dataChanged, this,
                [this](const QModelIndex& first, const QModelIndex& last) { forgetRows(first.row(), last.row()); });
        connect(source, &Model::modelReset, this, &ElementListProxyFilterModel::forgetAllRows);
        connect(source, &Model::layoutChanged, this, &ElementListProxyFilterModel::forgetAllRows);
        for (auto moved : {&Model::rowsInserted, &Model::rowsRemoved, &Model::columnsInserted, &Model::columnsRemoved})
            connect(source, moved, this, &ElementListProxyFilterModel::forgetAllRows);
        for (auto moved : {&Model::rowsMoved, &Model::columnsMoved})
            connect(source, moved, this, &ElementListProxyFilterModel::forgetAllRows);
    }
    QSortFilterProxyModel::setSourceModel(source);
}

void ElementListProxyFilterModel::forgetRows(int first, int last)
{
    const int end = std::min(last + 1, int(rowKeys_.size()));
    for (int row = std::max(first, 0); row < end; ++row)
        rowKeys_[size_t(row)] = nullptr;
}

const QCollatorSortKey& ElementListProxyFilterModel::keyOfText(const QString& text) const
{
    const auto known = keys_.constFind(text);
    if (known != keys_.constEnd())
        return *known;
    return *keys_.insert(text, collator_.sortKey(text));
}

const QCollatorSortKey& ElementListProxyFilterModel::keyOf(const QModelIndex& index) const
{
    if (index.parent().isValid())
        return keyOfText(index.data().toString());
    if (index.column() != keyColumn_ || index.row() >= int(rowKeys_.size())) {
        keyColumn_ = index.column();
        rowKeys_.assign(size_t(sourceModel()->rowCount()), nullptr);
    }
    const QCollatorSortKey*& key = rowKeys_[size_t(index.row())];
    if (!key)
        key = &keyOfText(index.data().toString());
    return *key;
}

bool ElementListProxyFilterModel::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    if (keys_.size() > kMostKeys) {
        keys_.clear();
        rowKeys_.clear();
    }
    return keyOf(left).compare(keyOf(right)) < 0;
}
