#include "elements/passports/profile_picture.h"

#include <set>

void ProfilePicture::readGround()
{
    limits_ = loadTemperatureLimits(record_.row.value(PositionId).toInt(), record_.ground());
    layers_ = loadChartLayers(record_.id());
}

QPixmap ProfilePicture::render(const ProfileWishes& wishes, const QSize& size, double ratio) const
{
    QVector<TemperatureCurve> curves;
    QStringList titles;
    std::set<double> depths;
    for (const std::unique_ptr<BaseMeasure>& measure : record_.measures) {
        if (!wishes.measures.contains(measure->measureId))
            continue;
        TemperatureCurve curve;
        for (const auto& [depth, temperature] : logOf(static_cast<const TSMeasure&>(*measure).profile)) {
            curve[record_.ground() - depth] = temperature;
            depths.insert(depth);
        }
        curves.append(curve);
        titles.append(record_.lists.cycleText(measure->cycleId));
    }
    if (depths.empty())
        return {};
    TSTemperatureChartJK chart;
    chart.setPictureSize(size.width(), size.height());
    if (wishes.withGround)
        chart.setGeology(layers_, record_.mouth(), record_.row.value(Height).toDouble(), hatchFolder());
    chart.setKeyShown(wishes.withKey);
    chart.plot(curves, titles, limits_, TemperatureLimits::none, TemperatureLimits::none);
    chart.addDepthAxis(QVector<double>(depths.begin(), depths.end()));
    return chart.render(ratio);
}
