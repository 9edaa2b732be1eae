#include "drawing/renumber.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "drawing/renumber_plan.h"
#include "elements/element_block.h"
#include "hostkit/block_reference.h"
#include "hostkit/console.h"
#include "hostkit/model_space.h"
#include "session/project_session.h"

#include <nrx/editor.h>

#include <algorithm>
#include <optional>

namespace {

struct DrawnBlock {
    NcDbObjectId reference;
    int id = -1;
    QString name;
};

const QString notDone = QStringLiteral("\nКомманда не выполнена!");

bool tell(const QString& text)
{
    say(text);
    return false;
}

// The picked reference; the null id when nothing, or something else, was picked.
NcDbObjectId pickBlock()
{
    NcSelectionName name;
    NcGePoint3d picked;
    NcDbObjectId id;
    if (ncedEntSel(QStringLiteral("\nВыберите блок для перенумерования: "), name, picked) != kPromptNormal
        || !isOk(ncdbGetObjectId(id, name)))
        return {};
    if (isBlockReference(id))
        return id;
    say("\nIt is not block reference");
    return {};
}

void describe(NcDbObjectId id)
{
    const Opened<NcDbBlockReference> reference(id, kForRead);
    if (!reference)
        return;
    const bool dynamic = NcDbDynBlockReference(id).isDynamicBlock();
    say(fill(dynamic ? "\nВыбран динамический блок: \"%1\"" : "\nВыбран статический блок:: \"%1\"",
             definitionNameOf(id)));
    forEachAttribute(*reference, kForRead, [](const NcDbAttribute& attribute) {
        say(fill("\nАтрибут: %1, Значение: %2", attribute.tag(), attribute.textString()));
    });
}

// The youngest kind of benchmarks, rp_vr_def, is not served.
bool isServed(int kind)
{
    constexpr int notServed = 21;
    return familyOfKind(kind) && kind != notServed;
}

// A connection that is gone gives no answer, and has the reason itself.
QString refusalOf(const sql::Result& answer)
{
    if (!session().connection.isOpen())
        return QStringLiteral("Не установлено соединение с базой данных");
    return answer.isNullResult() ? session().connection.errorMessage() : answer.errorMessage();
}

bool loadRows(const Family& family, QVector<NumberedRow>& rows)
{
    const sql::Result answer = session().run(compose("select element_id, element_name from %2 where position_id = %1",
                                                     session().currentPositionId, Identifier(family.elements)));
    if (!answer.isTuples())
        return tell(fill("\nQuery execution failed: %1", refusalOf(answer)));
    if (answer.ntuples() == 0)
        return tell("\nNo elements found.");
    for (int row = 0; row < answer.ntuples(); ++row) {
        const int id = answer.toInt(row, 0);
        const QString name = answer.getvalue(row, 1);
        if (const auto numbered = numberedRow(id, name))
            rows.append(*numbered);
        else
            say(fill("\nWarning: Element ID: %1 has an invalid name: %2", id, name));
    }
    sortById(rows);
    return true;
}

// Nothing when model space cannot be opened.
std::optional<QVector<DrawnBlock>> blocksOfKind(int kind, const StateColors& colors)
{
    const auto entities = entitiesOfModelSpace();
    if (!entities)
        return std::nullopt;
    QVector<DrawnBlock> blocks;
    for (const NcDbObjectId& id : *entities) {
        const ElementBlock block(id, colors);
        if (block.kind == kind)
            blocks.append({id, block.elementId(), block.name()});
    }
    std::stable_sort(blocks.begin(), blocks.end(),
                     [](const DrawnBlock& a, const DrawnBlock& b) { return a.id < b.id; });
    return blocks;
}

// Both lists by id. The names of the first pair are deliberately not compared.
// A pair of two different ids would write a name over a foreign row.
bool agree(const QVector<NumberedRow>& rows, const QVector<DrawnBlock>& blocks)
{
    if (rows.size() != blocks.size())
        return tell("\nКоличество элементов в БД и чертеже не совпадает! Синхронизируйте чертеж!");
    for (int i = 0; i < rows.size(); ++i) {
        if (rows[i].id != blocks[i].id || (i > 0 && rows[i].name != blocks[i].name))
            return tell("\nИмена в чертеже и БД не совпадают! Синхронизируйте чертеж!");
    }
    return true;
}

// -1 is the user's way out.
bool askNumber(int& number)
{
    if (ncedGetInt(QStringLiteral("ВНИМАНИЕ!!! ДЕЙСТВИЕ НЕОБРАТИМО!!!\nВведите номер указанного элемента для "
                                  "перенумерации: "),
                   number)
        != kPromptNormal)
        return tell("Ошибка ввода.\n");
    return number != -1;
}

QVector<ElementBlock> renamedElements(const QVector<NumberedRow>& rows, const QVector<DrawnBlock>& blocks,
                                      const StateColors& colors)
{
    QVector<ElementBlock> elements;
    for (int i = 0; i < rows.size(); ++i) {
        elements.append(ElementBlock(blocks[i].reference, colors));
        elements.last().setAttribute(QStringLiteral("name"), rows[i].newName());
    }
    return elements;
}

// All or none: half-moved numbers could not be told from wrong ones afterwards.
bool writeRows(const QVector<ElementBlock>& elements)
{
    if (!session().run("BEGIN").isCommand())
        return false;
    const bool written =
        std::all_of(elements.begin(), elements.end(), [](const ElementBlock& element) { return element.updateRow(); });
    return session().run(written ? "COMMIT" : "ROLLBACK").isCommand() && written;
}

bool applyToBlocks(const QVector<ElementBlock>& elements, const QVector<DrawnBlock>& blocks)
{
    bool applied = true;
    for (int i = 0; i < blocks.size(); ++i)
        applied = elements[i].applyToBlock(blocks[i].reference) && applied;
    return applied;
}

void renumber(int kind, int selected)
{
    QVector<NumberedRow> rows;
    if (!loadRows(*familyOfKind(kind), rows))
        return;
    const StateColors colors = readStateColors();
    const auto drawn = blocksOfKind(kind, colors);
    if (!drawn) {
        say(notDone);
        return;
    }
    const QVector<DrawnBlock>& blocks = *drawn;
    int number = 0;
    if (!agree(rows, blocks) || !askNumber(number))
        return;
    sortByNumber(rows);
    if (!isSequential(rows)) {
        say("\nНумерация элементов не последовательна!");
        return;
    }
    if (!moveToNumber(rows, selected, number)) {
        say("\nНомер 2147483647 увеличить нельзя!");
        say(notDone);
        return;
    }
    sortById(rows);
    const QVector<ElementBlock> elements = renamedElements(rows, blocks, colors);
    const bool done = writeRows(elements) && applyToBlocks(elements, blocks);
    say(done ? QStringLiteral("\nПеренумеровано!") : notDone);
}

} // namespace

void renumberElements()
{
    say("\nКоманда перенумеровывает элемент на выбранный индекс и прибавляет ко всем последующим 1\n"
        "Для исправления нумерации на этапе скалывания элементов на плане с автоинкрементом.");
    const NcDbObjectId picked = pickBlock();
    if (picked.isNull())
        return;
    describe(picked);
    const ElementBlock block(picked);
    if (session().currentPositionId == -1)
        say("\nНе установлена текущая позиция");
    else if (block.kind == noKind)
        say(fill("\nБлок: %1 не является блоком ГМН", definitionNameOf(picked)));
    else if (!isServed(block.kind))
        say(notDone);
    else
        renumber(block.kind, block.elementId());
}
