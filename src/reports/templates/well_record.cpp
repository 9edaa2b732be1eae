#include "reports/templates/well_record.h"

#include "base/placeholders.h"
#include "elements/measures/measures_of_element.h"
#include "elements/passports/element_files.h"
#include "elements/passports/well_ground.h"
#include "session/project_session.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {

// Pixels at the size in which the chart is read, and how many there are of each.
constexpr int pictureWidth = 480, pictureHeight = 560;
constexpr double pictureRatio = 2.0;

double numberAt(const sql::Result& row, int column)
{
    return row.isNull(0, column) ? WellRecord::none : row.toDouble(0, column);
}

double orZero(double value) { return std::isfinite(value) ? value : 0.0; }

QVector<WellRecord::Measure> loadMeasures(int elementId)
{
    MeasureLists lists;
    loadDevices(lists);
    QVector<WellRecord::Measure> measures;
    const Measures stored = loadMeasuresOf(
        *measureFamily(FamilyKey::Ts),
        compose("select meas_ts_id from ts_meas where element_id = %1 order by date;", elementId), lists);
    for (const std::unique_ptr<BaseMeasure>& row : stored) {
        const TSMeasure& measure = static_cast<const TSMeasure&>(*row);
        measures.append({measure.date.date(), measure.deviceSerial, session().cycles.value(measure.cycleId).value(0),
                         measure.cycleId, logOf(measure.profile)});
    }
    return measures;
}

} // namespace

double WellRecord::ground() const { return orZero(z) - orZero(h); }

double WellRecord::sensorDepth() const
{
    double deepest = none;
    for (const Measure& measure : measures) {
        if (!measure.log.empty() && (!std::isfinite(deepest) || measure.log.rbegin()->first > deepest))
            deepest = measure.log.rbegin()->first;
    }
    return deepest;
}

QVector<double> WellRecord::depths() const
{
    std::set<double> all;
    for (const Measure& measure : measures) {
        for (const auto& reading : measure.log)
            all.insert(reading.first);
    }
    QVector<double> sorted;
    for (const double depth : all)
        sorted.append(depth);
    return sorted;
}

bool WellRecord::load(int elementId)
{
    enum Column { Id, Name, Position, X, Y, Z, H, Depth, ProjectedDepth, Subobject, Object, PositionId };
    const sql::Result row = session().run(
        compose("select element_id, element_name, position, x, y, z, h,depth,depth_proj,subobject,object,position_id "
                "from ts_elements left join positions using (position_id) left join subobjects using (subobject_id) "
                "left join objects using (object_id) where element_id = %1 ",
                elementId));
    *this = WellRecord();
    if (!row.hasRow())
        return false;
    id = elementId;
    name = row.getvalue(0, Name);
    position = row.getvalue(0, Position);
    x = numberAt(row, X);
    y = numberAt(row, Y);
    z = numberAt(row, Z);
    h = numberAt(row, H);
    depth = numberAt(row, Depth);
    projectedDepth = numberAt(row, ProjectedDepth);
    positionId = row.toInt(0, PositionId);
    measures = loadMeasures(id);
    limits = loadTemperatureLimits(positionId, ground());
    layers = loadChartLayers(id);
    const Family& wells = family(FamilyKey::Ts);
    layout = loadPictureFile(wells, id, PictureSlot::Sketch);
    photo = loadPictureFile(wells, id, PictureSlot::Photo);
    column = loadPictureFile(wells, id, PictureSlot::Column);
    return true;
}

void WellRecord::keepCycles(const QVector<int>& cycles)
{
    const auto isOther = [&](const Measure& measure) { return !cycles.contains(measure.cycleId); };
    measures.erase(std::remove_if(measures.begin(), measures.end(), isOther), measures.end());
}

QPixmap temperaturePicture(const WellRecord& well, bool withGeology)
{
    QVector<TemperatureCurve> curves;
    QStringList titles;
    for (const WellRecord::Measure& measure : well.measures) {
        TemperatureCurve curve;
        for (const auto& [depth, temperature] : measure.log)
            curve[well.ground() - depth] = temperature;
        curves.append(curve);
        titles.append(fill(QStringLiteral("Цикл %1"), measure.cycle));
    }
    TSTemperatureChartJK chart;
    chart.setPictureSize(pictureWidth, pictureHeight);
    if (withGeology)
        chart.setGeology(well.layers, orZero(well.z), orZero(well.h), hatchFolder());
    chart.plot(curves, titles, well.limits, TemperatureLimits::none, TemperatureLimits::none);
    return chart.render(pictureRatio);
}
