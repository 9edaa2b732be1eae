// The table of candidates: reading, matching, the status rule, mending, counting.
#include "exchange/import_fixture.h"

#include <QBrush>
#include <QSignalSpy>

namespace {

enum Column { Status, Element, Cycle, Device, Performer, Value, Sixth, Seventh };

class Marks : public ImportProject {
protected:
    MeasureTable table{*importFamily(FamilyKey::Dm)};
    void readLines(const QStringList& lines, bool allBase = false)
    {
        read(table, FamilyKey::Dm, QStringList(markHeader) + lines, allBase);
    }
};

class Wells : public ImportProject {
protected:
    MeasureTable table{*importFamily(FamilyKey::Ts)};
    void readLines(const QStringList& lines) { read(table, FamilyKey::Ts, QStringList(wellHeader) + lines); }
};

} // namespace

TEST_F(Marks, AFileWithoutAHeaderFillsNothing)
{
    read(table, FamilyKey::Dm, {"Т-1;05.01.2021;1.5;SN-1", "Т-2;05.01.2021;1.5;SN-1"});
    EXPECT_EQ(table.rowCount(), 0);
    EXPECT_EQ(table.summaryText(), "Всего: 0 | Без данных: 0 | Верифицированных: 0");
}

TEST_F(Marks, AHeaderInTheMiddleIsNoData)
{
    readLines({"Т-1;05.01.2021;1.5;SN-1", markHeader, "Т-2;05.01.2021;1.5;SN-1"});
    ASSERT_EQ(table.rowCount(), 2);
    EXPECT_EQ(cell(table, 1, Element), "Т-2 (ID: 2)");
}

TEST_F(Marks, ARowIsMatchedWithTheDatabase)
{
    readLines({"T_1;05.02.21;-1,234 м;SN-2"}); // a Latin letter and another separator
    EXPECT_EQ(cell(table, 0, Element), "T_1 (ID: 1)");
    EXPECT_EQ(table.index(0, Element).data(Qt::UserRole), 1);
    EXPECT_EQ(cell(table, 0, Cycle), "2 - 01.02.21 - 28.02.21 - ");
    EXPECT_EQ(table.index(0, Cycle).data(Qt::UserRole), 2);
    EXPECT_EQ(table.index(0, Device).data(Qt::UserRole), 2);
    EXPECT_EQ(cell(table, 0, Performer), "Не установлено");
    EXPECT_EQ(table.index(0, Performer).data(Qt::UserRole), -1);
    EXPECT_EQ(cell(table, 0, Value), "-1.234");
    const auto* mark = static_cast<DMMeasure*>(table.index(0, Status).data(Qt::UserRole).value<void*>());
    EXPECT_EQ(mark->values[0], -1.234);
    EXPECT_EQ(mark->date.date(), QDate(2021, 2, 5));
    EXPECT_EQ(mark->positionId, 7);
}

TEST_F(Marks, NamesAreSoughtInTheChosenScope)
{
    readLines({"Д-1;05.01.2021;1.5;SN-1"});
    EXPECT_EQ(cell(table, 0, Element), "Д-1 (ID: -1)");
    readLines({"Д-1;05.01.2021;1.5;SN-1"}, true);
    EXPECT_EQ(cell(table, 0, Element), "Д-1 (ID: 3)");
}

TEST_F(Marks, TheStatusSaysWhatIsMissing)
{
    readLines({"Т-9;05.09.2021;1.5;SN-9", "Т-1;05.01.2021;1.5;SN-1", "Т-1;;нет;SN-1"});
    EXPECT_EQ(cell(table, 0, Status),
              "Имя Т-9 не найдено. Устройство SN SN-9 не найдено. Не определен цикл.  Не "
              "определен исполнитель. ");
    EXPECT_EQ(cell(table, 1, Status), "Не определен исполнитель. ");
    EXPECT_EQ(cell(table, 2, Status), "Не определен цикл.  Не определен исполнитель. ");
    for (int row = 0; row < 3; ++row)
        EXPECT_FALSE(isChecked(table, row) || isEnabled(table, row));
}

// A measure without a performer cannot be imported.
TEST_F(Marks, ThePerformerCompletesARow)
{
    readLines({"Т-1;05.01.2021;1.5;SN-1", "Т-2;05.01.2021;;SN-1"});
    EXPECT_FALSE(table.setData(table.index(0, Status), Qt::Checked, Qt::CheckStateRole));
    table.givePerformer(2);
    EXPECT_EQ(cell(table, 0, Status), "OK");
    EXPECT_EQ(cell(table, 0, Performer), "Петров Пётр - Петров");
    EXPECT_TRUE(isChecked(table, 0) && isEnabled(table, 0));
    EXPECT_EQ(cell(table, 1, Status), "Нет данных");
    EXPECT_FALSE(isChecked(table, 1) || isEnabled(table, 1));
    table.givePerformer(-1);
    EXPECT_EQ(cell(table, 0, Status), "Не определен исполнитель. ");
    EXPECT_FALSE(isChecked(table, 0));
}

TEST_F(Marks, CellsAreMendedByTheirIds)
{
    readLines({"Т-9;05.09.2021;1.5;SN-9"});
    EXPECT_TRUE(table.setData(table.index(0, Element), 2, Qt::UserRole));
    EXPECT_EQ(cell(table, 0, Element), "Т-2 (ID: 2)");
    EXPECT_TRUE(table.setData(table.index(0, Cycle), 3, Qt::UserRole));
    EXPECT_TRUE(table.setData(table.index(0, Device), 1, Qt::UserRole));
    EXPECT_TRUE(table.setData(table.index(0, Performer), 1, Qt::UserRole));
    EXPECT_EQ(cell(table, 0, Status), "OK");
    EXPECT_EQ(cell(table, 0, Device), "SN-1 - новая");
    EXPECT_FALSE(table.setData(table.index(0, Cycle), 99, Qt::UserRole)) << "no such cycle";
    EXPECT_EQ(table.index(0, Cycle).data(Qt::UserRole), 3);
    EXPECT_TRUE(table.setData(table.index(0, Cycle), -1, Qt::UserRole));
    EXPECT_EQ(cell(table, 0, Status), "Не определен цикл. ");
}

TEST_F(Marks, ARowWhoseNumberLostAPartIsMarked)
{
    readLines({"Т-1;05.01.2021;\u22121,5;SN-1", "Т-2;05.01.2021;-1,5;SN-1"});
    EXPECT_EQ(cell(table, 0, Value), "1.5") << "read as told";
    for (int column = 0; column < table.columnCount(); ++column) {
        EXPECT_EQ(table.index(0, column).data(Qt::BackgroundRole).value<QBrush>().color(), QColor(255, 224, 150));
        EXPECT_TRUE(table.index(0, column)
                        .data(Qt::ToolTipRole)
                        .toString()
                        .endsWith("\n«\u22121,5» прочитано как 1.5: не учтено — знак"));
        EXPECT_FALSE(table.index(1, column).data(Qt::BackgroundRole).isValid());
    }
    EXPECT_TRUE(table.setData(table.index(0, Value), "-1.5", Qt::EditRole));
    EXPECT_FALSE(table.index(0, Value).data(Qt::BackgroundRole).isValid()) << "mended by hand";
    EXPECT_FALSE(table.index(0, Value).data(Qt::ToolTipRole).toString().contains("прочитано"));
}

// Quotation marks are letters like others: what stands between them is split all the same.
TEST_F(Marks, QuotedCellsAreSplitPlainlyAndTheirRowsCannotBeImported)
{
    readLines({"\"Т-1;левая\";05.01.2021;1.5;SN-1", "\"Т-1", "верх\";05.01.2021;1.5;SN-1", "Т-2;05.01.2021;1.5;SN-1"});
    table.givePerformer(1);
    ASSERT_EQ(table.rowCount(), 3) << "a line of one cell is no row";
    EXPECT_EQ(cell(table, 0, Value), "5.01") << "the date stands where the value is read";
    EXPECT_EQ(cell(table, 1, Element), "верх\" (ID: -1)");
    for (const int row : {0, 1}) {
        EXPECT_FALSE(isEnabled(table, row)) << row;
        EXPECT_NE(cell(table, row, Status), "OK") << row;
    }
    EXPECT_EQ(cell(table, 2, Status), "OK");
}

TEST_F(Wells, LossesOfProfileAndAirAreMarked)
{
    readLines({"Т-1;SN-1;05.01.2021;12:30;-5,2;-1;1e1;-1;-1", "Т-2;SN-1;05.01.2021;12:30;-5;-1;-1;-1;-1",
               "Т-2;SN-1;05.01.2021;12:30;нет;-1;-1;-1;-1"});
    EXPECT_EQ(table.index(0, Status).data(Qt::ToolTipRole).toString().section('\n', 1),
              "Дата замера: 05.01.2021 12:30\n«-5,2» не прочитано как число\n«1e1» прочитано как 1: не учтено — "
              "порядок");
    EXPECT_TRUE(table.index(0, Status).data(Qt::BackgroundRole).isValid());
    EXPECT_FALSE(table.index(1, Status).data(Qt::BackgroundRole).isValid());
    EXPECT_FALSE(table.index(2, Status).data(Qt::BackgroundRole).isValid());
}

TEST_F(Wells, AToolTipNamesTheFirstFiveLosses)
{
    read(table, FamilyKey::Ts,
         {"Имя;Серийный номер;Дата замера;Время замера;Темп.возд;1;2;3;4;5;6;7",
          "Т-1;SN-1;05.01.2021;12:30;-5;\u22121;\u22121;\u22121;\u22121;\u22121;\u22121;\u22121"});
    const QStringList lines = table.index(0, Element).data(Qt::ToolTipRole).toString().split('\n');
    ASSERT_EQ(lines.size(), 7);
    EXPECT_EQ(lines.last(), "и ещё: 2");

    read(table, FamilyKey::Ts,
         {"Имя;Серийный номер;Дата замера;Время замера;Темп.возд;1;2;3;4;5",
          "Т-1;SN-1;05.01.2021;12:30;-5;\u22121;\u22121;\u22121;\u22121;\u22121"});
    const QString five = table.index(0, Element).data(Qt::ToolTipRole).toString();
    EXPECT_EQ(five.count('\n'), 5);
    EXPECT_FALSE(five.contains("и ещё")) << five;
}

TEST_F(Marks, AToolTipTellsTheDate)
{
    readLines({"Т-1;05.02.21;1.5;SN-1", "Т-1;вчера;1.5;SN-1"});
    EXPECT_EQ(table.index(0, Value).data(Qt::ToolTipRole), "Дата замера: 05.02.2021 00:00");
    EXPECT_EQ(table.index(0, Status).data(Qt::ToolTipRole),
              "Не определен исполнитель. \nДата замера: 05.02.2021 00:00");
    EXPECT_EQ(table.index(1, Value).data(Qt::ToolTipRole), "Дата замера не прочитана: возьмётся середина цикла");
}

TEST_F(Marks, AValueIsTakenWhenItIsANumber)
{
    readLines({"Т-1;05.01.2021;;SN-1"});
    table.givePerformer(1);
    EXPECT_EQ(cell(table, 0, Value), "");
    EXPECT_FALSE(table.setData(table.index(0, Value), "1,5", Qt::EditRole)) << "a comma is no point";
    EXPECT_FALSE(table.setData(table.index(0, Value), "", Qt::EditRole));
    EXPECT_FALSE(isChecked(table, 0));
    EXPECT_TRUE(table.setData(table.index(0, Value), "1.50", Qt::EditRole));
    EXPECT_EQ(cell(table, 0, Value), "1.50");
    EXPECT_EQ(cell(table, 0, Status), "OK");
    for (const char* none : {"nan", "inf"}) {
        EXPECT_TRUE(table.setData(table.index(0, Value), none, Qt::EditRole));
        EXPECT_EQ(cell(table, 0, Status), "Нет данных") << none;
    }
}

TEST_F(Marks, ValuesAreShownWithSixDigits)
{
    readLines({"Т-1;05.01.2021;123.4567891;SN-1", "Т-1;05.01.2021;1234567;SN-1"});
    EXPECT_EQ(cell(table, 0, Value), "123.457");
    EXPECT_EQ(cell(table, 1, Value), "1.23457e+06");
}

TEST_F(Marks, TheCheckBoxAloneDoesNotCheckAnew)
{
    setNorms("10");
    readLines({"Т-1;05.01.2021;1.5;SN-1"});
    table.givePerformer(1);
    EXPECT_EQ(cell(table, 0, Sixth), "Нет данных сревнения");
    EXPECT_EQ(table.index(0, Sixth).data(Qt::UserRole), int(settlementNoPrevious));
    database()->exec("delete from positions_attributes");
    EXPECT_TRUE(table.setData(table.index(0, Status), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_FALSE(isChecked(table, 0));
    EXPECT_TRUE(isEnabled(table, 0));
    EXPECT_EQ(cell(table, 0, Sixth), "Нет данных сревнения");
    EXPECT_TRUE(table.setData(table.index(0, Value), "2", Qt::EditRole));
    EXPECT_EQ(cell(table, 0, Sixth), "Не задан критерий");
    EXPECT_TRUE(isChecked(table, 0)) << "a change of the row decides anew";
}

TEST_F(Marks, OneChangeGivesOneNotice)
{
    readLines({"Т-1;05.01.2021;1.5;SN-1", "Т-2;05.01.2021;1.5;SN-1"});
    QSignalSpy notices(&table, &QAbstractItemModel::dataChanged);
    table.setData(table.index(0, Performer), 1, Qt::UserRole);
    ASSERT_EQ(notices.size(), 1);
    EXPECT_EQ(notices[0][0].toModelIndex(), table.index(0, 0)) << "the whole row: its status may be another";
    EXPECT_EQ(notices[0][1].toModelIndex(), table.index(0, table.columnCount() - 1));
    table.giveCycle(3);
    EXPECT_EQ(notices.size(), 2);
}

TEST_F(Marks, OnlyWhatMayBeMendedIsEditable)
{
    readLines({"Т-1;05.01.2021;1.5;SN-1"});
    for (const int column : {Element, Cycle, Device, Performer, Value})
        EXPECT_TRUE(table.flags(table.index(0, column)) & Qt::ItemIsEditable) << column;
    for (const int column : {Status, Sixth})
        EXPECT_FALSE(table.flags(table.index(0, column)) & Qt::ItemIsEditable) << column;
}

TEST_F(Marks, TheSummaryDividesWhatIsVerified)
{
    setNorms("10");
    database()->exec("insert into dm_meas (element_id, cycle_id, meas) values (1, 1, 100)");
    readLines({"Т-1;05.02.2021;100.05;SN-1", "Т-1;05.02.2021;101;SN-1", "Т-2;05.02.2021;100;SN-1",
               "Т-1;05.02.2021;;SN-1", "Т-9;05.02.2021;1;SN-1"});
    EXPECT_EQ(table.summaryText(), "Всего: 5 | Без данных: 1 | Верифицированных: 0");
    table.givePerformer(1);
    EXPECT_EQ(table.summaryText(),
              "Всего: 5 | Без данных: 1 | Верифицированных: 3 (из них валидных 1, с "
              "предупреждениями 1, с ошибками 1)");
}

TEST_F(Marks, UncheckedRowsAreCopiedAsText)
{
    readLines({"Т-1;05.01.2021;1.5;SN-1", "Т-9;05.01.2021;1.5;SN-1"});
    table.givePerformer(1);
    EXPECT_EQ(table.uncheckedText(),
              "Имя Т-9 не найдено.\tТ-9 (ID: -1)\t1 - 01.01.21 - 31.01.21 - зима\tSN-1 - "
              "новая\tИванов Иван - Иванов\t1.5\tНеизвестная ошибка\n");
}

TEST_F(Marks, TheUncheckedRowStaysOnItsLineWhateverItsTexts)
{
    database()->exec("update devices set description = E'новая\\r\\nкоса' where device_id = 1");
    loadDevices(lists);
    readLines({"Т-9;05.01.2021;1.5;SN-1"});
    const QString text = table.uncheckedText();
    EXPECT_TRUE(text.contains("\tSN-1 - новая  коса\t")) << text;
    EXPECT_FALSE(text.contains('\r'));
    EXPECT_EQ(text.count('\n'), 1);
}

TEST_F(Marks, ChangedListsClearWhatWasLost)
{
    readLines({"Т-1;05.01.2021;1.5;SN-1", "Т-2;05.02.2021;1.5;SN-1"});
    table.givePerformer(1);
    table.setData(table.index(1, Status), Qt::Unchecked, Qt::CheckStateRole);
    MeasureLists fewer = lists;
    fewer.cycles.removeFirst();
    table.setLists(fewer);
    EXPECT_EQ(cell(table, 0, Status), "Не определен цикл. ");
    EXPECT_EQ(cell(table, 1, Status), "OK");
    EXPECT_EQ(cell(table, 1, Cycle), "2 - 01.02.21 - 28.02.21 - ");
    EXPECT_FALSE(isChecked(table, 1)) << "the user's own choice stays";
    EXPECT_EQ(cell(table, 0, Element), "Т-1 (ID: 1)");
}

TEST_F(Marks, ProgressMovesEveryThirdLine)
{
    QStringList lines(markHeader);
    for (int i = 0; i < 7; ++i)
        lines += "Т-1;05.01.2021;1.5;SN-1";
    QVector<int> steps;
    const auto step = [&](int line) {
        steps.append(line);
        return true;
    };
    readMeasures(*importFamily(FamilyKey::Dm), task(FamilyKey::Dm, lines), step);
    EXPECT_EQ(steps, QVector<int>({3, 6, 8}));
    steps.clear();
    readMeasures(*importFamily(FamilyKey::Ggs), task(FamilyKey::Ggs, lines.mid(0, 3)), step);
    EXPECT_EQ(steps, QVector<int>({1, 2, 3, 3}));
}

TEST_F(Marks, WhatIsStoppedLeavesNoRow)
{
    const ImportFamily& marks = *importFamily(FamilyKey::Dm);
    const ReadingTask reading = task(FamilyKey::Dm, {markHeader, "Т-1;05.01.2021;1.5;SN-1", "Т-2;05.01.2021;1.5;SN-1"});
    EXPECT_EQ(readMeasures(marks, reading, [](int line) { return line < 3; }).size(), 0u);
    EXPECT_EQ(readMeasures(marks, reading, [](int) { return true; }).size(), 2u);
    read(table, FamilyKey::Dm, reading.lines);
    ASSERT_EQ(table.rowCount(), 2);
    int told = 0;
    EXPECT_FALSE(table.setMeasures(readMeasures(marks, reading), reading.scope, [&](int done, int total) {
        told = done;
        return done < total;
    }));
    EXPECT_EQ(told, 2);
    EXPECT_EQ(table.rowCount(), 0);
    EXPECT_EQ(table.summaryText(), "Всего: 0 | Без данных: 0 | Верифицированных: 0");
}

TEST_F(Marks, RepeatedTextsAreMatchedAsTheFirstTime)
{
    readLines({"Т-1;05.01.2021;1;SN-1", "Т-1;05.01.2021;2;SN-1", "Т-9;05.09.2021;3;SN-9", "Т-9;05.09.2021;4;SN-9",
               "Т-1;;5;", "Т-1;;6;"});
    for (int row = 0; row < 6; row += 2) {
        for (const int column : {Status, Element, Cycle, Device})
            EXPECT_EQ(cell(table, row, column), cell(table, row + 1, column));
    }
    const auto* second = static_cast<BaseMeasure*>(table.index(3, Status).data(Qt::UserRole).value<void*>());
    EXPECT_EQ(second->date.date(), QDate(2021, 9, 5)) << "a date without a cycle is kept";
}

TEST_F(ImportProject, OtherFamiliesCheckNothing)
{
    const struct {
        FamilyKey family;
        const char* header;
        const char* line;
        int columns;
    } cases[] = {
        {FamilyKey::Rp, "Имя;Дата;Отметка;Точность;SN прибора", "Т-1;05.01.2021;1.5;0,25;SN-1", 7},
        {FamilyKey::Ggs, "Имя;Дата;Уровень ГВ;SN прибора", "Т-1;05.01.2021;1.5;SN-1", 6},
        {FamilyKey::Tsg, "Имя;Дата;Температура воздуха;Температура конденсатора;SN прибора",
         "Т-1;05.01.2021;1.5;0,25;SN-1", 7},
        {FamilyKey::Tss, "Имя;Дата;Плотность;Высота;SN прибора", "Т-1;05.01.2021;1.5;0,25;SN-1", 7},
    };
    for (const auto& c : cases) {
        MeasureTable table(*importFamily(c.family));
        read(table, c.family, {c.header, c.line});
        ASSERT_EQ(table.columnCount(), c.columns);
        EXPECT_EQ(table.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), "Импорт");
        table.givePerformer(1);
        EXPECT_EQ(cell(table, 0, Status), "OK");
        EXPECT_EQ(cell(table, 0, Value), "1.5");
        if (c.columns == 7) {
            EXPECT_EQ(cell(table, 0, Sixth), "0.25");
            EXPECT_FALSE(table.flags(table.index(0, Sixth)) & Qt::ItemIsEditable);
        }
        EXPECT_EQ(table.summaryText(), "Всего: 1 | Без данных: 0 | Верифицированных: 1");
    }
}

TEST_F(Marks, ColumnsBearTitlesAndRowsNumbers)
{
    readLines({"Т-1;05.01.2021;1.5;SN-1"});
    EXPECT_EQ(table.headerData(Status, Qt::Horizontal, Qt::DisplayRole).toString(), "Статус");
    EXPECT_EQ(table.headerData(0, Qt::Vertical, Qt::DisplayRole), 1);
    EXPECT_FALSE(table.headerData(Status, Qt::Horizontal, Qt::ToolTipRole).isValid());
    for (const int beyond : {-1, table.columnCount()})
        EXPECT_EQ(table.headerData(beyond, Qt::Horizontal, Qt::DisplayRole), beyond + 1) << "a number as in any table";
}

TEST_F(ImportProject, AMissingSecondValueDoesNotMatter)
{
    MeasureTable table(*importFamily(FamilyKey::Rp));
    read(table, FamilyKey::Rp, {"Имя;Дата;Отметка;Точность;SN прибора", "Т-1;05.01.2021;1.5;;SN-1"});
    table.givePerformer(1);
    EXPECT_TRUE(isChecked(table, 0));
    EXPECT_EQ(cell(table, 0, Sixth), "");
}

TEST_F(ImportProject, ASnowPointOfFourCellsLacksItsDevice)
{
    MeasureTable table(*importFamily(FamilyKey::Tss));
    read(table, FamilyKey::Tss, {"Имя;Дата;Плотность;Высота;SN прибора", "Т-1;05.01.2021;0,3;1,5"});
    EXPECT_EQ(cell(table, 0, Status), "Устройство SN  не найдено. Не определен исполнитель. ");
}

TEST_F(Wells, AProfileIsAButtonAndItsLackAWord)
{
    readLines({"Т-1;SN-1;05.01.2021;12:00;-5;-1;-1.1;-1.2;-1.3", "Т-1;SN-1;05.02.2021;12:00;-5;обрыв;;;"});
    EXPECT_NE(table.index(0, Sixth).data().value<TSMeasure*>(), nullptr);
    EXPECT_EQ(table.index(0, Sixth).data(Qt::UserRole).toString(), "Просмотр");
    EXPECT_EQ(cell(table, 1, Sixth), "Нет данных");
    table.givePerformer(1);
    EXPECT_TRUE(isChecked(table, 0));
    EXPECT_EQ(cell(table, 1, Status), "Нет данных") << "a failed profile leaves its row";
    EXPECT_EQ(cell(table, 0, Seventh), "Не задан критерий");
    EXPECT_EQ(table.index(0, Seventh).data(Qt::UserRole), 16);
}

TEST_F(Wells, WithoutAirThereIsNoDataUntilItIsGiven)
{
    readLines({"Т-1;SN-1;05.01.2021;12:00;;-1;-1.1;-1.2;-1.3"});
    table.givePerformer(1);
    EXPECT_EQ(cell(table, 0, Status), "Нет данных");
    EXPECT_EQ(table.summary().withoutData, 1);
    table.giveValue("-7.50");
    EXPECT_EQ(cell(table, 0, Value), "-7.50");
    EXPECT_EQ(cell(table, 0, Status), "OK");
    EXPECT_TRUE(isChecked(table, 0));
    EXPECT_EQ(table.summary().withoutData, 0);
}

TEST_F(Wells, ValidationFollowsTheCycle)
{
    setNorms("null", "1", "4");
    database()->exec("insert into ts_meas (element_id, cycle_id, meas) values (1, 1, '1.00:-1.15|4.00:-1.15')");
    readLines({"Т-1;SN-1;05.01.2021;12:00;-5;-1;-1.1;-1.2;-1.3"});
    EXPECT_EQ(cell(table, 0, Seventh), "Не заданы данные сравнения");
    table.giveCycle(2);
    EXPECT_EQ(cell(table, 0, Seventh), "Данные валидны");
    table.givePerformer(1);
    EXPECT_EQ(table.summaryText(),
              "Всего: 1 | Без данных: 0 | Верифицированных: 1 (из них валидных 1, с "
              "предупреждениями 0, с ошибками 0)");
    table.setData(table.index(0, Element), -1, Qt::UserRole);
    EXPECT_EQ(cell(table, 0, Seventh), "Неизвестная ошибка");
}

TEST_F(Wells, CopiedRowsStayOnTheirLines)
{
    database()->exec("insert into positions_attributes (position_id, temperature_deep_min, temperature_deep_max) "
                     "values (7, 0, 10)");
    readLines({"Т-1;SN-1;05.01.2021;12:00;-5;-1;9;-1.2;-1.3"});
    EXPECT_EQ(table.uncheckedText().count('\n'), 1);
    EXPECT_TRUE(
        table.uncheckedText().endsWith("\tНе заданы данные сравнения Выбросы данных Высокая скорость изменения\n"));
}

TEST_F(ImportProject, TheScopeKnowsThePositionOfAnElement)
{
    ElementScope scope;
    ASSERT_TRUE(loadScope("ts_elements", 7, true, scope));
    EXPECT_EQ(scope.elements.size(), 3);
    EXPECT_EQ(scope.elements[0].text, "Д-1") << "by name";
    EXPECT_EQ(scope.positionOf(3), 8);
    EXPECT_EQ(scope.positionOf(99), -1);
    ASSERT_TRUE(loadScope("ts_elements", 7, false, scope));
    EXPECT_EQ(scope.positionOf(1), 7);
    EXPECT_EQ(scope.positionOf(3), -1);
    EXPECT_FALSE(loadScope("no_such_table", 7, false, scope));
    EXPECT_TRUE(scope.elements.isEmpty() && scope.byPosition.isEmpty());
}
