#include "reports/templates/element_list_table.h"

#include "base/text.h"
#include "elements/families/families.h"
#include "reports/templates/cell_texts.h"
#include "reports/templates/scoped_elements.h"
#include "reports/templates/table_rows.h"
#include "session/project_session.h"

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

QString number(double value) { return fixed(value, coordinateDecimals); }

} // namespace

QVector<ElementListRow> loadElementList(FamilyKey key, const ProjectPart& part)
{
    const Family& row = family(key);
    const sql::Result rows = session().run(elementStatement(ElementQuery::Lists, part, row.elements, row.types));
    QVector<ElementListRow> elements;
    for (int i = 0; i < rows.ntuples(); ++i)
        elements.append({rows.getvalue(i, PositionColumn), rows.getvalue(i, NameColumn), rows.getvalue(i, TypeColumn),
                         rows.toDouble(i, YColumn), rows.toDouble(i, XColumn), rows.toDouble(i, LongitudeColumn),
                         rows.toDouble(i, LatitudeColumn), rows.toDouble(i, ZColumn), rows.toDouble(i, HColumn)});
    return elements;
}

void fillElementListTable(DocxTable& table, const QVector<ElementListRow>& elements)
{
    TableRows rows(table);
    int counted = 0;
    for (const ElementListRow& element : elements)
        rows.add({QString::number(++counted), element.position, element.name, element.type, number(element.y),
                  number(element.x), cells::longitude(element.longitude), cells::latitude(element.latitude),
                  number(element.z), number(element.h)});
    rows.finish();
}
