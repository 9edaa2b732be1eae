#include "session/numbering.h"

#include "base/placeholders.h"
#include "session/project_session.h"

#include <limits>
#include <optional>

namespace {

struct NumberedFamily {
    Enumerator ProjectSession::*enumerator;
    const char* table;
    const char* prefix;
};

const NumberedFamily families[] = {
    {&ProjectSession::dmEnumerator, "dm_elements", "ДМ."},    {&ProjectSession::tsEnumerator, "ts_elements", "ТС."},
    {&ProjectSession::tssEnumerator, "tss_elements", "ТCС."}, // the second letter is a Latin C; drawings hold it so
    {&ProjectSession::rpEnumerator, "rp_elements", "RP."},    {&ProjectSession::ggsEnumerator, "ggs_elements", "ГГС."},
    {&ProjectSession::tsgEnumerator, "tsg_elements", "ТСГ."},
};

constexpr int greatestOfNone = 99;
constexpr int digits = 3;

QStringList firstColumn(const sql::Result& rows)
{
    QStringList values;
    for (int i = 0; i < rows.ntuples(); ++i)
        values << rows.getvalue(i, 0);
    return values;
}

} // namespace

int nextNumber(const QStringList& names)
{
    static const QRegularExpression run(QStringLiteral("(\\d+)"));
    std::optional<int> greatest;
    for (const QString& name : names) {
        const QRegularExpressionMatch match = run.match(name);
        if (match.hasMatch())
            greatest = qMax(greatest.value_or(0), match.captured(1).toInt());
    }
    const int last = greatest.value_or(greatestOfNone);
    return last == std::numeric_limits<int>::max() ? last : last + 1;
}

void renumberFamilies(ProjectSession& session, int positionId)
{
    for (const NumberedFamily& family : families) {
        const sql::Result rows = session.run(
            fill(QStringLiteral("SELECT element_name FROM %1 WHERE position_id=%2"), family.table, positionId));
        if (!rows.isTuples())
            continue;
        session.*family.enumerator = {QString::fromUtf8(family.prefix), nextNumber(firstColumn(rows)), digits};
    }
}
