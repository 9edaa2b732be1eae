#include "exchange/geology/well_geology.h"

#include "base/dates.h"
#include "base/placeholders.h"
#include "base/statement.h"
#include "exchange/text_file.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <algorithm>
#include <cmath>

namespace {

enum Cell { NameCell, DateCell, MarkCell, FirstLayerCell };
constexpr int leastCells = 4;

std::optional<double> numberOf(QString text)
{
    bool ok = false;
    const double number = text.replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
    if (!ok || !std::isfinite(number))
        return {};
    return number;
}

QDate dateOf(const QString& text)
{
    const QDate full = dateFrom(text, QStringLiteral("dd.MM.yyyy"));
    if (full.isValid())
        return full;
    const QDate brief = dateFrom(text, QStringLiteral("dd.MM.yy")); // of the century before
    return brief.isValid() ? brief.addYears(100) : QDate();
}

bool isHeader(const QString& firstCell)
{
    const QString lower = firstCell.toLower();
    return lower.contains(QStringLiteral("имя")) || lower.contains(QStringLiteral("скважин"));
}

QVector<WellLayer> layersOf(const QStringList& cells, const GeologyLists& lists)
{
    QVector<WellLayer> layers;
    double top = 0.0;
    for (int i = FirstLayerCell; i + 1 < cells.size(); i += 2) {
        const std::optional<double> bottom = numberOf(cells[i + 1]);
        if (cells[i].isEmpty() || !bottom)
            continue;
        layers.append({cells[i], lists.codes.value(cells[i], -1), top, *bottom});
        top = *bottom;
    }
    return layers;
}

void tellWell(const WellGeology& well, const GeologyLists& lists)
{
    if (well.elementId == -1)
        say(fill("\n [DEBUG] Не найден element_id для скважины: %1", well.name));
    else if (lists.severalWells.contains(well.name))
        say(fill("\n Имя %1 есть у нескольких скважин, взята скважина с ID %2", well.name, well.elementId));
}

} // namespace

bool WellGeology::isValid() const
{
    return elementId != -1
        && std::all_of(layers.begin(), layers.end(), [](const WellLayer& layer) { return layer.egeId != -1; });
}

GeologyLists loadGeologyLists(int positionId)
{
    GeologyLists lists;
    const Statement ofPosition = positionId == -1 ? Statement("") : compose(" WHERE position_id = %1", positionId);
    const sql::Result wells =
        session().run(compose("SELECT element_name, element_id FROM %1%2", "igs_elements", ofPosition));
    for (int i = 0; i < wells.ntuples(); ++i) {
        const QString name = wells.getvalue(i, 0).trimmed();
        if (lists.wells.contains(name))
            lists.severalWells.insert(name);
        lists.wells.insert(name, wells.toInt(i, 1));
    }
    say(fill("\n [DEBUG] Загружено имен скважин: %1", lists.wells.size()));
    const sql::Result codes = session().run("SELECT code, ege_id FROM geology_ege_catalog");
    for (int i = 0; i < codes.ntuples(); ++i)
        lists.codes.insert(codes.getvalue(i, 0).trimmed(), codes.toInt(i, 1));
    return lists;
}

QVector<WellGeology> readGeology(const QStringList& lines, const QString& separator, const GeologyLists& lists)
{
    QVector<WellGeology> wells;
    for (const QString& line : lines) {
        QStringList cells = splitCells(line, separator);
        for (QString& cell : cells)
            cell = cell.trimmed();
        if (cells.size() < leastCells || isHeader(cells[NameCell]))
            continue;
        WellGeology well;
        well.layers = layersOf(cells, lists);
        if (well.layers.isEmpty())
            continue;
        well.name = cells[NameCell];
        well.elementId = lists.wells.value(well.name, -1);
        well.drilled = dateOf(cells[DateCell]);
        well.z = numberOf(cells[MarkCell]);
        tellWell(well, lists);
        wells.append(well);
    }
    return wells;
}
