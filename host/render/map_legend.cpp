#include "map_legend.h"

#include <drawing/host_access.h>

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>

namespace {

struct ReadBand {
    QColor color;
    QString from, to; // numbers as they stand; empty outside of the scale
};

// False for a line that tells no band.
bool readBand(const QString& line, ReadBand& band)
{
    static const QRegularExpression form(QStringLiteral("^(#[0-9a-fA-F]{6})(?: (\\S+) (\\S+))?$"));
    const QRegularExpressionMatch match = form.match(line);
    bool from = false, to = false;
    match.captured(2).toDouble(&from);
    match.captured(3).toDouble(&to);
    band = {QColor(match.captured(1)), from && to ? match.captured(2) : QString(), match.captured(3)};
    return match.hasMatch();
}

int decimalsOf(const QString& number)
{
    const int point = number.indexOf(QLatin1Char('.'));
    return point < 0 || number.contains(QLatin1Char('e')) ? 0 : number.size() - point - 1;
}

// All bounds of a map with as many decimals as the longest has.
QString rangeText(const ReadBand& band, int decimals)
{
    if (band.from.isEmpty())
        return QStringLiteral("вне шкалы");
    const auto bound = [decimals](const QString& number) {
        const double value = number.toDouble();
        return (value > 0.0 ? QStringLiteral("+") : QString()) + QLocale().toString(value, 'f', decimals);
    };
    return bound(band.from) + QStringLiteral(" … ") + bound(band.to);
}

// False for a description that tells no map.
bool readMap(const QString& description, DrawnMap& map)
{
    const QStringList lines = description.split(QLatin1Char('\n'));
    std::vector<ReadBand> bands;
    int decimals = 0;
    map.title = lines.first().trimmed();
    for (const QString& line : lines.mid(1)) {
        ReadBand band;
        if (readBand(line.trimmed(), band)) {
            decimals = std::max({decimals, decimalsOf(band.from), decimalsOf(band.to)});
            bands.push_back(band);
        } else if (line.contains(QLatin1Char(':'))) {
            map.notes << line.trimmed();
        }
    }
    for (const ReadBand& band : bands)
        map.bands.push_back({band.color, rangeText(band, decimals)});
    return !map.bands.empty();
}

std::vector<DrawnMap> mapsOf(const NcDbDatabase& drawing)
{
    std::vector<DrawnMap> maps;
    const auto* groups = HostAccess::objectAs<NcDbDictionary>(HostAccess::data(drawing).groupDictionary);
    if (!groups)
        return maps;
    for (const auto& entry : HostAccess::entries(*groups)) {
        const auto* group = HostAccess::objectAs<NcDbGroup>(entry.second);
        DrawnMap map;
        if (!group || group->isErased() || !readMap(group->description(), map))
            continue;
        const NcDbObjectIdArray members = group->allEntityIds();
        map.hatches.insert(members.begin(), members.end());
        maps.push_back(std::move(map));
    }
    return maps;
}

bool shows(const Figure& figure, const QRectF& window)
{
    return window.intersects(figure.box.adjusted(-1e-6, -1e-6, 1e-6, 1e-6));
}

void keepShown(DrawnMap& map, const DisplayList& list, const QRectF& window)
{
    std::set<QRgb> colors;
    for (const Figure& figure : list.figures())
        if (figure.kind == Figure::Fill && map.hatches.count(figure.source) && shows(figure, window))
            colors.insert(figure.foreground ? qRgb(255, 255, 255) : figure.color.rgb());
    const auto isHidden = [&colors](const DrawnMap::Band& band) { return colors.count(band.color.rgb()) == 0; };
    map.bands.erase(std::remove_if(map.bands.begin(), map.bands.end(), isHidden), map.bands.end());
}

} // namespace

QString DrawnMap::note(const QString& word) const
{
    for (const QString& each : notes)
        if (each.startsWith(word + QLatin1Char(':')))
            return each.mid(word.size() + 1).trimmed();
    return QString();
}

std::vector<DrawnMap> mapsIn(const NcDbDatabase& drawing, const DisplayList& list, const QRectF& window)
{
    std::vector<DrawnMap> maps = mapsOf(drawing);
    for (DrawnMap& map : maps)
        keepShown(map, list, window);
    maps.erase(std::remove_if(maps.begin(), maps.end(), [](const DrawnMap& map) { return map.bands.empty(); }),
               maps.end());
    return maps;
}

std::vector<Sheet::Sign> legendOf(const NcDbDatabase& drawing, const DisplayList& list, const Sheet& sheet)
{
    std::vector<Sheet::Sign> signs;
    std::set<NcDbObjectId> told;
    for (const DrawnMap& map : mapsIn(drawing, list, shownWorld(sheet))) {
        signs.push_back({QColor(), map.title, Sheet::Sign::Heading});
        for (const QString& note : map.notes)
            signs.push_back({QColor(), note, Sheet::Sign::Note});
        for (const DrawnMap::Band& band : map.bands)
            signs.push_back({band.color, band.range, Sheet::Sign::Patch});
        told.insert(map.hatches.begin(), map.hatches.end());
    }
    const std::vector<Sheet::Sign> layers = signsOf(list, sheet, told);
    if (!signs.empty() && !layers.empty())
        signs.push_back({QColor(), QStringLiteral("Слои"), Sheet::Sign::Heading});
    signs.insert(signs.end(), layers.begin(), layers.end());
    return signs;
}

void tellMap(const NcDbDatabase& drawing, const DisplayList& list, Sheet& sheet)
{
    const std::vector<DrawnMap> maps = mapsIn(drawing, list, shownWorld(sheet));
    if (maps.size() != 1)
        return;
    if (sheet.depth.isEmpty())
        sheet.depth = maps.front().note(QStringLiteral("глубина"));
    if (const QString cycle = maps.front().note(QStringLiteral("цикл")); !cycle.isEmpty())
        sheet.cycle = cycle;
}
