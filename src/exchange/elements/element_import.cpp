#include "exchange/elements/element_import.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "base/text.h"
#include "elements/block_definitions.h"
#include "exchange/elements/element_change.h"
#include "exchange/elements/placed_elements.h"
#include "exchange/standing_answer.h"
#include "hostkit/console.h"
#include "session/project_session.h"

namespace {

// How a record that the database knows is spoken of, by its match.
struct MatchTexts {
    const char* question;
    const char* agreed;
    bool withPlace; ///< the element is moved
};

// The blanks keep the boxes from being narrow.
const MatchTexts otherPlace = {"Имена элементов совпадают  с бд %1 ID %4.                \n Выполнить замену?",
                               "Замена элемента %1  ID %2", true};
const MatchTexts otherName = {
    "Координаты элемента %1  совпадают с бд  x=%2 y=%3 ID %4. \n Выполнить обновление аттрибутов?",
    "Обновление  элемента %1  ID %2", false};
const MatchTexts same = {"Элемент  %1  уже есть в БД                                  \nВыполнить обновление "
                         "аттрибутов?",
                         "Обновление  элемента %1  ID %2", false};

const MatchTexts& textsOf(ElementMatch match)
{
    return match == ElementMatch::Same ? same : match == ElementMatch::OtherName ? otherName : otherPlace;
}

// While it stands, the server answers a row before the disk has it: forty thousand
// waits for the disk would take longer than all else. Each row is still its own; the
// first change after it waits for all of them.
class QuickRows {
public:
    QuickRows() { session().run("set synchronous_commit to off"); }
    ~QuickRows() { session().run("reset synchronous_commit"); }
    QuickRows(const QuickRows&) = delete;
    QuickRows& operator=(const QuickRows&) = delete;
};

class Import {
public:
    Import(const ElementImportTask& task, const ImportQuestion& ask)
        : task_(task), ask_(ask), family_(*familyOfKind(task.kind)), colors_(readStateColors())
    { }

    ElementImportResult run(const QVector<ElementRecord>& records, const ElementImportProgress& progress)
    {
        ensureBlockDefinitions();
        const QuickRows quick;
        for (int i = 0; i < records.size(); ++i) {
            if (progress && !progress(i, records.size()))
                break;
            importRecord(records[i]);
        }
        return result_;
    }

private:
    void importRecord(const ElementRecord& record)
    {
        const int position = record.isValid() ? positionOf(record) : -1;
        if (position == -1) {
            ++result_.skipped;
            return;
        }
        PlacedElements& placed = elementsOf(position);
        PlacedElement found;
        const ElementMatch match = placed.find(record.name, *record.x, *record.y, &found);
        if (match == ElementMatch::New)
            insert(record, position, placed);
        else
            askAndChange(record, match, found, placed);
    }

    void insert(const ElementRecord& record, int position, PlacedElements& placed)
    {
        ElementBlock element(task_.kind, colors_);
        element.setAttribute("element_id", QStringLiteral("1001")); // of a block without a row
        element.scale = session().placementScale;
        element.catalogId = task_.catalogId;
        takeRecord(element, record, true);
        element.insertRow(position);
        const int id = element.elementId();
        if (element.positionId != position) {
            say(fill("\nОшибка: элемент %1 не записан в базу данных: %2", record.name,
                     session().connection.errorMessage().trimmed()));
            ++result_.skipped;
            return;
        }
        element.insertBlock();
        placed.append({id, record.name, element.x, element.y});
        types_.insert(id, element.kind);
        ++result_.inserted;
        say(fill("Новый элемент %1  ID  %2", record.name, id));
    }

    void askAndChange(const ElementRecord& record, ElementMatch match, const PlacedElement& found,
                      PlacedElements& placed)
    {
        const MatchTexts& texts = textsOf(match);
        const QString question = fill(texts.question, record.name, fixed(found.x, 3), fixed(found.y, 3), found.id);
        if (!standing_[int(match)].agrees(ask_, question)) {
            say(fill("Пропускаем элемент %1  ID %2", record.name, found.id));
            ++result_.skipped;
            return;
        }
        say(fill(texts.agreed, record.name, found.id));
        const int kind = types_.value(found.id, task_.kind);
        if (!changeElement(kinds()[size_t(kind)].typeId, found.id, record, texts.withPlace, -1, colors_)) {
            say(fill("\nОшибка: элемент %1 не записан в базу данных: %2", record.name,
                     session().connection.errorMessage().trimmed()));
            ++result_.skipped;
            return;
        }
        ++result_.updated;
        PlacedElement changed = found;
        changed.name = record.name;
        if (texts.withPlace) {
            changed.x = *record.x;
            changed.y = *record.y;
        }
        placed.change(changed);
    }

    // -1, told, when there is none and none can be made.
    int positionOf(const ElementRecord& record)
    {
        if (record.position.isEmpty()) {
            if (task_.positionId == -1)
                say(fill("\nНет информации о позиции элемента %1", record.name));
            return task_.positionId;
        }
        const auto known = positions_.constFind(record.position);
        if (known != positions_.constEnd())
            return *known;
        sql::Result row =
            session().run(compose("select position_id from positions where position='%1'", record.position));
        if (row.isTuples() && !row.hasRow()) {
            row = session().run(compose("insert into positions (position,subobject_id,appearence) values('%1', %2, "
                                        "(select max(appearence) + 1 from positions))returning position_id",
                                        record.position, task_.subobjectId));
        }
        if (!row.hasRow())
            say(fill("\nОшибка: позиция %1 не создана: %2", record.position,
                     session().connection.errorMessage().trimmed()));
        const int id = row.hasRow() ? row.toInt(0, 0) : -1;
        positions_.insert(record.position, id);
        return id;
    }

    PlacedElements& elementsOf(int position)
    {
        const auto known = placed_.find(position);
        if (known != placed_.end())
            return *known;
        PlacedElements elements;
        enum Column { Id, Name, X, Y };
        const sql::Result rows =
            session().run(compose("SELECT element_id, element_name, x, y,z from %1 where position_id=%2",
                                  Identifier(family_.elements), position));
        for (int i = 0; i < rows.ntuples(); ++i)
            elements.append({rows.toInt(i, Id), rows.getvalue(i, Name), rows.toDouble(i, X), rows.toDouble(i, Y)});
        const sql::Result types = session().run(
            compose("SELECT element_id, type_id from %1 where position_id=%2", Identifier(family_.elements), position));
        for (int i = 0; i < types.ntuples(); ++i) {
            const int kind = kindByTypeId(types.getvalue(i, 1));
            types_.insert(types.toInt(i, 0), kind == noKind ? task_.kind : kind);
        }
        return *placed_.insert(position, elements);
    }

    ElementImportTask task_;
    const ImportQuestion& ask_;
    const Family& family_;
    StateColors colors_;
    ElementImportResult result_;
    StandingAnswer standing_[4]; ///< by the match
    QHash<QString, int> positions_;
    QHash<int, PlacedElements> placed_; ///< by position
    QHash<int, int> types_;             ///< element to kind
};

} // namespace

ElementImportResult importElements(const QVector<ElementRecord>& records, const ElementImportTask& task,
                                   const ImportQuestion& ask, const ElementImportProgress& progress)
{
    return familyOfKind(task.kind) ? Import(task, ask).run(records, progress) : ElementImportResult();
}
