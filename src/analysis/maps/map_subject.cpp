#include "analysis/maps/map_subject.h"

#include "analysis/maps/map_drawing.h"
#include "base/placeholders.h"
#include "base/text.h"

#include <QLocale>

namespace {

constexpr int kMetreDecimals = 2;
constexpr int kBoundDigits = 8;

QString metres(double value) { return QLocale().toString(value, 'f', kMetreDecimals); }

// A line of the description stays one line.
QString plain(const QString& text) { return text.simplified(); }

QString bandLine(double level, const LevelMap& levelMap)
{
    const NcCmColor color = bandColor(levelMap, level);
    const QString name = QString::asprintf("#%02x%02x%02x", color.red(), color.green(), color.blue());
    const LevelRange* range = bandRange(levelMap, level);
    return range ? fill("%1 %2 %3", name, general(range->min, kBoundDigits), general(range->max, kBoundDigits)) : name;
}

} // namespace

QString samplingText(const Sampling& sampling)
{
    if (sampling.bottom)
        return QStringLiteral("у забоя");
    switch (sampling.mode) {
    case Sampling::Elevation: return fill("отметка %1 м", metres(sampling.key));
    case Sampling::Average:
        return sampling.toEnd ? fill("среднее с %1 м до забоя", metres(sampling.from))
                              : fill("среднее с %1 до %2 м", metres(sampling.from), metres(sampling.to));
    case Sampling::Depth: break;
    }
    return fill("%1 м", metres(sampling.key));
}

QString mapDescription(const MapSubject& subject, const std::vector<contour::HatchBand>& bands,
                       const LevelMap& levelMap)
{
    QStringList lines = {subject.title.isEmpty() ? QStringLiteral("Карта") : plain(subject.title)};
    if (!subject.cycle.isEmpty())
        lines << QStringLiteral("цикл: ") + plain(subject.cycle);
    if (!subject.depth.isEmpty())
        lines << QStringLiteral("глубина: ") + plain(subject.depth);
    for (const contour::HatchBand& band : bands)
        lines << bandLine(band.level, levelMap);
    return lines.join(QLatin1Char('\n'));
}
