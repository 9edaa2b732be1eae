#include "drawing/renumber_plan.h"

#include <QRegularExpression>
#include <algorithm>
#include <limits>

std::optional<NumberedRow> numberedRow(int id, const QString& name)
{
    static const QRegularExpression pattern(QStringLiteral("^(.*?)(\\d+)$"));
    const QRegularExpressionMatch match = pattern.match(name);
    bool fits = false;
    const int number = match.captured(2).toInt(&fits);
    if (!fits)
        return {};
    return NumberedRow{id, name, match.captured(1), number};
}

void sortById(QVector<NumberedRow>& rows)
{
    std::stable_sort(rows.begin(), rows.end(), [](const NumberedRow& a, const NumberedRow& b) { return a.id < b.id; });
}

void sortByNumber(QVector<NumberedRow>& rows)
{
    std::stable_sort(rows.begin(), rows.end(),
                     [](const NumberedRow& a, const NumberedRow& b) { return a.number < b.number; });
}

bool isSequential(const QVector<NumberedRow>& rows)
{
    return std::adjacent_find(
               rows.begin(), rows.end(),
               [](const NumberedRow& a, const NumberedRow& b) { return qint64(b.number) != qint64(a.number) + 1; })
        == rows.end();
}

bool moveToNumber(QVector<NumberedRow>& rows, int selected, int number)
{
    const auto movesUp = [&](const NumberedRow& row) { return row.number >= number && row.id < selected; };
    constexpr int last = std::numeric_limits<int>::max();
    if (std::any_of(rows.begin(), rows.end(),
                    [&](const NumberedRow& row) { return movesUp(row) && row.number == last; }))
        return false;
    for (NumberedRow& row : rows) {
        if (movesUp(row))
            ++row.number;
        else if (row.id == selected && row.number >= number)
            row.number = number;
    }
    return true;
}
