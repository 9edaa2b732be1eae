#include "elements/geology/ege_files.h"

#include "base/placeholders.h"
#include "elements/geology/quoted_csv.h"
#include "elements/geology/quoted_text.h"
#include "session/project_session.h"

namespace {

const QString codeColumn = QStringLiteral("code");

QStringList namesOf(const EgeColumns& columns)
{
    QStringList names;
    for (const EgeColumn& column : columns)
        names << column.name;
    return names;
}

QStringList trimmed(QStringList texts)
{
    for (QString& text : texts)
        text = text.trimmed();
    return texts;
}

// A spreadsheet of this language writes decimals behind a comma.
QString valueOf(const EgeColumn& column, const QString& cell)
{
    return column.isNumber() ? cell.trimmed().replace(QLatin1Char(','), QLatin1Char('.')) : cell;
}

EgeValues valuesOf(const EgeColumns& columns, const QStringList& header, const QStringList& cells)
{
    EgeValues values;
    for (const EgeColumn& column : columns) {
        const int at = header.indexOf(column.name);
        if (at >= 0)
            values.insert(column.name, valueOf(column, cells.value(at)));
    }
    return values;
}

// Why the entry was not written; empty when it was.
QString writeEntry(const EgeColumns& columns, const EgeValues& values, EgeImport& import)
{
    const QString code = values[codeColumn].trimmed();
    if (code.isEmpty())
        return QStringLiteral("нет кода");
    const sql::Result known =
        session().run(compose("SELECT ege_id FROM geology_ege_catalog WHERE TRIM(code) = TRIM('%1')", doubled(code)));
    if (!known.isTuples())
        return session().connection.errorMessage();
    const bool isKnown = known.ntuples() > 0;
    const sql::Result written = session().run(isKnown ? egeUpdate(columns, values, known.toInt(0, 0))
                                                      : egeInsert(columns, values, Returning::Nothing));
    if (!written.isCommand())
        return session().connection.errorMessage();
    ++(isKnown ? import.updated : import.created);
    return {};
}

} // namespace

std::optional<QString> egeFileText(const EgeColumns& columns)
{
    QVector<Statement> names;
    for (const EgeColumn& column : columns)
        names.append(compose("%1", Identifier(column.name)));
    if (names.isEmpty())
        return {};
    const sql::Result rows =
        session().run(compose("SELECT %1 FROM geology_ege_catalog ORDER BY COALESCE(code, '')", joined(names, ", ")));
    if (!rows.isTuples())
        return {};
    if (rows.ntuples() == 0)
        return QString(QLatin1String(""));
    QString text = csvLine(namesOf(columns));
    for (int row = 0; row < rows.ntuples(); ++row) {
        QStringList cells;
        for (int column = 0; column < columns.size(); ++column)
            cells << rows.getvalue(row, column);
        text += csvLine(cells);
    }
    return text;
}

EgeImport importEgeFile(const QString& text, const EgeColumns& columns, const EgeProgress& progress)
{
    EgeImport import;
    QVector<QStringList> rows = csvRows(text);
    const QStringList header = rows.isEmpty() ? QStringList() : trimmed(rows.takeFirst());
    if (!header.contains(codeColumn)) {
        import.refusal = QStringLiteral("В CSV файле не найдена колонка 'code'");
        return import;
    }
    for (int row = 0; row < rows.size(); ++row) {
        if (progress && !progress(row, rows.size()))
            break;
        const QString problem = writeEntry(columns, valuesOf(columns, header, rows[row]), import);
        if (!problem.isEmpty())
            import.problems << fill("%1 (%2): %3", row + 1, rows[row].value(header.indexOf(codeColumn)),
                                    problem.trimmed());
    }
    return import;
}
