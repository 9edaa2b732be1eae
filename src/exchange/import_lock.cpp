#include "exchange/import_lock.h"

#include "base/statement.h"
#include "session/project_session.h"

namespace {

constexpr int importLocks = 7410; ///< the first half of the server's key, ours alone

} // namespace

ImportLock::ImportLock(FamilyKey family) : number_(int(family))
{
    const sql::Result answer = session().run(compose("select pg_try_advisory_lock(%1, %2)", importLocks, number_));
    held_ = answer.getvalue(0, 0) == QLatin1String("t");
    taken_ = answer.getvalue(0, 0) == QLatin1String("f");
}

// Closed with its connection, the lock is gone already.
ImportLock::~ImportLock()
{
    if (held_)
        session().run(compose("select pg_advisory_unlock(%1, %2)", importLocks, number_));
}
