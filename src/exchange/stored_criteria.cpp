#include "exchange/stored_criteria.h"

#include "base/statement.h"
#include "session/project_session.h"

namespace {

constexpr int askedAtOnce = 500;

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
    const MeasureKey key(elementId, cycleId);
    const auto found = previous_.constFind(key);
    return found != previous_.constEnd() ? *found
                                         : *previous_.insert(key, readPrevious(compose(statement, elementId, cycleId)));
}

// The statement of one element and cycle becomes a part of the one that asks for many: their names
// are none of its own tables'.
bool StoredCriteria::readAhead(const char* statement, const QVector<MeasureKey>& wanted, const WorkStep& step)
{
    enum Column { Element, Cycle, Value, MeasureId };
    const Statement one = compose(statement, Identifier("asked_element"), Identifier("asked_cycle"));
    for (int first = 0; first < wanted.size(); first += askedAtOnce) {
        if (step && !step(first, wanted.size()))
            return false;
        QVector<Statement> pairs;
        for (const MeasureKey& key : wanted.mid(first, askedAtOnce))
            pairs.append(compose("(%1,%2)", key.first, key.second));
        const sql::Result rows = session().run(compose("select asked_element, asked_cycle, found.* from (values %1) as "
                                                       "asked (asked_element, asked_cycle) left join lateral (%2) as "
                                                       "found on true",
                                                       joined(pairs, ","), one));
        for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
            PreviousMeasure& previous = previous_[{rows.toInt(row, Element), rows.toInt(row, Cycle)}];
            previous.state = rows.isNull(row, MeasureId) ? PreviousMeasure::None : PreviousMeasure::Found;
            previous.text = rows.getvalue(row, Value);
        }
    }
    return true;
}

void StoredCriteria::forget()
{
    norms_.clear();
    previous_.clear();
}
