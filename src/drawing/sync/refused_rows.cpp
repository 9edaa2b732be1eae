#include "drawing/sync/refused_rows.h"

#include "base/placeholders.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <numeric>

namespace {

const char* const reasonTexts[] = {"только чтение: %1", "блокировка: %1", "время ожидания: %1", "связь: %1",
                                   "другая причина: %1"};

} // namespace

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
