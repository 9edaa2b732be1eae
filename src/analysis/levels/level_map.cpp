#include "analysis/levels/level_map.h"

#include "analysis/levels/built_in_scales.h"
#include "base/statement.h"
#include "base/text.h"
#include "files/written_file.h"
#include "session/project_session.h"

#include <QFile>
#include <QTextStream>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int kFieldCount = 5;

NcCmColor gradientColor(double m)
{
    const bool lowerHalf = m < 0.5;
    const double u = lowerHalf ? 2.0 * m : 2.0 * (m - 0.5);
    const int rising = u <= 0.0 ? 0 : u >= 1.0 ? 255 : int(u * 255);
    const int falling = u <= 0.0 ? 255 : u >= 1.0 ? 0 : int((1.0 - u) * 255);
    return lowerHalf ? NcCmColor::fromRGB(0, rising, falling) : NcCmColor::fromRGB(rising, falling, 0);
}

QString rangeText(const LevelRange& range, int decimals, const QString& separator, int base)
{
    return QStringList{fixed(range.min, decimals), fixed(range.max, decimals), QString::number(range.color.red(), base),
                       QString::number(range.color.green(), base), QString::number(range.color.blue(), base)}
        .join(separator);
}

// False unless there are five fields and, when `strict`, every one converts.
bool readRange(const QStringList& fields, int base, bool strict, LevelRange& range)
{
    if (fields.size() != kFieldCount)
        return false;
    bool ok[kFieldCount];
    range.min = fields[0].toDouble(&ok[0]);
    range.max = fields[1].toDouble(&ok[1]);
    const int red = fields[2].toInt(&ok[2], base);
    const int green = fields[3].toInt(&ok[3], base);
    const int blue = fields[4].toInt(&ok[4], base);
    range.color = NcCmColor::fromRGB(red, green, blue);
    return !strict || std::all_of(std::begin(ok), std::end(ok), [](bool good) { return good; });
}

} // namespace

LevelMap::LevelMap(int wantedId) : id(wantedId)
{
    recomputeLimits();
    if (id > 0) {
        load();
        return;
    }
    name = builtInLevelMapName(id);
    ranges = builtInScale(id);
    recomputeLimits();
}

void LevelMap::fillGradient(double min, double max, int count)
{
    ranges.clear();
    id = User;
    if (count >= 1) {
        const double step = (max - min) / count;
        const double f = 1.0 / count;
        double t = 0.0;
        // A step that does not move the bound would never end.
        for (double lower = min; lower < max && lower + step > lower; lower += step, t += f) {
            const double m = t + f * 0.5;
            const bool inside = 0.0 <= m && m <= 1.0;
            ranges.push_back({lower, lower + step, inside ? gradientColor(m) : NcCmColor::fromRGB(255, 255, 255)});
            if (int(ranges.size()) > count)
                break;
        }
        if (int(ranges.size()) > count)
            ranges.pop_back();
    }
    recomputeLimits();
}

void LevelMap::recomputeLimits()
{
    minimum = std::numeric_limits<double>::infinity();
    maximum = -std::numeric_limits<double>::infinity();
    for (const LevelRange& range : ranges) {
        minimum = std::min(minimum, range.min);
        maximum = std::max(maximum, range.max);
    }
}

bool LevelMap::load()
{
    const sql::Result result =
        session().run(compose("select levelmap_name, data from levelmaps where levelmap_id=%1", id));
    if (!result.hasRow())
        return false;
    name = result.getvalue(0, 0);
    return parse(result.getvalue(0, 1));
}

bool LevelMap::parse(const QString& data)
{
    ranges.clear();
    bool whole = true;
    for (const QString& part : data.split(QLatin1Char('&'), Qt::SkipEmptyParts)) {
        LevelRange range;
        whole = readRange(part.split(QLatin1Char('|')), 10, false, range);
        if (!whole)
            break;
        ranges.push_back(range);
    }
    recomputeLimits();
    return whole;
}

QString LevelMap::dataText() const
{
    QStringList groups;
    for (const LevelRange& range : ranges)
        groups << rangeText(range, 4, QStringLiteral("|"), 10);
    return groups.join(QLatin1Char('&'));
}

bool LevelMap::exists() const
{
    const sql::Result result = session().run(compose("select levelmap_id from levelmaps where levelmap_id=%1", id));
    return result.hasRow();
}

bool LevelMap::update() const
{
    return session()
        .run(compose("update levelmaps set (levelmap_name,data) = ('%1', '%2') where levelmap_id=%3", name, dataText(),
                     id))
        .isCommand();
}

bool LevelMap::insert()
{
    const sql::Result result = session().run(compose(
        "insert into levelmaps (levelmap_name,data) values ('%1', '%2') returning levelmap_id", name, dataText()));
    if (!result.hasRow())
        return false;
    id = result.toInt(0, 0);
    return true;
}

bool LevelMap::remove() const
{
    return session().run(compose("delete from levelmaps  where levelmap_id = %1", id)).isCommand();
}

bool LevelMap::saveFile(const QString& path, int base) const
{
    QString text;
    for (const LevelRange& range : ranges)
        text += rangeText(range, 2, QStringLiteral(", "), base) + QLatin1Char('\n');
    return ::saveFile(path, text.toUtf8());
}

bool LevelMap::loadFile(const QString& path, int base)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    std::vector<LevelRange> read;
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    while (!stream.atEnd()) {
        LevelRange range;
        if (!readRange(stream.readLine().split(QLatin1Char(','), Qt::SkipEmptyParts), base, true, range))
            return false;
        read.push_back(range);
    }
    ranges = std::move(read);
    recomputeLimits();
    return true;
}

std::vector<double> LevelMap::levels() const
{
    std::vector<double> list;
    if (!ranges.empty())
        list.push_back(ranges.front().min);
    for (const LevelRange& range : ranges)
        list.push_back(range.max);
    return list;
}

const LevelRange* LevelMap::rangeOf(double value) const
{
    const auto found =
        std::find_if(ranges.begin(), ranges.end(), [value](const LevelRange& range) { return range.holds(value); });
    return found == ranges.end() ? nullptr : &*found;
}

QString builtInLevelMapName(int id)
{
    switch (id) {
    case LevelMap::Temperature: return QStringLiteral("Карта температур");
    case LevelMap::Deformation: return QStringLiteral("Карта деформаций");
    case LevelMap::User: return QStringLiteral("Пользовательская");
    default: return QString();
    }
}

std::vector<std::pair<int, QString>> storedLevelMaps()
{
    std::vector<std::pair<int, QString>> maps;
    const sql::Result result = session().run("select levelmap_id, levelmap_name from levelmaps");
    for (int row = 0; row < result.ntuples(); ++row)
        maps.emplace_back(result.toInt(row, 0), result.getvalue(row, 1));
    return maps;
}
