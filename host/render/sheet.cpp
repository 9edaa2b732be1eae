#include "sheet.h"

#include <algorithm>
#include <cmath>

namespace {

const struct {
    const char* name;
    double width, height; // standing
} kPapers[] = {{"A4", 210, 297}, {"A3", 297, 420}, {"A2", 420, 594}, {"A1", 594, 841}, {"A0", 841, 1189}};

// Room for binding on the left, as on every sheet of a project.
constexpr double kBinding = 20.0, kMargin = 5.0;
constexpr double kLeastBar = 25.0, kMillimetresOfMetre = 1000.0;
constexpr size_t kMostSigns = 12;

} // namespace

QStringList paperNames()
{
    QStringList names;
    for (const auto& paper : kPapers)
        names << QString::fromLatin1(paper.name);
    return names;
}

std::vector<double> usualScales() { return {100, 200, 250, 500, 1000, 2000, 2500, 5000}; }

double readScale(const QString& text)
{
    QString number = text.trimmed();
    if (number.startsWith(QLatin1String("1:")))
        number = number.mid(2);
    bool good = false;
    const double scale = number.replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&good);
    return good && std::isfinite(scale) && scale > 0.0 ? scale : 0.0;
}

QSizeF paperSize(const Sheet& sheet)
{
    for (const auto& paper : kPapers)
        if (sheet.paper == QLatin1String(paper.name))
            return sheet.landscape ? QSizeF(paper.height, paper.width) : QSizeF(paper.width, paper.height);
    return {297.0, 210.0};
}

QRectF fieldOf(const Sheet& sheet)
{
    const QRectF paper(QPointF(0, 0), paperSize(sheet));
    return sheet.frame ? paper.adjusted(kBinding, kMargin, -kMargin, -kMargin)
                       : paper.adjusted(kMargin, kMargin, -kMargin, -kMargin);
}

double millimetresOfUnit(const Sheet& sheet)
{
    return (sheet.millimetres ? 1.0 : kMillimetresOfMetre) / std::max(sheet.scale, 1e-9);
}

QRectF shownWorld(const Sheet& sheet)
{
    const QSizeF size = fieldOf(sheet).size() / millimetresOfUnit(sheet);
    QRectF world(QPointF(0, 0), size);
    world.moveCenter(sheet.center);
    return world;
}

double fittingScale(const Sheet& sheet, const QRectF& window)
{
    Sheet tried = sheet;
    for (const double scale : usualScales()) {
        tried.scale = scale;
        const QRectF shown = shownWorld(tried);
        if (shown.width() >= window.width() && shown.height() >= window.height())
            return scale;
    }
    return usualScales().back();
}

// 1, 2 or 5 of a power of ten; the shortest of those that are not too short.
double barLength(const Sheet& sheet)
{
    const double least = kLeastBar / millimetresOfUnit(sheet);
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double step : {1.0, 2.0, 5.0})
        if (step * power >= least * (1.0 - 1e-9))
            return step * power;
    return 10.0 * power;
}

std::vector<Sheet::Sign> signsOf(const DisplayList& list, const Sheet& sheet, const std::set<NcDbObjectId>& told)
{
    const QRectF shown = shownWorld(sheet);
    std::vector<Sheet::Sign> signs;
    for (const Figure& figure : list.figures()) {
        if (figure.kind == Figure::Text || figure.background || figure.thin || told.count(figure.source)
            || !shown.intersects(figure.box.adjusted(-1e-6, -1e-6, 1e-6, 1e-6)))
            continue;
        const auto known = std::find_if(signs.begin(), signs.end(),
                                        [&](const Sheet::Sign& sign) { return sign.text == figure.layer; });
        const bool fills = figure.kind == Figure::Fill;
        if (known == signs.end())
            signs.push_back({figure.foreground ? QColor(Qt::black) : figure.color, figure.layer,
                             fills ? Sheet::Sign::Patch : Sheet::Sign::Line});
        else if (!fills)
            known->kind = Sheet::Sign::Line;
        if (signs.size() >= kMostSigns)
            break;
    }
    std::sort(signs.begin(), signs.end(),
              [](const Sheet::Sign& a, const Sheet::Sign& b) { return a.text.localeAwareCompare(b.text) < 0; });
    return signs;
}
