#include "reports/templates/position_norms.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "session/project_session.h"

#include <cmath>

namespace {

// Shares of the limits at which a state ends.
constexpr double settlementReserve = 1.1;
constexpr double relativeWorking = 0.25;
constexpr double relativeLimited = 0.8;

QString none() { return QStringLiteral(" -- "); }

// The text with its numbers; none where one of them is not set.
QString bounds(const char* text, double first, double second = 0.0)
{
    if (!std::isfinite(first) || !std::isfinite(second))
        return none();
    return fill(QString::fromUtf8(text), general(first), general(second));
}

double numberAt(const sql::Result& row, int column)
{
    return row.isNull(0, column) ? ReportedNorms::none : row.toDouble(0, column);
}

} // namespace

ReportedNorms ReportedNorms::load(int positionId)
{
    enum Column { DeepMin, DeepMax, TemperatureH, TemperatureBf, BaseDepth, Settlement, Relative, Construction };
    const sql::Result row = session().run(
        compose("select temperature_deep_min, temperature_deep_max, temperature_h, temperature_bf, base_depth, "
                "positions_attributes.averagediff, positions_attributes.relativediff, description from "
                "positions_attributes left join norm_sp22_13330 using (norm_id) where position_id = %1",
                positionId));
    ReportedNorms norms;
    if (!row.hasRow())
        return norms;
    norms.exist = true;
    norms.depthFrom = numberAt(row, DeepMin);
    norms.depthTo = numberAt(row, DeepMax);
    norms.temperatureH = numberAt(row, TemperatureH);
    norms.temperatureBf = numberAt(row, TemperatureBf);
    norms.baseDepth = numberAt(row, BaseDepth);
    norms.settlement = numberAt(row, Settlement);
    norms.relative = numberAt(row, Relative);
    norms.construction = row.getvalue(0, Construction);
    return norms;
}

QString depthText(double from, double to)
{
    if (!std::isfinite(from) || !std::isfinite(to) || from == to)
        return bounds("Глубина %1 м.", std::isfinite(from) ? from : to);
    return bounds("Интервал от %1м. до %2м.", from, to);
}

QVector<QStringList> normRows(const ReportedNorms& norms)
{
    if (!norms.exist)
        return {};
    const double most = norms.settlement;
    const double relative = norms.relative;
    return {
        {depthText(norms.depthFrom, norms.depthTo), bounds("Менее %1 ", norms.temperatureH),
         bounds("От %1 ", norms.temperatureH), bounds("От %1 ", norms.temperatureBf), none()},
        {depthText(norms.baseDepth, norms.baseDepth), none(), none(), bounds("Менее %1 ", norms.temperatureBf),
         bounds("От %1 ", norms.temperatureBf)},
        {QStringLiteral("Осадка"), bounds("менее %1 см", most),
         bounds("от %1 см до %2 см", most, most * settlementReserve), none(),
         bounds("более %1 см", most * settlementReserve)},
        {QStringLiteral("Относительная осадка"), bounds("менее %1 ", relative * relativeWorking),
         bounds("от %1  до %2 ", relative * relativeWorking, relative * relativeLimited),
         bounds("от %1  до %2 ", relative * relativeLimited, relative), bounds("более %1 ", relative)},
    };
}
