#include "analysis/grading/position_attributes.h"

#include "base/text.h"
#include "session/project_session.h"
#include "session/server_problem.h"

#include <cmath>

namespace {

// A text that is no number is not set either: a grade that cannot be given is
// better than one of a wrong limit.
double numberOf(const sql::Result& rows, int row, int column)
{
    bool ok = false;
    const double number = rows.toDouble(row, column, &ok);
    return rows.isNull(row, column) || !ok || std::isnan(number) ? PositionAttributes::none : number;
}

// As many digits as bring the same number back.
Numeral numeralOf(double number)
{
    return Numeral(std::isfinite(number) ? QString::number(number, 'g', 17) : QStringLiteral("null"));
}

Numeral keyOf(int id) { return Numeral(id == -1 ? QStringLiteral("null") : QString::number(id)); }

} // namespace

PositionAttributes loadAttributes(int positionId)
{
    enum Column {
        Id,
        Position,
        DeepMin,
        DeepMax,
        TemperatureH,
        RelativeDiff,
        AverageDiff,
        Roll,
        Height,
        NormId,
        TemperatureBf,
        BaseDepth
    };
    const sql::Result rows = session().run(
        compose("select attr_id, position_id, temperature_deep_min, temperature_deep_max, temperature_h, relativediff, "
                "averagediff, roll, constr_height, norm_id, temperature_bf, base_depth from positions_attributes "
                "where position_id=%1 order by attr_id desc limit 1",
                positionId));
    PositionAttributes found;
    found.positionId = positionId;
    found.unread = !rows.isTuples();
    if (!rows.hasRow())
        return found;
    found.exist = true;
    found.id = rows.toInt(0, Id);
    found.normId = rows.isNull(0, NormId) ? -1 : rows.toInt(0, NormId);
    found.deepMin = numberOf(rows, 0, DeepMin);
    found.deepMax = numberOf(rows, 0, DeepMax);
    found.temperatureH = numberOf(rows, 0, TemperatureH);
    found.temperatureBf = numberOf(rows, 0, TemperatureBf);
    found.baseDepth = numberOf(rows, 0, BaseDepth);
    found.relativeDiff = numberOf(rows, 0, RelativeDiff);
    found.averageDiff = numberOf(rows, 0, AverageDiff);
    found.roll = numberOf(rows, 0, Roll);
    found.height = numberOf(rows, 0, Height);
    return found;
}

// A second row beside one that could not be read would stand for all of the norms.
bool storeAttributes(PositionAttributes& attributes, QString* problem)
{
    if (attributes.unread) {
        if (problem)
            *problem = QStringLiteral("прежние нормы позиции не прочитаны. Откройте её паспорт снова.");
        return false;
    }
    const QVector<StatementValue> values{attributes.positionId,
                                         numeralOf(attributes.deepMin),
                                         numeralOf(attributes.deepMax),
                                         numeralOf(attributes.temperatureH),
                                         numeralOf(attributes.relativeDiff),
                                         numeralOf(attributes.averageDiff),
                                         numeralOf(attributes.roll),
                                         numeralOf(attributes.height),
                                         keyOf(attributes.normId),
                                         numeralOf(attributes.temperatureBf),
                                         numeralOf(attributes.baseDepth),
                                         attributes.id};
    const sql::Result stored = session().run(
        attributes.exist
            ? compose("update positions_attributes set (position_id, temperature_deep_min, temperature_deep_max, "
                      "temperature_h, relativediff, averagediff, roll, constr_height, norm_id, temperature_bf, "
                      "base_depth) = (%1,%2,%3,%4,%5,%6,%7,%8,%9,%10,%11) where attr_id=%12 returning attr_id",
                      values)
            : compose("insert into positions_attributes (position_id, temperature_deep_min, temperature_deep_max, "
                      "temperature_h, relativediff, averagediff, roll, constr_height, norm_id, temperature_bf, "
                      "base_depth) values (%1,%2,%3,%4,%5,%6,%7,%8,%9,%10,%11) returning attr_id",
                      values));
    if (!orProblem(stored, stored.hasRow(), problem))
        return false;
    attributes.id = stored.toInt(0, 0);
    attributes.exist = true;
    return true;
}

bool deleteAttributes(int positionId, QString* problem)
{
    const sql::Result gone =
        session().run(compose("delete from positions_attributes where position_id=%1", positionId));
    return orProblem(gone, gone.isCommand(), problem);
}

std::vector<Norm> loadNorms()
{
    enum Column { Id, Code, Description, RelativeDiff, AverageDiff, Roll };
    const sql::Result rows =
        session().run("SELECT norm_id, code, description, relativediff, averagediff, roll FROM norm_sp22_13330");
    std::vector<Norm> norms;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        norms.push_back({rows.toInt(row, Id), rows.getvalue(row, Code), rows.getvalue(row, Description),
                         numberOf(rows, row, RelativeDiff), numberOf(rows, row, AverageDiff),
                         numberOf(rows, row, Roll)});
    return norms;
}
