#include "reports/templates/element_list_table.h"

#include "base/text.h"
#include "elements/families/families.h"
#include "reports/templates/cell_texts.h"
#include "reports/templates/scoped_elements.h"
#include "reports/templates/table_rows.h"
#include "session/project_session.h"

#include <cmath>

namespace {

constexpr int coordinateDecimals = 2;

// Of the statement of lists. The state is read and has no place among the cells.
enum Column {
    IdColumn,
    PositionColumn,
    NameColumn,
    TypeColumn,
    StateColumn,
    YColumn,
    XColumn,
    LatitudeColumn,
    LongitudeColumn,
    ZColumn,
    HColumn
};

double numberAt(const sql::Result& rows, int row, Column column)
{
    return rows.isNull(row, column) ? ElementListRow::none : rows.toDouble(row, column);
}

QString missing() { return QStringLiteral("--"); }

QString number(double value) { return std::isfinite(value) ? fixed(value, coordinateDecimals) : missing(); }

// An element that was never placed in the project's system has no geometry.
QString orMissing(double angle, QString (*text)(double)) { return std::isfinite(angle) ? text(angle) : missing(); }

} // namespace

QVector<ElementListRow> loadElementList(FamilyKey key, const ProjectPart& part)
{
    const Family& row = family(key);
    const sql::Result rows = session().run(elementStatement(ElementQuery::Lists, part, row.elements, row.types));
    QVector<ElementListRow> elements;
    for (int i = 0; i < rows.ntuples(); ++i)
        elements.append({rows.getvalue(i, PositionColumn), rows.getvalue(i, NameColumn), rows.getvalue(i, TypeColumn),
                         numberAt(rows, i, YColumn), numberAt(rows, i, XColumn), numberAt(rows, i, LongitudeColumn),
                         numberAt(rows, i, LatitudeColumn), numberAt(rows, i, ZColumn), numberAt(rows, i, HColumn)});
    return elements;
}

void fillElementListTable(DocxTable& table, const QVector<ElementListRow>& elements)
{
    TableRows rows(table);
    int counted = 0;
    for (const ElementListRow& element : elements)
        rows.add({QString::number(++counted), element.position, element.name, element.type, number(element.y),
                  number(element.x), orMissing(element.longitude, cells::longitude),
                  orMissing(element.latitude, cells::latitude), number(element.z), number(element.h)});
    rows.finish();
}
