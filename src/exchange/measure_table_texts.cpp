// What is read off the table of an import.
#include "exchange/measure_table.h"

#include "base/placeholders.h"

namespace {

// A cell of copied text stays on its line.
QString onOneLine(QString text)
{
    return text.replace(QLatin1Char('\n'), QLatin1Char(' ')).replace(QLatin1Char('\r'), QLatin1Char(' '));
}

} // namespace

std::vector<ImportCandidate> MeasureTable::candidates() const
{
    std::vector<ImportCandidate> all;
    all.reserve(rows_.size());
    for (const Row& row : rows_)
        all.push_back({row.measure.get(), row.checked});
    return all;
}

ImportSummary MeasureTable::summary() const
{
    ImportSummary summary;
    for (const Row& row : rows_) {
        ++summary.total;
        summary.withoutData += !hasData(*row.measure);
        if (!row.importable)
            continue;
        ++summary.verified;
        if (!family_.check)
            continue;
        const Verdict verdict = family_.check->verdict(*row.measure);
        summary.valid += verdict == Verdict::Valid;
        summary.warnings += verdict == Verdict::Warning;
        summary.errors += verdict == Verdict::Error;
    }
    return summary;
}

QString MeasureTable::summaryText() const
{
    const ImportSummary all = summary();
    if (!family_.check || all.verified == 0)
        return fill("Всего: %1 | Без данных: %2 | Верифицированных: %3", all.total, all.withoutData, all.verified);
    return fill("Всего: %1 | Без данных: %2 | Верифицированных: %3 (из них валидных %4, с предупреждениями %5, с "
                "ошибками %6)",
                all.total, all.withoutData, all.verified, all.valid, all.warnings, all.errors);
}

QString MeasureTable::uncheckedText(const WorkStep& step) const
{
    QString text;
    int done = 0;
    for (const Row& row : rows_) {
        if (!goesOn(step, ++done, int(rows_.size())))
            break;
        if (row.checked)
            continue;
        QStringList cells;
        for (const ImportColumn& column : family_.columns)
            cells.append(onOneLine(shown(row, column.content).toString()));
        text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return text;
}
