// The row of an element: reading it, writing it.
#include "elements/element_block.h"

#include "base/statement.h"
#include "base/text.h"
#include "hostkit/console.h"
#include "session/project_session.h"

namespace {

// The statements of a family's element table.
struct RowStatements {
    const char* select;
    const char* insert;
    const char* updateFull;
    const char* updateFullWithPosition;
};

const char* const updateShort = "UPDATE %9 SET (type_id, element_name, x, y, block_rotation, marker_rotation,scale)"
                                " = ('%1','%2',%3,%4,%5,%6,%7) WHERE element_id = %8";

// The columns of `select`; the last two where the family has a depth.
enum Column {
    Id,
    Name,
    State,
    Color,
    X,
    Y,
    Z,
    Height,
    BlockRotation,
    MarkerRotation,
    Scale,
    Props,
    Position,
    Depth,
    Catalogue
};

const RowStatements& commonStatements()
{
    static const RowStatements statements = {
        "select element_id, element_name, state_id,(select colorindex from states where states.state_id = "
        "%1.state_id) as ci,x, y, z, h, block_rotation, marker_rotation, scale, props, position_id  from %1 left "
        "join %2 using (element_id) where element_id = %3",

        "INSERT INTO %12 (type_id,element_name,state_id,position_id,x , y, z, h,block_rotation, "
        "marker_rotation,scale) VALUES ('%1','%2','%3',%4,%5,%6,%7,%8,%9,%10,%11) returning element_id",

        "UPDATE %1 SET (type_id, element_name, x, y, z , h ,block_rotation, marker_rotation,scale) = "
        "('%2','%3',%4,%5,%6,%7,%8,%9,%10) WHERE element_id = %11",

        "UPDATE %1 SET (type_id, element_name,position_id, x, y, z , h ,block_rotation, marker_rotation,scale) = "
        "('%2','%3',%12,%4,%5,%6,%7,%8,%9,%10) WHERE element_id = %11",
    };
    return statements;
}

const RowStatements& depthStatements()
{
    static const RowStatements statements = {
        "select element_id, element_name, state_id,(select colorindex from states where states.state_id = "
        "%1.state_id) as ci,x, y, z, h, block_rotation, marker_rotation, scale, props, position_id,e,catalog_id "
        "from %1 left join %2 using (element_id) where element_id = %3",

        "INSERT INTO %14 (type_id,element_name,state_id,position_id,x, y, z, h,e, catalog_id, block_rotation, "
        "marker_rotation,scale) VALUES ('%1','%2','%3',%4,%5,%6,%7,%8,%9,%10,%11,%12,%13) returning element_id",

        "UPDATE %1 SET (type_id, element_name, x,  y,  z , h , e, catalog_id ,block_rotation, "
        "marker_rotation,scale) =('%2','%3', %4, %5, %6, %7, %8,%9, %10, %11, %12) WHERE element_id = %13",

        "UPDATE %1 SET (type_id, element_name,position_id, x,  y,  z , h , e, catalog_id ,block_rotation, "
        "marker_rotation,scale) = ('%2','%3',%4,%5,%6,%7,%8,%9,%10,%11,%12,%13) WHERE element_id = %14",
    };
    return statements;
}

const RowStatements& statementsOf(const Family& family)
{
    return family.hasDepth ? depthStatements() : commonStatements();
}

using Values = QVector<StatementValue>;

Numeral number(double value) { return {value, 9}; }

QString typeIdOf(const ElementBlock& element) { return kinds()[size_t(element.kind)].typeId; }

// The values that all statements end their list with.
Values placement(const ElementBlock& element)
{
    return {number(element.blockRotation), number(element.markerRotation()), number(element.scale)};
}

Values coordinates(const ElementBlock& element)
{
    return {number(element.x), number(element.y), number(element.z), number(element.h)};
}

Values depthColumns(const ElementBlock& element) { return {number(element.e), element.catalogId}; }

Statement insertText(const ElementBlock& element, const Family& family, int position)
{
    Values values = {typeIdOf(element), element.name(), "exist", position};
    values += coordinates(element);
    if (family.hasDepth)
        values += depthColumns(element);
    values += placement(element);
    values += Identifier(family.elements);
    return compose(statementsOf(family).insert, values);
}

Statement updateFullText(const ElementBlock& element, const Family& family, int id)
{
    const bool withPosition = element.positionId != -1;
    const RowStatements& statements = statementsOf(family);
    Values values = {Identifier(family.elements), typeIdOf(element), element.name()};
    if (family.hasDepth && withPosition)
        values += element.positionId;
    values += coordinates(element);
    if (family.hasDepth)
        values += depthColumns(element);
    values += placement(element);
    values += id;
    // The common text names the position last.
    if (!family.hasDepth && withPosition)
        values += element.positionId;
    return compose(withPosition ? statements.updateFullWithPosition : statements.updateFull, values);
}

// The key of the row that a record stands for; -1 when it stands for none.
int writableId(const ElementBlock& element) { return element.family() ? element.elementId() : -1; }

sql::Result writeProps(const ElementBlock& element)
{
    return session().run(compose("UPDATE %1 SET props = '%2'WHERE element_id = %3",
                                 Identifier(element.family()->dynprops), element.propsText(), element.elementId()));
}

} // namespace

bool ElementBlock::loadFromDatabase(int id)
{
    const Family* family = this->family();
    if (!family)
        return false;
    const sql::Result row = session().run(
        compose(statementsOf(*family).select, Identifier(family->elements), Identifier(family->dynprops), id));
    if (!row.hasRow())
        return false;

    setAttribute("element_id", row.getvalue(0, Column::Id));
    setAttribute("name", row.getvalue(0, Column::Name));
    setState(row.getvalue(0, Column::State));
    if (!row.isNull(0, Column::Color))
        colorIndex = row.toInt(0, Column::Color);
    x = row.toDouble(0, Column::X);
    y = row.toDouble(0, Column::Y);
    z = row.toDouble(0, Column::Z);
    setAttribute("rp_z", row.getvalue(0, Column::Z));
    setAttribute("z", row.getvalue(0, Column::Z));
    h = row.toDouble(0, Column::Height);
    setAttribute("h", row.getvalue(0, Column::Height));
    blockRotation = row.toDouble(0, Column::BlockRotation);
    // The marker's rotation follows from the block's and the properties.
    scale = row.isNull(0, Column::Scale) ? 1.0 : row.toDouble(0, Column::Scale);
    parseProps(row.getvalue(0, Column::Props));
    positionId = row.isNull(0, Column::Position) ? -1 : row.toInt(0, Column::Position);
    if (family->hasDepth) {
        e = row.toDouble(0, Column::Depth);
        setAttribute("de", row.getvalue(0, Column::Depth));
        catalogId = row.isNull(0, Column::Catalogue) ? -1 : row.toInt(0, Column::Catalogue);
    }
    return true;
}

bool ElementBlock::updateRow(QString* refusal) const
{
    const int id = writableId(*this);
    if (id == -1)
        return false;
    Values values = {typeIdOf(*this), name(), number(x), number(y)};
    values += placement(*this);
    values += id;
    values += Identifier(family()->elements);
    const sql::Result row = session().run(compose(updateShort, values));
    // The label is written even when the row is refused.
    const sql::Result props = writeProps(*this);
    const sql::Result& first = row.isCommand() ? props : row;
    if (refusal && !first.isCommand())
        *refusal = first.sqlState();
    return first.isCommand();
}

bool ElementBlock::updateRowFull() const
{
    const int id = writableId(*this);
    if (id == -1)
        return false;
    const bool written = session().run(updateFullText(*this, *family(), id)).isCommand();
    return writeProps(*this).isCommand() && written;
}

bool ElementBlock::insertRow(int position)
{
    if (!family())
        return false;
    const Statement statement = insertText(*this, *family(), position);
    say("\n " + statement.text() + " \n");
    const sql::Result key = session().run(statement);
    if (!key.hasRow())
        return false;
    positionId = position;
    const QString id = key.getvalue(0, 0);
    setAttribute("element_id", id);

    const Statement props = compose("INSERT INTO %1 (element_id,props) VALUES (%2,'%3')",
                                    Identifier(family()->dynprops), Numeral(id), propsText());
    if (!session().run(props).isCommand())
        return false;
    say("\nOK ");
    return true;
}
