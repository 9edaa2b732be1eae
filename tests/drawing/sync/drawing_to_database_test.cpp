// Carrying a drawing into the database, family by family.
#include "sync_fixture.h"

namespace {

class DrawingToDatabase : public EveryFamily {
protected:
    // What is said of a row before it is offered for deletion.
    static QString doomed(int id, const QString& name, int measures = 0, int files = 0)
    {
        return QString("Нет в чертеже: element_id=%1 %2, измерений: %3, файлов: %4 \n")
            .arg(id)
            .arg(name)
            .arg(measures)
            .arg(files);
    }
};

// Column by column: what the row held, what the drawing says, who wins.
struct Column {
    const char* name;
    const char* before;
    const char* after;
};

const Column winners[] = {
    // the drawing
    {"x", "100", "11.5"},
    {"y", "200", "-22.25"},
    {"block_rotation", "0", "0.5"},
    {"scale", "1", "2"},
    // the database
    {"element_name", "Имя строки", "Имя строки"},
    {"z", "3", "3"},
    {"h", "4", "4"},
    {"state_id", "lost", "lost"},
    {"position_id", "7", "7"},
};

} // namespace

TEST_P(DrawingToDatabase, WinsFieldByField)
{
    addRow(family(), 31, "Имя строки");
    database->exec("update " + family().elements + " set state_id = 'lost'");
    if (GetParam() == FamilyKey::Tsg)
        database->exec("update tsg_elements set e = 6, catalog_id = 12");
    for (const Column& column : winners)
        ASSERT_EQ(cell(family(), 31, column.name), column.before) << column.name;

    ElementBlock drawn(lastKind(), StateColors());
    drawn.setAttribute("element_id", "31");
    drawn.setAttribute("name", "Имя блока");
    drawn.x = 11.5;
    drawn.y = -22.25;
    drawn.z = 77;
    drawn.blockRotation = 0.5;
    drawn.scale = 2;
    drawn.colorIndex = 3;
    drawn.setDynProp("Длина полки", "8.5");
    const bool turns = drawn.setDynProp("Угол1", "6.2");
    ASSERT_TRUE(drawn.insertBlock());
    toDatabase("Position");

    for (const Column& column : winners)
        EXPECT_EQ(cell(family(), 31, column.name), column.after) << column.name;
    EXPECT_EQ(cell(family(), 31, "type_id"), kinds()[size_t(lastKind())].typeId);
    EXPECT_EQ(cell(family(), 31, "marker_rotation"), turns ? "0.416814693" : "0.5");
    EXPECT_EQ(cell(family(), 31, "props"), ElementBlock(drawing.references()[0]).propsText());
    EXPECT_TRUE(cell(family(), 31, "props").contains("Длина полки:8.5"));
    if (GetParam() == FamilyKey::Tsg) {
        EXPECT_EQ(cell(family(), 31, "e"), "6");
        EXPECT_EQ(cell(family(), 31, "catalog_id"), "12");
    }
    EXPECT_EQ(host.console, "\nАнализ чертежа:\nОбрабатываем блок Имя строки \n");
    EXPECT_EQ(markers(), QStringList());
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_P(DrawingToDatabase, ReportsAnIdWithoutARowInEveryMode)
{
    addBlock(firstKind(), 31, "М", 10, 20);
    for (const char* mode : {"Drawing", "Position", "Dwg"}) {
        toDatabase(mode);
        EXPECT_EQ(host.console.left(host.console.indexOf("Обновление")),
                  "\nАнализ чертежа:\n" + told(texts().notInDatabase, 31))
            << mode;
        EXPECT_EQ(markers(), sorted(cross(10, 20))) << mode;
    }
    EXPECT_EQ(ids(family()), "");
}

TEST_P(DrawingToDatabase, KeepsRowsOfAnotherPositionFromPositionModeAlone)
{
    addRow(family(), 31, "М", PositionSession::otherPosition);
    addBlock(firstKind(), 31, "М", 10, 20, 5);
    toDatabase("Position");
    EXPECT_EQ(host.console, "\nАнализ чертежа:\n" + told(texts().notInPosition, 31));
    EXPECT_EQ(markers(), sorted(cross(10, 20) << circle(5, 10, 20, 5)));
    EXPECT_EQ(cell(family(), 31, "x"), "100");
    EXPECT_EQ(asked, QStringList());

    toDatabase("Drawing");
    EXPECT_EQ(host.console, "\nАнализ чертежа:\nОбрабатываем блок М \n");
    EXPECT_EQ(markers(), QStringList());
    EXPECT_EQ(cell(family(), 31, "x"), "10");
    EXPECT_EQ(cell(family(), 31, "position_id"), "8");
}

TEST_P(DrawingToDatabase, WritesOnlyTheFirstOfTwoBlocksOfOneId)
{
    addRow(family(), 31, "М");
    addBlock(firstKind(), 31, "М", 10, 20);
    addBlock(firstKind(), 31, "Копия", 30, 40, 1);
    const QString head = "\nАнализ чертежа:\nОбрабатываем блок М \n";
    const QStringList circles = sorted({circle(5, 30, 40, 1), circle(5.5, 30, 40, 1), circle(6, 30, 40, 1)});
    toDatabase("Drawing");
    EXPECT_EQ(host.console, head + told(texts().duplicateId, 31));
    EXPECT_EQ(markers(), circles);
    toDatabase("Position");
    EXPECT_EQ(host.console, head + told(texts().duplicateIdInPosition, 31));
    EXPECT_EQ(markers(), circles);
    EXPECT_EQ(cell(family(), 31, "x"), "10");
}

TEST_P(DrawingToDatabase, TakesTwoRowsOfOneNameForADuplicateAndOffersNeither)
{
    addRow(family(), 31, "М");
    addRow(family(), 32, "М");
    addBlock(firstKind(), 31, "А", 10, 20);
    addBlock(firstKind(), 32, "Б", 30, 40);
    toDatabase("Drawing");
    EXPECT_EQ(host.console, "\nАнализ чертежа:\nОбрабатываем блок М \n" + told(texts().duplicateName, 0, "М"));
    EXPECT_EQ(markers(), sorted({circle(5, 30, 40), circle(5.5, 30, 40)}));
    EXPECT_EQ(cell(family(), 32, "x"), "100");

    toDatabase("Position");
    EXPECT_EQ(asked, QStringList()) << "its block was met";
    EXPECT_FALSE(host.console.contains("element_id=32")) << host.console;
}

TEST_P(DrawingToDatabase, UndoesARenamedBlockInMemoryAndLeavesTheDrawingsText)
{
    addRow(family(), 31, "М1");
    const NcDbObjectId block = addBlock(firstKind(), 31, "Другое", 10, 20);
    toDatabase("Position");
    EXPECT_EQ(cell(family(), 31, "element_name"), "М1");
    EXPECT_EQ(attribute(block, "name"), "Другое");
    EXPECT_EQ(markers(), QStringList());
    toDrawing();
    EXPECT_EQ(attribute(block, "name"), "М1");
}

TEST_P(DrawingToDatabase, AsksAboutRowsWithoutABlockInPositionModeOnly)
{
    for (const int id : {9, 31, 107})
        addRow(family(), id, QString::number(id));
    addRow(family(), 50, "Чужая", PositionSession::otherPosition);
    addBlock(firstKind(), 31, "31");
    toDatabase("Drawing");
    EXPECT_EQ(asked, QStringList());
    toDatabase("Dwg");
    EXPECT_EQ(asked, QStringList());

    toDatabase("Position");
    EXPECT_EQ(asked, QStringList(QString(texts().question).replace("%1", "2")));
    EXPECT_TRUE(host.console.endsWith(doomed(9, "9") + doomed(107, "107")
                                      + "Пропускаем element_id=9 \nПропускаем element_id=107 \n"))
        << host.console;
    EXPECT_EQ(ids(family()), "9,31,50,107");

    yes = true;
    toDatabase("Position");
    EXPECT_FALSE(host.console.contains("Пропускаем"));
    EXPECT_EQ(ids(family()), "31,50");
    EXPECT_EQ(database->value("select string_agg(element_id::text, ',' order by element_id) from " + family().dynprops),
              "31,50")
        << "what hangs on the rows goes with them";
}

TEST_P(DrawingToDatabase, TellsWhatWouldGoWithARowBeforeItAsks)
{
    addRow(family(), 9, "А");
    addRow(family(), 31, "Б");
    const bool measured = !family().measures.isEmpty();
    if (measured)
        database->exec("insert into " + family().measures + " (element_id) values (31), (31), (31); insert into "
                       + family().files + " (element_id) values (9), (31)");
    toDatabase("Position");
    EXPECT_EQ(host.console,
              "\nАнализ чертежа:\n" + doomed(9, "А", 0, measured ? 1 : 0)
                  + doomed(31, "Б", measured ? 3 : 0, measured ? 1 : 0)
                  + "Пропускаем element_id=9 \nПропускаем element_id=31 \n");
}

TEST_P(DrawingToDatabase, OffersNothingThatItCannotTell)
{
    if (family().files.isEmpty())
        GTEST_SKIP() << "nothing but the rows themselves is read";
    addRow(family(), 9, "А");
    database->exec("alter table " + family().files + " rename to hidden");
    yes = true;
    toDatabase("Position");
    database->exec("alter table hidden rename to " + family().files);
    EXPECT_EQ(asked, QStringList());
    EXPECT_EQ(host.console,
              "\nАнализ чертежа:\n\nОшибка: не удалось прочитать элементы без блоков из базы данных\n"
              "Пропускаем element_id=9 \n");
    EXPECT_EQ(ids(family()), "9");
}

TEST_P(DrawingToDatabase, DoesNotTellARefusedDeletion)
{
    addRow(family(), 9, "А");
    addRow(family(), 31, "Б");
    database->exec("create table holds (element_id integer references " + family().elements
                   + "); insert into holds values (31)");
    yes = true;
    toDatabase("Position");
    database->exec("drop table holds");
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(host.console, "\nАнализ чертежа:\n" + doomed(9, "А") + doomed(31, "Б"));
    EXPECT_EQ(ids(family()), "9,31") << "all or none of a family";
}

TEST_P(DrawingToDatabase, WritesNoRowInFileMode)
{
    addRow(family(), 31, "М");
    addBlock(firstKind(), 31, "М", 10, 20);
    addBlock(firstKind(), 31, "М", 10, 20);
    toDatabase("Dwg");
    EXPECT_EQ(host.console, "\nАнализ чертежа:\nОбновление чертежа в БД.\n");
    EXPECT_EQ(cell(family(), 31, "x"), "100");
    EXPECT_EQ(markers(), QStringList());
}

TEST_P(DrawingToDatabase, ARefusedReadOfTheRowLeavesTheRowsName)
{
    addRow(family(), 31, "М");
    addBlock(firstKind(), 31, "Имя блока", 10, 20);
    // The lists of ids can be read, the row with its properties cannot.
    database->exec("alter table " + family().dynprops + " rename to hidden");
    toDatabase("Drawing");
    EXPECT_EQ(host.console,
              "\nАнализ чертежа:\nОбрабатываем блок Имя блока \n"
              "\nНе записано в базу данных элементов: 1 (другая причина: 1)\n");
    database->exec("alter table hidden rename to " + family().dynprops);
    EXPECT_EQ(cell(family(), 31, "element_name"), "М");
    EXPECT_EQ(cell(family(), 31, "x"), "100");
    toDatabase("Drawing");
    EXPECT_EQ(cell(family(), 31, "x"), "10");
}

INSTANTIATE_TEST_SUITE_P(Families, DrawingToDatabase, allFamilyKeys, familyName<::testing::TestParamInfo<FamilyKey>>);
