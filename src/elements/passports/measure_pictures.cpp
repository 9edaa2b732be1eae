#include "elements/passports/measure_pictures.h"

#include "charts/measure_chart.h"

#include <cmath>

namespace {

// A measure without a date or a number is no point of a chart.
TimeSeries seriesOf(const Measures& measures, size_t value)
{
    TimeSeries series;
    for (const std::unique_ptr<BaseMeasure>& measure : measures) {
        if (measure->date.isValid() && std::isfinite(measure->values[value]))
            series.insert(measure->date, measure->values[value]);
    }
    return series;
}

// The displacement since the first measure, in metres.
TimeSeries displacement(const Measures& measures)
{
    TimeSeries series = seriesOf(measures, 0);
    const double first = series.isEmpty() ? 0.0 : series.first();
    for (double& mark : series)
        mark -= first;
    return series;
}

void plotDisplacement(DMDeformationChartJK& chart, const Measures& measures)
{
    chart.plotDisplacement(displacement(measures));
}

void plotLevel(GGSMeasureChartJK& chart, const Measures& measures) { chart.plotLevel(seriesOf(measures, 0)); }

void plotTemperatures(TSGMeasuresChartJK& chart, const Measures& measures)
{
    chart.plotAir(seriesOf(measures, 0));
    chart.plotExchanger(seriesOf(measures, 1));
}

void plotSnow(TSSMeasuresChartJK& chart, const Measures& measures)
{
    chart.plotDensity(seriesOf(measures, 0));
    chart.plotHeight(seriesOf(measures, 1));
}

template <class Chart, void (*plot)(Chart&, const Measures&)>
QPixmap picture(const Measures& measures, const QSize& size, double ratio)
{
    Chart chart;
    chart.setPictureSize(size.width(), size.height());
    plot(chart, measures);
    return chart.plotter().contents().isEmpty() ? QPixmap() : chart.render(ratio);
}

struct FamilyPicture {
    FamilyKey family;
    QPixmap (*make)(const Measures& measures, const QSize& size, double ratio);
};

} // namespace

QPixmap measurePicture(FamilyKey family, const Measures& measures, const QSize& size, double ratio)
{
    static const FamilyTable<FamilyPicture, measuredFamilyCount - 1> rows = {
        {FamilyKey::Dm, picture<DMDeformationChartJK, plotDisplacement>},
        {FamilyKey::Rp, picture<DMDeformationChartJK, plotDisplacement>},
        {FamilyKey::Ggs, picture<GGSMeasureChartJK, plotLevel>},
        {FamilyKey::Tss, picture<TSSMeasuresChartJK, plotSnow>},
        {FamilyKey::Tsg, picture<TSGMeasuresChartJK, plotTemperatures>},
    };
    const FamilyPicture* row = rows.find(family);
    return row ? row->make(measures, size, ratio) : QPixmap();
}
