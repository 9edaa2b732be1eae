#include "elements/list/element_changes.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "base/text.h"
#include "elements/families/kinds.h"
#include "hostkit/console.h"
#include "hostkit/model_space.h"
#include "session/project_session.h"

#include <nrx/editor.h>

namespace {

Identifier tableOf(const ListedElement& element) { return Identifier(element.family->tables().elements); }

bool runs(const Statement& statement) { return session().run(statement).isCommand(); }

// Runs the statement for every element: %1 its table, %2 the value, %3 its key.
void changeAll(const ListedElements& elements, const char* statement, const QString& value, const QString& done,
               const QString& failed)
{
    for (const ListedElement& element : elements)
        say(fill(runs(compose(statement, tableOf(element), value, element.id)) ? done : failed, element.name));
}

bool deleteOne(const ListedElement& element)
{
    return runs(compose("delete from %1 where element_id=%2", tableOf(element), element.id));
}

bool clearDependants(const ListedElement& element)
{
    for (const QString& table : element.family->dependants()) {
        if (!runs(compose("delete from %1 where element_id = %2", Identifier(table), element.id)))
            return false;
    }
    return true;
}

} // namespace

const ListFamily* commonFamily(const ListedElements& elements)
{
    const ListFamily* family = elements.isEmpty() ? nullptr : elements.first().family;
    for (const ListedElement& element : elements) {
        if (element.family != family)
            return nullptr;
    }
    return family;
}

void changeType(const ListedElements& elements, const QString& typeId)
{
    changeAll(elements, "update %1 set type_id='%2' where element_id=%3", typeId, "Тип элемента %1 обновлен",
              "Ошибка обновления типа элемента %1");
}

void changeState(const ListedElements& elements, const QString& stateId)
{
    changeAll(elements, "update %1 set state_id='%2' where element_id=%3", stateId, "Состояние элемента %1 обновлено",
              "Ошибка обновления состояния элемента %1");
}

void moveToPosition(const ListedElements& elements, int positionId)
{
    for (const ListedElement& element : elements) {
        const sql::Result namesakes =
            session().run(compose("select element_id from %1 where position_id=%2 and element_name='%3' ",
                                  tableOf(element), positionId, element.name));
        if (namesakes.hasRow()) {
            say(fill("Элемент с именем '%1' уже есть в позиции и будет пропущен", element.name));
            continue;
        }
        const bool moved = runs(
            compose("update %1 set position_id=%2 where element_id = %3", tableOf(element), positionId, element.id));
        // The misspelt word is how users know the message.
        say(fill(moved ? "Позиция элемента %1 обновлена" : "Ну удалось обновить позицию элемента %1", element.name));
    }
}

QString deletionQuestion(const ListedElements& elements)
{
    QStringList names;
    for (const ListedElement& element : elements)
        names.append(element.name);
    return fill("Будет выполнено удаление следующих елементов: \n %1 \n Продолжить?", names.join(QStringLiteral(", ")));
}

void deleteElements(const ListedElements& elements, const ClearQuestion& mayClear)
{
    const QString deleted = QStringLiteral("Удален элемент %1");
    for (const ListedElement& element : elements) {
        if (deleteOne(element)) {
            say(fill(deleted, element.name));
            continue;
        }
        if (!mayClear(
                fill("Не удалось удалить %1\n  Возможно, элемент %1 содержит файлы, измерения, и другие данные. \n "
                     "Очистить их и повторить.",
                     element.name)))
            continue;
        if (!clearDependants(element))
            say(fill("Ошибка очистки данных для элемента %1", element.name));
        say(fill(deleteOne(element) ? deleted : QStringLiteral("Ошибка удаления элемента %1"), element.name));
    }
}

void showInDrawing(const ListedElement& element)
{
    const QString blockName = blockNameByTypeId(element.typeId);
    const NcDbObjectId block = blockName.isEmpty() || !workingDatabase()
        ? NcDbObjectId()
        : findBlockReference(blockName, QStringLiteral("element_id"), QString::number(element.id));
    NcGePoint3d place(element.x.toDouble(), element.y.toDouble(), 0.0);
    ncdbWcs2Ucs(place, place);
    ncedCommand({"_.zoom", "_Center", fill("%1,%2", fixed(place.x, 6), fixed(place.y, 6)), "50"});
    if (block.isNull())
        return;
    ncedSSSetFirst(NcSelectionSet());
    NcSelectionSet picked;
    picked.ids.push_back(block);
    ncedSSSetFirst(picked);
}
