// The command that carries a drawing into the database: its checks, its
// question, what it does with blocks that it cannot read.
#include "drawing/sync/drawing_scan.h"
#include "elements/element_id.h"
#include "support/statement_relay.h"
#include "sync_fixture.h"

namespace {

class SyncCommand : public SyncFixture { };

const QString prompt = "Синхронизировать [Чертеж/aттрибуты-по-Позиции/Аттрибуты-по-чертежу]  <aттрибуты-по-Позиции>";
const Family& marks = family(FamilyKey::Dm);

QString projectWarning(const QString& current, const QString& named)
{
    return "Наименование текущего проекта:\n\n«" + current + "»\n\n и проекта в документе:\n\n«" + named
        + "»\n\nне совпадают!\nДальнейшее выполнение команды может  привести к непредсказуемым последствиям.\n Все "
          "равно продолжить? ";
}

QString positionWarning(const QString& current, const QString& named)
{
    return "Идентификатор текущей позиции :«" + current + "» и идентификатор позиции в документе:«" + named
        + "» не совпадают!\nДальнейшее выполнение команды может  привести к непредсказуемым последствиям.\n Все равно "
          "продолжить? ";
}

struct Conversion {
    const char* text;
    std::optional<int> id;
};

} // namespace

TEST_F(SyncCommand, NeedsAConnectionAndAPosition)
{
    session().currentPositionId = -1;
    toDatabase("Position");
    EXPECT_EQ(host.console, "Не выбрана текущая позиция с базой данных");
    database.disconnect();
    toDatabase("Position");
    EXPECT_EQ(host.console, "Не установлено соединение с базой данных");
    EXPECT_EQ(host.asked, QStringList());
}

TEST_F(SyncCommand, EndsWithoutATypedKeyword)
{
    addRow(marks, 1, "М");
    addBlock(0, 1, "М", 5, 6);
    ensureErrorLayer();
    addErrorCircle({1, 1, 0}, 3);
    host.enter().cancel();
    syncDrawingToDatabase({});
    syncDrawingToDatabase({});
    EXPECT_EQ(host.asked, (QStringList{prompt, prompt}));
    EXPECT_EQ(host.console, "");
    EXPECT_EQ(cell(marks, 1, "x"), "100");
    EXPECT_EQ(markers().size(), 1) << "the error layer is cleared only by a run";
}

TEST_F(SyncCommand, WarnsOfAnotherProjectFirstAndThenOfAnotherPosition)
{
    setProperty("project", "Чужой «%1»");
    setProperty("position_id", "8");
    toDatabase("Position");
    EXPECT_EQ(warned, QStringList(projectWarning("Проект", "Чужой «%1»")));
    EXPECT_EQ(host.asked, QStringList()) << "No ends the command";

    warned.clear();
    setProperty("project", "Проект");
    toDatabase("Position");
    EXPECT_EQ(warned, QStringList(positionWarning("7", "8")));
    EXPECT_EQ(host.asked, QStringList());

    warned.clear();
    yes = true;
    setProperty("project", "Чужой");
    toDatabase("Position");
    EXPECT_EQ(warned, (QStringList{projectWarning("Проект", "Чужой"), positionWarning("7", "8")}));
    EXPECT_EQ(host.asked, QStringList(prompt));
}

TEST_F(SyncCommand, TellsAMissingPositionFromOneThatIsNoNumber)
{
    setProperty("position_id", "семь");
    toDatabase("Position");
    EXPECT_EQ(warned, QStringList(positionWarning("7", "0")));

    warned.clear();
    NcDbDatabase bare;
    NcDbDatabase* before = workingDatabase();
    ncdbHostApplicationServices()->setWorkingDatabase(&bare);
    yes = true;
    toDatabase("Drawing");
    ncdbHostApplicationServices()->setWorkingDatabase(before);
    EXPECT_EQ(warned, (QStringList{projectWarning("Проект", ""), positionWarning("7", " не задано ")}));
}

TEST(ElementIdText, IsReadAsTheNumberThatItBeginsWith)
{
    const Conversion conversions[] = {
        {"17", 17},
        {"  \t\n17", 17},
        {"+17", 17},
        {"-17", -17},
        {"17abc", 17},
        {"17.9", 17},
        {"0", 0},
        {"2147483647", 2147483647},
        {"2147483648", {}},
        {"-2147483649", {}},
        {"99999999999999999999", {}},
        {"", {}},
        {" ", {}},
        {"abc17", {}},
        {"+", {}},
        {"- 5", {}},
        {"\u0661\u0667", {}},
        {"\u00a017", {}},
    };
    for (const Conversion& c : conversions)
        EXPECT_EQ(leadingInteger(QString::fromUtf8(c.text)), c.id) << c.text;
}

TEST_F(SyncCommand, WritesTheRowThatANumberWithATailNames)
{
    addRow(marks, 17, "М");
    addBlock(0, " 17-старая", "М", 5, 6);
    toDatabase("Position");
    EXPECT_EQ(cell(marks, 17, "x"), "5");
    EXPECT_EQ(asked, QStringList());
}

TEST_F(SyncCommand, EndsAtABlockWithoutANumberAndSaysWhichAndWhere)
{
    for (const int id : {1, 2, 3})
        addRow(marks, id, QString::number(id));
    addBlock(0, 1, "1", 10, 20);
    addBlock(12, "нет", "2", 1234.5, -6.25, 7);
    addBlock(0, 3, "3", 30, 40);
    yes = true;
    toDatabase("Position");
    EXPECT_EQ(host.console,
              "\nАнализ чертежа:\nОбрабатываем блок 1 \n"
              "\nОшибка: блок без числового element_id: 'dm_gl_def' X:1234.500 Y:-6.250 Z:7.000\n");
    EXPECT_EQ(cell(marks, 1, "x"), "10") << "what was written stays";
    EXPECT_EQ(cell(marks, 3, "x"), "100");
    EXPECT_EQ(asked, QStringList()) << "an unfinished scan offers nothing for deletion";
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(SyncCommand, EndsAtBlocksOfNoFamily)
{
    ElementDrawing::addDefinition(drawing.database(), "Рамка", {"element_id"});
    for (const QString& name : {QString("sv_def"), QString("pk_def"), QString("Рамка")}) {
        NcDbObjectId definition;
        NcDbBlockTable* table = nullptr;
        drawing.database().getSymbolTable(table, kForRead);
        Opened<NcDbBlockTable>(table)->getAt(name, definition);
        const NcDbObjectId id =
            appendToModelSpace(std::make_unique<NcDbBlockReference>(NcGePoint3d(1, 2, 3), definition));
        toDatabase("Dwg");
        EXPECT_EQ(host.console,
                  "\nАнализ чертежа:\n\nОшибка: блок без числового element_id: '" + name
                      + "' X:1.000 Y:2.000 Z:3.000\n");
        Opened<NcDbBlockReference>(id, kForWrite)->erase();
    }
}

TEST_F(SyncCommand, PassesOverWhatIsNoBlock)
{
    addRow(marks, 1, "М");
    appendToModelSpace(std::make_unique<NcDbLine>(NcGePoint3d(), NcGePoint3d(5, 5, 0)));
    addBlock(0, 1, "М", 5, 6);
    toDatabase("Position");
    EXPECT_EQ(host.console, "\nАнализ чертежа:\nОбрабатываем блок М \n");
}

TEST_F(SyncCommand, WithoutTheConnectionFlagTheBlocksNameGoesIntoTheRow)
{
    addRow(marks, 1, "Имя строки");
    addBlock(0, 1, "Имя блока", 5, 6);
    session().connected = false;
    EXPECT_TRUE(DrawingScan(SyncMode::Position).run());
    EXPECT_EQ(cell(marks, 1, "element_name"), "Имя блока");
    // Blocks of no family pass then; ids of the others are converted all the same.
    addBlock(6, "", "");
    EXPECT_TRUE(DrawingScan(SyncMode::Position).run());
    addBlock(0, "нет", "М");
    EXPECT_FALSE(DrawingScan(SyncMode::Position).run());
    EXPECT_TRUE(host.console.contains("блок без числового element_id: 'dm_def'"));
}

TEST_F(SyncCommand, ADoubledKeyInTheDatabaseEndsTheListThere)
{
    addRow(marks, 1, "М1");
    addRow(marks, 2, "М2");
    database->exec("alter table dm_elements rename to hidden; create view dm_elements as "
                   "select * from hidden where element_id = 1 union all select * from hidden");
    toDatabase("Drawing");
    database->exec("drop view dm_elements; alter table hidden rename to dm_elements");
    const QString doubled = "В базе данных обнаружено несколько элементов с одинаковым ID (1)\n";
    EXPECT_EQ(host.console, doubled + doubled + "\nАнализ чертежа:\n");
}

TEST_F(SyncCommand, ARefusedListOfIdsEndsTheCommandBeforeItSaysAnythingWrong)
{
    addRow(marks, 1, "М1");
    addBlock(0, 1, "М", 5, 6);
    database->exec("alter table rp_elements rename to hidden");
    yes = true;
    toDatabase("Position");
    database->exec("alter table hidden rename to rp_elements");
    EXPECT_EQ(host.console, "\nОшибка: не удалось прочитать элементы из базы данных\n");
    EXPECT_EQ(ids(marks), "1");
    EXPECT_EQ(markers(), QStringList());
}

TEST_F(SyncCommand, CannotBeginWhileModelSpaceIsHeld)
{
    const Opened<NcDbBlockTableRecord> held = openModelSpace(kForWrite);
    toDatabase("Drawing");
    EXPECT_EQ(host.console, "\nАнализ чертежа:\n\nerror opening model_space");
}

// Of two blocks the first has a row that cannot be read just then; the second's
// row bears the name that the first has in the drawing.
TEST_F(SyncCommand, DoesNotTakeTheNameOfABlockWithAnUnreadRowForAnothers)
{
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    addRow(marks, 1, "А");
    addRow(marks, 2, "Б");
    addBlock(0, 1, "Б", 10, 0);
    addBlock(0, 2, "Б", 20, 0);
    yes = true;
    const int firstRow = 1 + 2 * familyCount + 1 + 1;
    relay.refuse(firstRow);
    toDatabase("Position");
    ASSERT_TRUE(relay.texts()[firstRow - 1].endsWith("where element_id = 1"));
    EXPECT_EQ(host.console,
              "\nАнализ чертежа:\nОбрабатываем блок Б \nОбрабатываем блок Б \n"
              "\nНе записано в базу данных элементов: 1 (другая причина: 1)\n");
    EXPECT_EQ(asked, QStringList()) << "no row is missed";
    EXPECT_EQ(cell(marks, 1, "x"), "100");
    EXPECT_EQ(cell(marks, 2, "x"), "20");
    session().connection.finish();
}

// Names go into statements as they are, so an apostrophe has the row refused.
TEST_F(SyncCommand, ARefusedRowIsToldAtTheEndAndItsLabelIsWrittenAllTheSame)
{
    addRow(marks, 1, "О''Нил");
    ElementBlock drawn(0, StateColors());
    drawn.setAttribute("element_id", "1");
    drawn.setDynProp("Длина полки", "8.5");
    ASSERT_TRUE(drawn.insertBlock());
    toDatabase("Position");
    EXPECT_EQ(host.console,
              "\nАнализ чертежа:\nОбрабатываем блок О'Нил \n"
              "\nНе записано в базу данных элементов: 1 (другая причина: 1)\n");
    EXPECT_EQ(asked, QStringList());
    EXPECT_EQ(cell(marks, 1, "x"), "100");
    EXPECT_TRUE(cell(marks, 1, "props").contains("Длина полки:8.5"));
}

TEST_F(SyncCommand, AsksTheServerToTheLetterAndInThisOrder)
{
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    for (const Family& family : families()) {
        addRow(family, 31, "1");
        addRow(family, 9, "2");
    }
    QStringList lists, deletions;
    for (const char* table : {"dm", "ts", "tss", "ggs", "tsg", "igs", "rp"}) {
        const QString all = QString("SELECT element_id, element_name FROM %1_elements").arg(table);
        lists << all + " WHERE position_id=7" << all;
    }
    for (const char* table : {"dm", "ts", "tss", "rp", "ggs", "igs", "tsg"}) {
        const QString count =
            qstrcmp(table, "igs") == 0 ? "0" : "(select count(*) from %1_%2 where %1_%2.element_id = e.element_id)";
        deletions << "select element_id, element_name, " + QString(count).arg(table, "meas") + ", "
                + QString(count).arg(table, "files")
                + QString(" from %1_elements e where element_id in (9,31) order by element_id").arg(table)
                  << QString("DELETE FROM %1_elements WHERE element_id in (9,31)").arg(table);
    }
    yes = true;
    relay.cutAfter(-1);
    toDatabase("Position");
    QStringList expected = QStringList() << lists << "select state_id, colorindex from states" << deletions;
    EXPECT_EQ(relay.texts().mid(1), expected) << "behind the check of the connection";
    EXPECT_EQ(asked.size(), familyCount);
    session().connection.finish();
}

TEST_F(SyncCommand, CountsItsStatements)
{
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    for (int id = 1; id <= 20; ++id) {
        addRow(marks, id, QString::number(id));
        addBlock(0, id, QString::number(id), id, id);
    }
    relay.cutAfter(-1);
    toDatabase("Position");
    // The check of the connection, two lists of ids a family, the colours of
    // the states; then the row, its update and its properties a block.
    EXPECT_EQ(relay.statements(), 1 + 2 * familyCount + 1 + 3 * 20);

    relay.cutAfter(-1);
    toDrawing();
    EXPECT_EQ(relay.statements(), 1 + 1 + familyCount);
    session().connection.finish();
}
