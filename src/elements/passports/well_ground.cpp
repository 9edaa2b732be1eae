#include "elements/passports/well_ground.h"

#include "base/statement.h"
#include "session/project_session.h"

#include <cmath>

namespace {

double numberAt(const sql::Result& row, int column)
{
    return row.isNull(0, column) ? TemperatureLimits::none : row.toDouble(0, column);
}

} // namespace

TemperatureLimits loadTemperatureLimits(int positionId, double ground)
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

QVector<GeologyLayer> loadChartLayers(int elementId)
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

QString hatchFolder() { return session().moduleDir + QStringLiteral("pats/"); }
