#include "charts/chart_series.h"

#include <array>

namespace {

constexpr auto primary = PlotAxisKey::Primary;
constexpr auto above = KeyPosition::AboveRight;
constexpr auto inside = KeyPosition::InsideTopRight;

QString text(const char* words) { return QString::fromUtf8(words); }

using Rows = std::array<ChartSeries, 7>;

const Rows& rows()
{
    // In the order of SeriesKey.
    static const Rows all{{
        {text("Вертикальное перемещение"), text("Вертикальное перемещение,мм"), text("Вертикальное перемещение, мм"),
         1000.0, true, true, false, true, primary, above},
        {text("Тренд"), text("Тренд"), QString(), 1000.0, false, false, false, false, primary, above},
        {text("Уровень ГВ."), text("Уровень ГВ."), text("Уровень ГВ."), 1.0, true, true, true, true, primary, inside},
        {text("Тем-ра Возд."), text("Тем-ра Возд."), text("Температура ."), 1.0, true, true, true, true, primary,
         inside},
        {text("Тем-ра обменника"), text("Тем-ра обменника"), QString(), 1.0, true, false, true, true, primary, inside},
        {text("Плотность СП"), text("Плотность СП"), text("Плотность СП"), 1.0, true, true, false, true,
         PlotAxisKey::Secondary, inside},
        {text("Высота СП,мм."), text("Высота СП,мм."), text("Высота СП,мм."), 1.0, true, true, true, true, primary,
         inside},
    }};
    return all;
}

} // namespace

const ChartSeries& chartSeries(SeriesKey key) { return rows()[size_t(key)]; }
