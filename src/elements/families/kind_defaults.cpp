#include "elements/families/kind_defaults.h"

#include <QVector>
#include <algorithm>

namespace {

const QString mirrored = QStringLiteral("Отраженное состояние1");

// The doubled letter is the block's own: the text must equal its allowed value.
const QStringList leaderStates = {"Выноска видна", "Выноскаа скрыта"};
const QStringList mirrorStates = {"0", "1"};

struct Row {
    QVector<int> kinds;
    TextMap attributes;
    TextMap dynProps;
    QString leader; // the property that shows or hides the leader; empty: nothing is list-valued
};

TextMap blanks(const QStringList& tags)
{
    TextMap map;
    for (const QString& tag : tags)
        map.insert(tag, QStringLiteral(" "));
    return map;
}

TextMap with(TextMap map, const TextMap& more)
{
    for (auto it = more.begin(); it != more.end(); ++it)
        map.insert(it.key(), it.value());
    return map;
}

QVector<Row> buildRows()
{
    const TextMap label = {{"Положение1 X", "1.39489"}, {"Положение1 Y", "0.895453"}, {"Длина полки", "12.0461"}};
    const TextMap benchmarkLabel = {
        {"Положение1 X", "2.01741"}, {"Положение1 Y", "1.29509"}, {"Длина полки", "12.0461"}};
    const TextMap named = blanks({"name", "element_id"});
    const TextMap stabiliser = blanks({"name", "element_id", "h", "de", "z"});
    const TextMap benchmark = blanks({"name", "rp_z", "element_id"});
    const QString shown = QStringLiteral("Видимость1");
    const QString leader = QStringLiteral("Выноска");

    return {
        {{0}, named, with(label, {{"Угол1", "0"}}), shown},
        {{11}, named, with(label, {{"Угол1", "0.0"}}), shown},
        {{12, 13}, named, label, shown},
        {{2, 3, 14, 15, 20}, named, label, leader},
        {{5}, stabiliser, label, leader},
        {{18}, stabiliser, with(label, {{"Положение2 X", "0"}, {"Положение2 Y", "5"}}), leader},
        {{19}, stabiliser, with(label, {{"Заглубление X", "0"}, {"Заглубление Y", "5"}}), leader},
        {{8, 9}, benchmark, benchmarkLabel, shown},
        {{10, 21}, benchmark, with(benchmarkLabel, {{"Угол1", "0.0"}}), shown},
        {{17}, with(named, {{"Z", "0"}}), label, leader},
        {{16}, {{"Z", "0"}, {"ELEMENT_ID", "0"}}, {}, {}},
        // The properties of piles stand in the unused row behind the pile's own.
        {{7}, {{"element_id", "0"}}, {{"sv_type", "0"}}, {}},
    };
}

} // namespace

KindDefaults defaultsOfKind(int kind)
{
    static const QVector<Row> rows = buildRows();
    const auto row = std::find_if(rows.begin(), rows.end(), [kind](const Row& r) { return r.kinds.contains(kind); });
    if (row == rows.end())
        return {};
    KindDefaults defaults{row->attributes, row->dynProps, {}};
    if (!row->leader.isEmpty()) {
        defaults.allowedValues = {{mirrored, mirrorStates}, {row->leader, leaderStates}};
        for (auto it = defaults.allowedValues.begin(); it != defaults.allowedValues.end(); ++it)
            defaults.dynProps.insert(it.key(), it.value().first());
    }
    return defaults;
}
