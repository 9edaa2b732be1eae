#include "exchange/stored_criteria.h"

#include "base/statement.h"
#include "session/project_session.h"

namespace {

double numberOf(const sql::Result& row, int column)
{
    bool ok = false;
    const double number = row.toDouble(0, column, &ok);
    return ok ? number : std::numeric_limits<double>::infinity();
}

PositionNorms readNorms(int positionId)
{
    PositionNorms norms;
    const sql::Result row = session().run(
        compose("select averagediff, temperature_deep_min, temperature_deep_max from positions_attributes "
                "where position_id = %1",
                positionId));
    if (!row.hasRow())
        return norms;
    norms.found = true;
    norms.settlement = numberOf(row, 0);
    norms.depthFrom = numberOf(row, 1);
    norms.depthTo = numberOf(row, 2);
    return norms;
}

PreviousMeasure readPrevious(const Statement& statement)
{
    const sql::Result row = session().run(statement);
    if (!row.isTuples())
        return {PreviousMeasure::Failed, QString()};
    if (row.ntuples() == 0)
        return {PreviousMeasure::None, QString()};
    return {PreviousMeasure::Found, row.getvalue(0, 0)};
}

} // namespace

PositionNorms StoredCriteria::norms(int positionId)
{
    const auto found = norms_.constFind(positionId);
    return found != norms_.constEnd() ? *found : *norms_.insert(positionId, readNorms(positionId));
}

PreviousMeasure StoredCriteria::previous(const char* statement, int elementId, int cycleId)
{
    const QPair<int, int> key(elementId, cycleId);
    const auto found = previous_.constFind(key);
    return found != previous_.constEnd() ? *found
                                         : *previous_.insert(key, readPrevious(compose(statement, elementId, cycleId)));
}

void StoredCriteria::forget()
{
    norms_.clear();
    previous_.clear();
}
