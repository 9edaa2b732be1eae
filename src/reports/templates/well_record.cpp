#include "reports/templates/well_record.h"

#include "base/placeholders.h"
#include "elements/measures/family_measures.h"
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
    const sql::Result ids =
        session().run(compose("select meas_ts_id from ts_meas where element_id = %1 order by date;", elementId));
    for (int i = 0; i < ids.ntuples(); ++i) {
        TSMeasure measure(lists);
        if (measure.load(ids.toInt(i, 0)) != measureOk)
            continue;
        measures.append({measure.date.date(), measure.deviceSerial, session().cycles.value(measure.cycleId).value(0),
                         measure.cycleId, logOf(measure.profile)});
    }
    return measures;
}

QPixmap loadPicture(int elementId, const char* type)
{
    const sql::Result row =
        session().run("select content from ts_files where element_id=$1::integer and file_type=$2::filetype",
                      {sql::text(elementId), sql::text(QString::fromLatin1(type))}, sql::Format::Binary);
    QPixmap picture;
    if (row.hasRow())
        picture.loadFromData(row.bytes(0, 0), "PNG");
    return picture;
}

QVector<GeologyLayer> loadLayers(int elementId)
{
    enum Column { DepthFrom, DepthTo, Pattern, Scale, Color, Code };
    const sql::Result rows = session().run(
        compose("SELECT tgl.depth_from, tgl.depth_to, gec.hatch_pattern_name, gec.hatch_scale, gec.color_hex, gec.code "
                "FROM ts_geology_layers tgl LEFT JOIN geology_ege_catalog gec ON tgl.ege_id = gec.ege_id WHERE "
                "tgl.element_id = %1 ORDER BY tgl.depth_from",
                elementId));
    QVector<GeologyLayer> layers;
    for (int i = 0; i < rows.ntuples(); ++i)
        layers.append({rows.toDouble(i, DepthFrom), rows.toDouble(i, DepthTo), rows.getvalue(i, Pattern),
                       rows.toDouble(i, Scale), rows.getvalue(i, Color), rows.getvalue(i, Code)});
    return layers;
}

TemperatureLimits loadLimits(int positionId, double ground)
{
    enum Column { TemperatureH, TemperatureBf, BaseDepth, DeepMin, DeepMax };
    const sql::Result row =
        session().run(compose("select temperature_h, temperature_bf, base_depth, temperature_deep_min, "
                              "temperature_deep_max from positions_attributes where position_id = %1",
                              positionId));
    TemperatureLimits limits;
    if (!row.hasRow())
        return limits;
    limits.temperatureH = numberAt(row, TemperatureH);
    limits.temperatureBf = numberAt(row, TemperatureBf);
    // A depth that is not set stays not there as an elevation.
    const auto elevation = [&](Column column) {
        const double depth = numberAt(row, column);
        return std::isfinite(depth) ? ground - depth : TemperatureLimits::none;
    };
    limits.elevationZ = elevation(BaseDepth);
    limits.elevation1 = elevation(DeepMin);
    limits.elevation2 = elevation(DeepMax);
    return limits;
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
    limits = loadLimits(positionId, ground());
    layers = loadLayers(id);
    layout = loadPicture(id, "abris");
    photo = loadPicture(id, "photo");
    column = loadPicture(id, "geocol");
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
        chart.setGeology(well.layers, orZero(well.z), orZero(well.h), session().moduleDir + QStringLiteral("pats/"));
    chart.plot(curves, titles, well.limits, TemperatureLimits::none, TemperatureLimits::none);
    return chart.render(pictureRatio);
}
