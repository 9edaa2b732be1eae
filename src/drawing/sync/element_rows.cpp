#include "drawing/sync/element_rows.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <numeric>

namespace {

struct LevelJoin {
    const char* join;
    const char* condition;
};

// From the position upwards; a level joins what stands before it.
const std::array<LevelJoin, 4>& levelJoins()
{
    static const std::array<LevelJoin, 4> joins = {{
        {"left join positions using(position_id) ", "where position_id ="},
        {"left join subobjects using (subobject_id) ", "where subobject_id ="},
        {"left join objects using (object_id) ", "where object_id ="},
        {"left join projects using (project_id) ", "where project_id ="},
    }};
    return joins;
}

Statement selection(const Family& family, SyncLevel level)
{
    if (family.hasDepth)
        return compose("select element_id, type_id, element_name, state_id, position_id, x, y,z, h,e,block_rotation,"
                       "marker_rotation,scale, props from %1 ",
                       Identifier(family.elements))
            + compose("join %1 using (element_id) ", Identifier(family.dynprops));
    const Statement end = level <= SyncLevel::Object ? " " : "";
    return compose("select element_id, type_id, element_name, state_id, position_id, x, y,z, h,block_rotation,"
                   "marker_rotation,scale, props from %1 ",
                   Identifier(family.elements))
        + end + compose("left join %1 using (element_id) ", Identifier(family.dynprops));
}

const char* const reasonTexts[] = {"только чтение: %1", "блокировка: %1", "время ожидания: %1", "связь: %1",
                                   "другая причина: %1"};

} // namespace

Statement rowStatement(const Family& family, int id, SyncLevel level)
{
    Statement statement = selection(family, level);
    const size_t steps = size_t(SyncLevel::Position) - size_t(level);
    for (size_t step = 0; step <= steps; ++step)
        statement += levelJoins()[step].join;
    return statement + levelJoins()[steps].condition + compose("%1", id);
}

// The codes are those of the server's documentation, appendix "Error Codes".
RefusedRows::Reason RefusedRows::reasonOf(const QString& sqlState)
{
    if (sqlState == QLatin1String("25006"))
        return ReadOnly;
    // lock_not_available, deadlock_detected, serialization_failure
    for (const char* lock : {"55P03", "40P01", "40001"}) {
        if (sqlState == QLatin1String(lock))
            return Lock;
    }
    if (sqlState == QLatin1String("57014"))
        return TimeOut;
    const bool serverEnds = sqlState.startsWith(QLatin1String("08")) || sqlState.startsWith(QLatin1String("57P"));
    return serverEnds || (sqlState.isEmpty() && !session().connection.isOk()) ? Link : Other;
}

void RefusedRows::add(const QString& sqlState) { ++counts_[reasonOf(sqlState)]; }

void RefusedRows::tell() const
{
    const int all = std::accumulate(counts_.begin(), counts_.end(), 0);
    if (all == 0)
        return;
    QStringList reasons;
    for (size_t reason = 0; reason < counts_.size(); ++reason) {
        if (counts_[reason] != 0)
            reasons.append(fill(reasonTexts[reason], counts_[reason]));
    }
    say(fill("\nНе записано в базу данных элементов: %1 (%2)\n", all, reasons.join(QStringLiteral(", "))));
}
