#include "completion.h"

#include <algorithm>

namespace {

enum Rank { Begins, Holds, Fails };

Rank rankOf(const QString& name, const QString& begun)
{
    if (name.startsWith(begun, Qt::CaseInsensitive))
        return Begins;
    return name.contains(begun, Qt::CaseInsensitive) ? Holds : Fails;
}

} // namespace

QStringList completions(const QString& begun, const QStringList& names)
{
    QStringList fitting;
    if (begun.isEmpty())
        return fitting;
    for (const QString& name : names)
        if (rankOf(name, begun) != Fails && !fitting.contains(name))
            fitting << name;
    std::sort(fitting.begin(), fitting.end(), [&](const QString& a, const QString& b) {
        const Rank first = rankOf(a, begun), second = rankOf(b, begun);
        if (first != second)
            return first < second;
        if (first == Begins && a.size() != b.size())
            return a.size() < b.size();
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return fitting;
}
