#include "drawing/sync/database_to_drawing.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "drawing/sync/element_rows.h"
#include "drawing/sync/family_texts.h"
#include "elements/block_definitions.h"
#include "elements/element_block.h"
#include "elements/element_layers.h"
#include "hostkit/console.h"
#include "hostkit/error_markers.h"
#include "hostkit/model_space.h"
#include "session/project_session.h"
#include "session/working_drawing.h"

#include <nrx/application.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace {

// A row of a type that nobody knows has no kind, so its record holds no name.
struct RowElement {
    int id = -1;
    QString name;
    ElementBlock element;
};

// Unused rows of the registry have an empty block name: no kind has it.
int kindOfType(const QString& typeId)
{
    const QString blockName = blockNameByTypeId(typeId);
    return blockName.isEmpty() ? noKind : kindByBlockName(blockName);
}

// Attributes that mirror numbers of the row; kinds without them take none.
void mirrorNumbers(ElementBlock& element, const sql::Result& rows, int row, const Family& family)
{
    element.setAttribute(QStringLiteral("rp_z"), fixed(element.z, 2));
    element.setAttribute(QStringLiteral("z"), fixed(element.z, 2));
    element.setAttribute(QStringLiteral("h"), fixed(rows.toDouble(row, SyncColumn::Height), 2));
    if (family.hasDepth)
        element.setAttribute(QStringLiteral("de"), fixed(rows.toDouble(row, SyncColumn::Depth), 2));
}

// 0 where nothing stands; what the server writes and no number is ("Infinity") is none here either.
double numberOf(const sql::Result& rows, int row, int column)
{
    bool ok = false;
    const double number = rows.toDouble(row, column, &ok);
    return ok || rows.isNull(row, column) ? number : std::numeric_limits<double>::quiet_NaN();
}

RowElement elementOfRow(const sql::Result& rows, int row, const Family& family, const StateColors& colors)
{
    using namespace SyncColumn;
    RowElement made{rows.toInt(row, Id), rows.getvalue(row, Name),
                    ElementBlock(kindOfType(rows.getvalue(row, Type)), colors)};
    ElementBlock& element = made.element;
    element.setAttribute(QStringLiteral("element_id"), QString::number(made.id));
    element.setAttribute(QStringLiteral("name"), made.name);
    element.x = numberOf(rows, row, X);
    element.y = numberOf(rows, row, Y);
    element.z = numberOf(rows, row, Z);
    mirrorNumbers(element, rows, row, family);
    // The marker's rotation follows from the block's and the properties.
    const int moved = family.hasDepth ? 1 : 0;
    element.blockRotation = numberOf(rows, row, BlockRotation + moved);
    element.scale = rows.isNull(row, Scale + moved) ? 1.0 : numberOf(rows, row, Scale + moved);
    element.parseProps(rows.getvalue(row, Props + moved));
    element.setState(rows.getvalue(row, State));
    return made;
}

// The block may be of another kind of the family than the row.
NcDbObjectId findBlock(const Family& family, const RowElement& row)
{
    if (row.element.kind == noKind)
        return {};
    for (const int kind : family.kinds) {
        const QString& blockName = kinds()[size_t(kind)].blockName;
        const NcDbObjectId found = findBlockReference(blockName, QStringLiteral("element_id"), QString::number(row.id));
        if (!found.isNull())
            return found;
    }
    return {};
}

NcGePoint3d placeOf(const ElementBlock& element) { return {element.x, element.y, element.z}; }

void insertMissing(const RowElement& row, const RowTexts& texts)
{
    say(fill(texts.notFound, row.id, row.name));
    row.element.insertBlock();
    addErrorCircle(placeOf(row.element), 10.0);
}

void replaceOther(NcDbObjectId found, RowElement& row, const ElementBlock& drawn)
{
    say(fill("\n Определения блоков с ID=%1,не совпадают (Чертеж:%2, БД:%3) Будет выполнена замена.", row.id,
             drawn.blockName, row.element.blockName));
    addErrorCircle(placeOf(row.element), 10.0);
    addErrorCircle(placeOf(row.element), 9.0);
    row.element.replaceBlock(found);
}

void overwrite(NcDbObjectId found, const RowElement& row, const ElementBlock& drawn, const RowTexts& texts)
{
    const QString drawnName = drawn.name();
    if (drawnName != row.name) {
        say(fill(texts.differentNames, row.id, drawnName, row.name));
        addErrorCircle(placeOf(row.element), 10.0);
    }
    if (!row.element.applyToBlock(found))
        say(fill("\nОшибка: блок %1 с ID=%2 не изменен\n", row.element.blockName, row.id));
}

void bringRow(const Family& family, RowElement& row, const StateColors& colors)
{
    const RowTexts& texts = rowTexts(family.key);
    const NcDbObjectId found = findBlock(family, row);
    if (found.isNull()) {
        insertMissing(row, texts);
        return;
    }
    const ElementBlock drawn(found, colors);
    if (drawn.kind != row.element.kind)
        replaceOther(found, row, drawn);
    else
        overwrite(found, row, drawn, texts);
}

// The server keeps "NaN" and "Infinity" as numbers; a drawing does not.
bool isDrawable(const ElementBlock& element)
{
    const double numbers[] = {element.x, element.y, element.z, element.blockRotation, element.scale};
    return std::all_of(std::begin(numbers), std::end(numbers), [](double number) { return std::isfinite(number); });
}

// What becomes of the rows of one family's statement.
void bringRows(const Family& family, const sql::Result& rows, const StateColors& colors)
{
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        RowElement element = elementOfRow(rows, row, family, colors);
        if (isDrawable(element.element))
            bringRow(family, element, colors);
        else
            say(fill("\nОшибка: место элемента %1 с ID=%2 в базе данных не число\n", element.name, element.id));
    }
}

bool ensureOpenDocument()
{
    NcApDocManager* documents = ncDocManagerPtr();
    if (documents->documentCount() == 0)
        documents->executeInApplicationContext([documents] {
            if (isOk(documents->appContextNewDocument(QStringLiteral("Default.dwt"))) && session().projectId != -1)
                writeDrawingProperty(documents->curDocument(), {QStringLiteral("project"), session().projectName});
        });
    return documents->documentCount() != 0;
}

} // namespace

void syncDatabaseToDrawing(int id, SyncLevel level, unsigned mask)
{
    say("Инициальзация слоев ГМН\n");
    ensureLayers();
    if (!session().checkConnection()) {
        say("Не установлено соединение с базой данных\n");
        return;
    }
    say("Инициальзация блоков ГМН\n");
    ensureBlockDefinitions();
    const StateColors colors = readStateColors();
    for (const FamilyKey key : {FamilyKey::Dm, FamilyKey::Ts, FamilyKey::Rp, FamilyKey::Tss, FamilyKey::Ggs,
                                FamilyKey::Tsg, FamilyKey::Igs}) {
        const Family& family = ::family(key);
        if ((mask & family.mask) == 0)
            continue;
        say(rowTexts(key).heading);
        bringRows(family, session().run(rowStatement(family, id, level)), colors);
    }
}

void syncPositionToDrawing()
{
    clearErrorLayer();
    syncDatabaseToDrawing(session().currentPositionId, SyncLevel::Position, allFamiliesMask);
}

void syncNodeToDrawing(int id, SyncLevel level, unsigned mask)
{
    if (!ensureOpenDocument())
        return;
    ensureErrorLayer();
    syncDatabaseToDrawing(id, level, mask);
}
