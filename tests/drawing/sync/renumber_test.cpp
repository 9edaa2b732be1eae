// Renumbering: the arithmetic, and the command with its rows and blocks.
#include "drawing/renumber.h"

#include "drawing/renumber_plan.h"
#include "sync_fixture.h"

#include <QRegularExpression>

namespace {

const QString intro =
    "\nКоманда перенумеровывает элемент на выбранный индекс и прибавляет ко всем последующим 1\nДля исправления "
    "нумерации на этапе скалывания элементов на плане с автоинкрементом.";
const QString pickPrompt = "\nВыберите блок для перенумерования: ";
const QString numberPrompt =
    "ВНИМАНИЕ!!! ДЕЙСТВИЕ НЕОБРАТИМО!!!\nВведите номер указанного элемента для перенумерации: ";

class Renumber : public EveryFamily {
protected:
    // Rows and blocks 11, 12, ... with these names.
    void fill(const QStringList& names, int kind)
    {
        for (int i = 0; i < names.size(); ++i) {
            addRow(family(), 11 + i, names[i], PositionSession::position, kind);
            blocks.append(addBlock(kind, 11 + i, names[i], 10 * i, 5));
        }
    }
    void fill(const QStringList& names) { fill(names, firstKind()); }
    // What the command printed behind the picked block's attributes.
    QString run(int picked, int number)
    {
        host.console.clear();
        host.entity(blocks[picked]).integer(number);
        renumberElements();
        host.dropUnused();
        return host.console.mid(host.console.lastIndexOf("Значение: ")).remove(QRegularExpression("^Значение: [^\n]*"));
    }
    QString namesInDatabase()
    {
        return database->value("select string_agg(element_name, ' ' order by element_id) from " + family().elements);
    }
    QString namesInDrawing() const
    {
        QStringList names;
        for (const NcDbObjectId& id : blocks)
            names << attribute(id, "name");
        return names.join(' ');
    }

    QVector<NcDbObjectId> blocks;
};

class RenumberCommand : public Renumber {
protected:
    void SetUp() override { fill({"М1", "М2", "М3"}); }
};

QVector<NumberedRow> plan(const QVector<int>& numbers)
{
    QVector<NumberedRow> rows;
    for (int i = 0; i < numbers.size(); ++i)
        rows.append({i + 1, {}, {}, numbers[i]});
    return rows;
}

QVector<int> numbersAfter(QVector<NumberedRow> rows, int selected, int number)
{
    EXPECT_TRUE(moveToNumber(rows, selected, number));
    QVector<int> numbers;
    for (const NumberedRow& row : rows)
        numbers << row.number;
    return numbers;
}

} // namespace

TEST(RenumberPlan, PartsANameBeforeTheDigitsAtItsEnd)
{
    struct {
        const char* name;
        const char* prefix;
        int number;
    } rows[] = {{"ДМ.007", "ДМ.", 7}, {"12", "", 12},    {"А1Б2", "А1Б", 2},
                {"М-0", "М-", 0},     {"М 00", "М ", 0}, {"М2147483647", "М", 2147483647}};
    for (const auto& row : rows) {
        const auto parted = numberedRow(5, row.name);
        ASSERT_TRUE(parted) << row.name;
        EXPECT_EQ(parted->prefix, row.prefix) << row.name;
        EXPECT_EQ(parted->number, row.number) << row.name;
    }
    for (const char* name : {"", "М", "М1а", "М1 ", "М2147483648", "М\u0661"})
        EXPECT_FALSE(numberedRow(5, name)) << name;
    EXPECT_EQ(numberedRow(5, "ДМ.007")->newName(), "ДМ.7") << "leading zeros are not kept";
}

TEST(RenumberPlan, MovesOnlyNumbersFromTheAnswerUpAndIdsBelowTheSelected)
{
    // The fifth was picked last and belongs to the second place.
    EXPECT_EQ(numbersAfter(plan({1, 2, 3, 4, 5}), 5, 2), (QVector<int>{1, 3, 4, 5, 2}));
    // Ids above the selected one keep their numbers.
    EXPECT_EQ(numbersAfter(plan({1, 2, 3, 4, 5}), 3, 1), (QVector<int>{2, 3, 1, 4, 5}));
    // The present number changes nothing.
    EXPECT_EQ(numbersAfter(plan({1, 2, 3, 4, 5}), 3, 3), (QVector<int>{1, 2, 3, 4, 5}));
    // Ids out of order with numbers: those below the selected one move.
    EXPECT_EQ(numbersAfter(plan({4, 5, 1, 2, 3}), 4, 2), (QVector<int>{5, 6, 1, 2, 3}));
    // A number above the selected one's leaves it below and opens a gap.
    EXPECT_EQ(numbersAfter(plan({3, 4, 1, 2}), 4, 3), (QVector<int>{4, 5, 1, 2}));
}

TEST(RenumberPlan, MovesNothingWhenOneStandsAtTheLastNumber)
{
    QVector<NumberedRow> rows = plan({2147483646, 2147483647, 2147483645});
    EXPECT_FALSE(moveToNumber(rows, 3, 2147483645));
    EXPECT_EQ(rows[0].number, 2147483646);
    EXPECT_EQ(rows[1].number, 2147483647);
    // The selected one and those above it do not go up.
    EXPECT_EQ(numbersAfter(plan({2147483646, 2147483647}), 2, 2147483647), (QVector<int>{2147483646, 2147483647}));
    EXPECT_EQ(numbersAfter(plan({1, 2147483647}), 1, 1), (QVector<int>{1, 2147483647}));
}

TEST(RenumberPlan, SequencesHaveNoGapsAndNoDoubles)
{
    EXPECT_TRUE(isSequential(plan({})));
    EXPECT_TRUE(isSequential(plan({7})));
    EXPECT_TRUE(isSequential(plan({7, 8, 9})));
    EXPECT_FALSE(isSequential(plan({7, 9})));
    EXPECT_FALSE(isSequential(plan({7, 7})));
    EXPECT_FALSE(isSequential(plan({2147483647, -2147483647 - 1})));
}

TEST_P(Renumber, GivesThePickedElementTheNumberAndMovesThoseBefore)
{
    fill({"М.001", "М.002", "М.003", "М.004"});
    EXPECT_EQ(run(3, 2), "\nПеренумеровано!");
    EXPECT_EQ(host.asked, (QStringList{pickPrompt, numberPrompt}));
    EXPECT_EQ(namesInDatabase(), "М.1 М.3 М.4 М.2") << "all names lose their leading zeros";
    EXPECT_EQ(namesInDrawing(), "М.1 М.3 М.4 М.2");
    // Writing a row takes the drawing's place and label along, as always.
    EXPECT_EQ(cell(family(), 12, "x"), "10");
    EXPECT_EQ(cell(family(), 12, "z"), "3");
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_P(Renumber, DescribesThePickedBlock)
{
    fill({"М1"});
    run(0, -1);
    QString expected = intro + "\nВыбран динамический блок: \"" + kinds()[size_t(firstKind())].blockName + "\"";
    const auto* block = HostAccess::objectAs<NcDbBlockReference>(blocks[0]);
    for (const NcDbObjectId& id : HostAccess::attributes(*block)) {
        const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
        expected += "\nАтрибут: " + attribute->tag() + ", Значение: " + attribute->textString();
    }
    EXPECT_EQ(host.console, expected) << "-1 ends silently";
}

TEST_P(Renumber, CountsBlocksOfThePickedKindAgainstRowsOfTheFamily)
{
    fill({"М1", "М2"});
    if (firstKind() == lastKind())
        GTEST_SKIP() << "a family of one kind";
    addRow(family(), 13, "М3", PositionSession::position, lastKind());
    addBlock(lastKind(), 13, "М3");
    EXPECT_EQ(run(0, 1), "\nКоличество элементов в БД и чертеже не совпадает! Синхронизируйте чертеж!");
    EXPECT_EQ(namesInDatabase(), "М1 М2 М3");
}

// The rows are the family's, all of them; the blocks are those of the kind alone.
TEST_P(Renumber, LeavesBlocksOfOtherKindsAlone)
{
    fill({"М1", "М2"});
    for (int kind = 0; kind < kindCount; ++kind) {
        if (kind != firstKind() && familyOfKind(kind))
            addBlock(kind, 13, "М3");
    }
    EXPECT_EQ(run(1, 1), "\nПеренумеровано!");
    EXPECT_EQ(namesInDatabase(), "М2 М1");
    for (const NcDbObjectId& id : drawing.references()) {
        if (!blocks.contains(id)) {
            EXPECT_EQ(attribute(id, "name"), "М3") << ElementBlock(id).blockName;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Families, Renumber, allFamilyKeys, familyName<::testing::TestParamInfo<FamilyKey>>);

TEST_P(RenumberCommand, SaysThatItIsNotDoneWhenModelSpaceCannotBeOpened)
{
    NcDbBlockTableRecord* space = nullptr;
    const NcDbObjectId id = ncdbHostApplicationServices()->workingDatabase()->currentSpaceId();
    ASSERT_TRUE(isOk(ncdbOpenObject(space, id, kForWrite)));
    const QString told = run(0, 1);
    space->close();
    EXPECT_EQ(told, "\nКомманда не выполнена!");
    EXPECT_EQ(namesInDatabase(), "М1 М2 М3");
}

TEST_P(RenumberCommand, EndsSilentlyWhenNothingIsPicked)
{
    host.cancel();
    renumberElements();
    EXPECT_EQ(host.console, intro);
}

TEST_P(RenumberCommand, RefusesWhatIsNoBlockOrNoneOfOurs)
{
    const NcDbObjectId line = appendToModelSpace(std::make_unique<NcDbLine>(NcGePoint3d(), NcGePoint3d(5, 5, 0)));
    host.entity(line);
    renumberElements();
    EXPECT_EQ(host.console, intro + "\nIt is not block reference");

    ElementDrawing::addDefinition(drawing.database(), "Рамка", {"Лист"});
    ElementBlock frame;
    frame.blockName = "Рамка";
    frame.attributes.insert("Лист", "4");
    frame.group = "0";
    ASSERT_TRUE(frame.insertBlock());
    host.console.clear();
    host.entity(entities().back());
    renumberElements();
    EXPECT_EQ(host.console,
              intro
                  + "\nВыбран статический блок:: \"Рамка\"\nАтрибут: Лист, Значение: 4"
                    "\nБлок: Рамка не является блоком ГМН");
}

TEST_P(RenumberCommand, DoesNotServePilesNorTheYoungestBenchmark)
{
    for (const int kind : {6, 21}) {
        blocks[0] = addBlock(kind, 11, "М1");
        EXPECT_TRUE(run(0, 1).endsWith("\nКомманда не выполнена!")) << kind;
    }
    EXPECT_FALSE(host.asked.contains(numberPrompt));
}

TEST_P(RenumberCommand, NeedsAPositionWithRows)
{
    session().currentPositionId = -1;
    EXPECT_EQ(run(0, 1), "\nНе установлена текущая позиция");
    session().currentPositionId = PositionSession::otherPosition;
    EXPECT_EQ(run(0, 1), "\nNo elements found.");
}

TEST_P(RenumberCommand, TellsWhatTheServerSays)
{
    database->exec("alter table " + family().elements + " rename to hidden");
    const QString text = run(0, 1);
    database->exec("alter table hidden rename to " + family().elements);
    EXPECT_TRUE(text.startsWith("\nQuery execution failed: ERROR:")) << text;
    EXPECT_TRUE(text.contains(family().elements));
}

TEST_P(RenumberCommand, TellsThatThereIsNoConnection)
{
    database.disconnect();
    EXPECT_EQ(run(0, 1), "\nQuery execution failed: Не установлено соединение с базой данных");
}

TEST_P(RenumberCommand, DoesNotGoBeyondTheLastNumber)
{
    const auto rename = [this](int id, const QString& name) {
        database->exec("update " + family().elements + " set element_name = '" + name
                       + "' where element_id = " + QString::number(id));
        Opened<NcDbBlockReference>(blocks[id - 11], kForWrite)->erase();
        blocks[id - 11] = addBlock(firstKind(), id, name);
    };
    rename(11, "М2147483645");
    rename(12, "М2147483647");
    rename(13, "М2147483646");
    EXPECT_EQ(run(2, 2147483645), "\nНомер 2147483647 увеличить нельзя!\nКомманда не выполнена!");
    EXPECT_EQ(namesInDatabase(), "М2147483645 М2147483647 М2147483646");
    // A row that does not move may bear it.
    EXPECT_EQ(run(1, 2147483645), "\nПеренумеровано!");
    EXPECT_EQ(namesInDatabase(), "М2147483646 М2147483645 М2147483646");
}

TEST_P(RenumberCommand, LeavesOutRowsWithoutANumberSoThatTheCountsDiffer)
{
    database->exec("update " + family().elements + " set element_name = 'М' where element_id = 12");
    EXPECT_EQ(run(0, 1),
              "\nWarning: Element ID: 12 has an invalid name: М"
              "\nКоличество элементов в БД и чертеже не совпадает! Синхронизируйте чертеж!");
}

TEST_P(RenumberCommand, ComparesNamesButNotTheFirstPairs)
{
    database->exec("update " + family().elements + " set element_name = 'М5' where element_id = 12");
    EXPECT_EQ(run(0, 1), "\nИмена в чертеже и БД не совпадают! Синхронизируйте чертеж!");
    database->exec("update " + family().elements + " set element_name = 'М2' where element_id = 12");
    database->exec("update " + family().elements + " set element_name = 'Н1' where element_id = 11");
    EXPECT_EQ(run(2, 2), "\nПеренумеровано!");
    EXPECT_EQ(namesInDatabase(), "Н1 М3 М2");
    EXPECT_EQ(namesInDrawing(), "Н1 М3 М2");
}

TEST_P(RenumberCommand, DoesNotWriteOverRowsOfOtherPositions)
{
    // The first pair goes by two ids: its block belongs elsewhere.
    addRow(family(), 3, "М1", PositionSession::otherPosition);
    Opened<NcDbBlockReference>(blocks[0], kForWrite)->erase();
    addBlock(firstKind(), 3, "М1");
    EXPECT_EQ(run(2, 1), "\nИмена в чертеже и БД не совпадают! Синхронизируйте чертеж!");
    EXPECT_EQ(cell(family(), 3, "element_name"), "М1");
}

TEST_P(RenumberCommand, WantsANumber)
{
    host.entity(blocks[0]).enter();
    renumberElements();
    EXPECT_TRUE(host.console.endsWith("Ошибка ввода.\n"));
    host.entity(blocks[0]).cancel();
    renumberElements();
    EXPECT_TRUE(host.console.endsWith("Ошибка ввода.\n"));
    EXPECT_EQ(run(0, -1), "");
    EXPECT_EQ(namesInDatabase(), "М1 М2 М3");
}

TEST_P(RenumberCommand, ComparesTheSequenceAfterTheQuestion)
{
    database->exec("update " + family().elements + " set element_name = 'М4' where element_id = 13");
    Opened<NcDbBlockReference>(blocks[2], kForWrite)->erase();
    blocks[2] = addBlock(firstKind(), 13, "М4");
    EXPECT_EQ(run(0, 1), "\nНумерация элементов не последовательна!");
    EXPECT_EQ(host.asked.last(), numberPrompt);
    EXPECT_EQ(namesInDatabase(), "М1 М2 М4");
}

TEST_P(RenumberCommand, WritesAllRowsOrNone)
{
    database->exec("create function refuse() returns trigger language plpgsql as $$ begin raise exception 'no'; end $$;"
                   "create trigger refusal before update on "
                   + family().elements + " for each row when (new.element_id = 12) execute function refuse()");
    const QString text = run(2, 1);
    database->exec("drop function refuse cascade");
    EXPECT_EQ(text, "\nКомманда не выполнена!");
    EXPECT_EQ(namesInDatabase(), "М1 М2 М3");
    EXPECT_EQ(namesInDrawing(), "М1 М2 М3");
    EXPECT_EQ(run(2, 1), "\nПеренумеровано!");
    EXPECT_EQ(namesInDatabase(), "М2 М3 М1");
}

TEST_P(RenumberCommand, SaysSoWhenABlockCannotBeOpened)
{
    const Opened<NcDbBlockReference> held(blocks[1], kForRead);
    EXPECT_EQ(run(2, 1), "\nКомманда не выполнена!");
    EXPECT_EQ(namesInDatabase(), "М2 М3 М1") << "no step is undone";
}

INSTANTIATE_TEST_SUITE_P(Marks, RenumberCommand, ::testing::Values(FamilyKey::Dm, FamilyKey::Tsg),
                         familyName<::testing::TestParamInfo<FamilyKey>>);
