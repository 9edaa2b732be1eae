#include "session/numbering.h"

#include "base/statement.h"
#include "elements/families/families.h"
#include "session/project_session.h"

#include <limits>
#include <optional>

namespace {

struct NumberedFamily {
    FamilyKey family;
    Enumerator ProjectSession::*enumerator;
    QString prefix;
};

const FamilyTable<NumberedFamily, 6>& numberedFamilies()
{
    static const FamilyTable<NumberedFamily, 6> rows = {
        {FamilyKey::Dm, &ProjectSession::dmEnumerator, "ДМ."},
        {FamilyKey::Ts, &ProjectSession::tsEnumerator, "ТС."},
        {FamilyKey::Tss, &ProjectSession::tssEnumerator, "ТCС."}, // the second letter is a Latin C; drawings hold it so
        {FamilyKey::Rp, &ProjectSession::rpEnumerator, "RP."},
        {FamilyKey::Ggs, &ProjectSession::ggsEnumerator, "ГГС."},
        {FamilyKey::Tsg, &ProjectSession::tsgEnumerator, "ТСГ."},
    };
    return rows;
}

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
    for (const NumberedFamily& numbered : numberedFamilies()) {
        const sql::Result rows = session.run(compose("SELECT element_name FROM %1 WHERE position_id=%2",
                                                     Identifier(family(numbered.family).elements), positionId));
        if (!rows.isTuples())
            continue;
        session.*numbered.enumerator = {numbered.prefix, nextNumber(firstColumn(rows)), digits};
    }
}
