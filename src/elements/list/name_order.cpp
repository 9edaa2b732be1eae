#include "elements/list/name_order.h"

namespace {

constexpr int kMostKeys = 200000;

} // namespace

// The collator of the plain locale knows no numbers.
ElementListProxyFilterModel::ElementListProxyFilterModel(QObject* parent)
    : QSortFilterProxyModel(parent), collator_(QLocale(QLocale::Russian, QLocale::Russia))
{
    collator_.setNumericMode(true);
}

const QCollatorSortKey& ElementListProxyFilterModel::keyOf(const QModelIndex& index) const
{
    const QString text = index.data().toString();
    const auto known = keys_.constFind(text);
    if (known != keys_.constEnd())
        return *known;
    return *keys_.insert(text, collator_.sortKey(text));
}

bool ElementListProxyFilterModel::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    if (keys_.size() > kMostKeys)
        keys_.clear();
    keyOf(left);
    const QCollatorSortKey& second = keyOf(right);
    return keyOf(left).compare(second) < 0;
}
