// Writing the checked rows: questions, statements, what the command line says.
#include "exchange/import_fixture.h"
#include "support/statement_relay.h"

#include <deque>

namespace {

class Import : public ImportProject {
protected:
    // Gives the answers one by one; a question without an answer fails the test.
    int run(FamilyKey family, const MeasureTable& table, std::deque<ImportAnswer> answers = {})
    {
        asked.clear();
        const int written = importMeasures(*importFamily(family), table.candidates(), [&](const QString& text) {
            asked.append(text);
            EXPECT_FALSE(answers.empty()) << text;
            if (answers.empty())
                return ImportAnswer::No;
            const ImportAnswer answer = answers.front();
            answers.pop_front();
            return answer;
        });
        EXPECT_TRUE(answers.empty()) << answers.size() << " answers were not asked for";
        return written;
    }

    // Marks of one element each; valid ones have a norm and a mark before.
    void readMarks(const QStringList& lines)
    {
        read(marks, FamilyKey::Dm, QStringList(markHeader) + lines);
        marks.givePerformer(1);
    }
    void readWells(const QStringList& lines)
    {
        read(wells, FamilyKey::Ts, QStringList(wellHeader) + lines);
        wells.givePerformer(1);
    }
    QVector<QStringList> stored(const QString& table, const QString& columns)
    {
        return database()->rows("select element_id, cycle_id, device_id, date, " + columns + ", performer_id from "
                                + table + " order by element_id, cycle_id");
    }
    // A norm, and a mark in the first cycle, so that marks of the second are valid near 100.
    void makeMarksValid()
    {
        setNorms("10");
        database()->exec("insert into dm_meas (element_id, cycle_id, meas) values (1, 1, 100), (2, 1, 100)");
    }
    int storedIn(int cycle)
    {
        return database()->value(QString("select count(*) from dm_meas where cycle_id = %1").arg(cycle)).toInt();
    }

    static constexpr auto Yes = ImportAnswer::Yes;
    static constexpr auto YesToAll = ImportAnswer::YesToAll;
    static constexpr auto No = ImportAnswer::No;
    static constexpr auto NoToAll = ImportAnswer::NoToAll;

    const QString done = "\nИмпорт измерений для деформационной марки %1 завершен";
    const QString total = "Импорт измерений завершен. В базе данных создано (обновлено) измерений - %1 ";
    const QString replaced = "\nИз них заменено хранившихся раньше - %1\n";
    const QString nothing = "Импорт измерений завершен. Ничего не изменилось";
    const QString doubtful = " содержит невалидные данные .\n Импортировать их? ";
    const QString taken = " уже содержит измерения для заданного цикла.\n Перезаписать данные измерений? ";

    MeasureTable marks{*importFamily(FamilyKey::Dm)};
    MeasureTable wells{*importFamily(FamilyKey::Ts)};
    QStringList asked;
    ConsoleCapture console;
};

} // namespace

TEST_F(Import, WithoutRowsNothingChanges)
{
    EXPECT_EQ(run(FamilyKey::Dm, marks), 0);
    EXPECT_EQ(console.take(), nothing);
}

// --- two imports at once, and stopping one -----------------------------------------

TEST_F(Import, WhileAnotherSessionImportsTheSameNothingIsWritten)
{
    makeMarksValid();
    readMarks({"Т-1;05.02.2021;100;SN-1"});
    database()->exec("insert into dm_meas (element_id, cycle_id, meas) values (2, 2, 6)");
    const QString key = QString("(7410, %1)").arg(int(FamilyKey::Dm));
    ASSERT_EQ(database()->value("select pg_try_advisory_lock" + key), "t");
    EXPECT_EQ(run(FamilyKey::Dm, marks), 0);
    EXPECT_EQ(console.take(),
              "\nЭти измерения сейчас импортирует другой пользователь. Повторите импорт, когда он закончит\n"
                  + nothing);
    EXPECT_EQ(storedIn(2), 1);
    readWells({"Т-1;SN-1;05.02.2021;12:30;-5;-1;-1.1;-1.2;-1.3"});
    EXPECT_EQ(run(FamilyKey::Ts, wells, {YesToAll}), 1) << "other families are no concern of it";

    // The other one has ended: what it wrote is found and asked for.
    database()->exec("select pg_advisory_unlock" + key);
    database()->exec("insert into dm_meas (element_id, cycle_id, meas) values (1, 2, 5)");
    QString during;
    asked.clear();
    EXPECT_EQ(importMeasures(*importFamily(FamilyKey::Dm), marks.candidates(),
                             [&](const QString& text) {
                                 asked.append(text);
                                 during = database()->value("select pg_try_advisory_lock" + key);
                                 return Yes;
                             }),
              1);
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(during, "f") << "held while the user is asked";
    EXPECT_EQ(database()->value("select pg_try_advisory_lock" + key), "t") << "and given back";
    database()->exec("select pg_advisory_unlock" + key);
    EXPECT_EQ(database()->value("select count(*) from dm_meas where cycle_id = 2 and element_id = 1"), "1");
}

TEST_F(Import, IsStoppedBetweenTwoRows)
{
    makeMarksValid();
    readMarks({"Т-1;05.02.2021;100;SN-1", "Т-2;05.02.2021;100;SN-1", "Т-1;05.03.2021;100;SN-1"});
    const auto never = [](const QString&) { return ImportAnswer::No; };
    EXPECT_EQ(importMeasures(*importFamily(FamilyKey::Dm), marks.candidates(), never, [](int row) { return row < 2; }),
              2);
    EXPECT_TRUE(console.take().endsWith("\nИмпорт остановлен. Обработано строк: 2 из 3\n" + total.arg(2)));
    EXPECT_EQ(storedIn(2), 2);
    EXPECT_EQ(storedIn(3), 0);
}

TEST_F(Import, UncheckedRowsAreSkipped)
{
    readMarks({"Т-1;05.01.2021;1.5;SN-1", "Т-9;05.01.2021;1.5;SN-1"});
    marks.setData(marks.index(0, 0), Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_EQ(run(FamilyKey::Dm, marks), 0);
    EXPECT_EQ(console.take(), nothing);
    EXPECT_EQ(storedIn(1), 0);
}

TEST_F(Import, AValidMarkIsWrittenWithoutAQuestion)
{
    makeMarksValid();
    readMarks({"Т-1;05.02.2021;100,05;SN-2"});
    EXPECT_EQ(run(FamilyKey::Dm, marks), 1);
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_EQ(console.take(), done.arg("Т-1") + total.arg(1));
    EXPECT_EQ(database()->rows("select element_id, cycle_id, device_id, date, meas, performer_id from dm_meas where "
                               "cycle_id = 2"),
              QVector<QStringList>({{"1", "2", "2", "2021-02-05", "100.05", "1"}}));
}

TEST_F(Import, ADoubtfulMarkIsAskedFor)
{
    readMarks({"Т-1;05.01.2021;1.5;SN-1", "Т-2;05.01.2021;1.5;SN-1"});
    EXPECT_EQ(run(FamilyKey::Dm, marks, {No, Yes}), 1);
    EXPECT_EQ(asked, QStringList({"Деформационная марка Т-1" + doubtful, "Деформационная марка Т-2" + doubtful}));
    EXPECT_EQ(console.take(), done.arg("Т-2") + total.arg(1));
}

TEST_F(Import, BothAnswersForAllLetDoubtfulMarksThrough)
{
    for (const ImportAnswer answer : {YesToAll, NoToAll}) {
        database()->exec("delete from dm_meas");
        readMarks({"Т-1;05.01.2021;1.5;SN-1", "Т-2;05.01.2021;1.5;SN-1", "Т-2;05.02.2021;1.5;SN-1"});
        EXPECT_EQ(run(FamilyKey::Dm, marks, {answer}), 3);
        EXPECT_EQ(asked.size(), 1);
    }
}

TEST_F(Import, AStoredMeasureIsOverwrittenWhenTheUserWants)
{
    makeMarksValid();
    database()->exec("insert into dm_meas (element_id, cycle_id, meas) values (1, 2, 5), (2, 2, 6)");
    readMarks({"Т-1;05.02.2021;100;SN-1", "Т-2;05.02.2021;100;SN-1"});
    EXPECT_EQ(run(FamilyKey::Dm, marks, {No, Yes}), 1);
    EXPECT_EQ(asked, QStringList({"Деформационная марка Т-1" + taken, "Деформационная марка Т-2" + taken}));
    EXPECT_EQ(database()->rows("select element_id, meas from dm_meas where cycle_id = 2 order by element_id"),
              QVector<QStringList>({{"1", "5"}, {"2", "100"}}));
    EXPECT_EQ(console.take(), done.arg("Т-2") + total.arg(1) + replaced.arg(1));
}

TEST_F(Import, ALineTellsHowManyMeasuresWereReplaced)
{
    makeMarksValid();
    database()->exec("insert into dm_meas (element_id, cycle_id, meas) values (1, 2, 5)");
    readMarks({"Т-1;05.02.2021;100;SN-1", "Т-2;05.02.2021;100;SN-1", "Т-2;06.02.2021;100;SN-1"});
    EXPECT_EQ(run(FamilyKey::Dm, marks, {YesToAll}), 3);
    EXPECT_EQ(console.take(), done.arg("Т-1") + done.arg("Т-2") + done.arg("Т-2") + total.arg(3) + replaced.arg(2));
}

TEST_F(Import, YesForAllOverwritesFromThenOn)
{
    makeMarksValid();
    database()->exec("insert into dm_meas (element_id, cycle_id, meas) values (1, 2, 5), (2, 2, 6)");
    readMarks({"Т-1;05.02.2021;100;SN-1", "Т-2;05.02.2021;100;SN-1"});
    EXPECT_EQ(run(FamilyKey::Dm, marks, {YesToAll}), 2);
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(database()->value("select sum(meas) from dm_meas where cycle_id = 2"), "200");
}

TEST_F(Import, NoForAllLeavesStoredMeasuresAndInsertsNewOnes)
{
    makeMarksValid();
    database()->exec("insert into dm_meas (element_id, cycle_id, meas) values (1, 2, 5), (1, 3, 6)");
    readMarks({"Т-1;05.02.2021;100;SN-1", "Т-1;05.03.2021;5;SN-1", "Т-2;05.02.2021;100;SN-1"});
    EXPECT_EQ(run(FamilyKey::Dm, marks, {NoToAll}), 1);
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(database()->rows("select element_id, cycle_id, meas from dm_meas where cycle_id > 1 "
                               "order by element_id, cycle_id"),
              QVector<QStringList>({{"1", "2", "5"}, {"1", "3", "6"}, {"2", "2", "100"}}));
}

// Once no stored measure may be touched, doubtful rows are passed without a question.
TEST_F(Import, AfterNoForAllDoubtfulRowsAreSkipped)
{
    makeMarksValid();
    database()->exec("insert into dm_meas (element_id, cycle_id, meas) values (1, 2, 5)");
    readMarks({"Т-1;05.02.2021;100;SN-1", "Т-2;05.02.2021;500;SN-1", "Т-2;05.02.2021;100;SN-1"});
    EXPECT_EQ(run(FamilyKey::Dm, marks, {NoToAll}), 1);
    EXPECT_EQ(asked, QStringList({"Деформационная марка Т-1" + taken}));
    EXPECT_EQ(database()->value("select meas from dm_meas where element_id = 2 and cycle_id = 2"), "100");
}

TEST_F(Import, ADoubtfulStoredRowIsAskedForTwice)
{
    database()->exec("insert into dm_meas (element_id, cycle_id, meas) values (1, 1, 5)");
    readMarks({"Т-1;05.01.2021;1.5;SN-1"});
    EXPECT_EQ(run(FamilyKey::Dm, marks, {Yes, Yes}), 1);
    EXPECT_EQ(asked, QStringList({"Деформационная марка Т-1" + doubtful, "Деформационная марка Т-1" + taken}));
}

TEST_F(Import, TwoRowsOfOneCycleInsertAndAsk)
{
    makeMarksValid();
    readMarks({"Т-1;05.02.2021;100.01;SN-1", "Т-1;06.02.2021;100.02;SN-1"});
    EXPECT_EQ(run(FamilyKey::Dm, marks, {Yes}), 2);
    EXPECT_EQ(asked, QStringList({"Деформационная марка Т-1" + taken}));
    EXPECT_EQ(database()->rows("select meas, date from dm_meas where cycle_id = 2"),
              QVector<QStringList>({{"100.02", "2021-02-06"}}));
}

// A row is one statement; which rows have a measure is asked for two hundred at once.
TEST_F(Import, AsksForTheStoredMeasuresOfManyRowsAtOnce)
{
    database()->exec("insert into cycles (cycle_id, number, date_start, date_end) overriding system value select "
                     "1000 + n, n, date '2022-01-01' + n, date '2022-01-01' + n from generate_series(0, 249) n;"
                     "insert into ggs_meas (element_id, cycle_id, meas) values (1, 1230, 7)");
    loadCycles(lists);
    QStringList lines("Имя;Дата;Уровень ГВ;SN прибора");
    for (int day = 0; day < 250; ++day)
        lines << "Т-1;" + QDate(2022, 1, 1).addDays(day).toString("dd.MM.yyyy") + ";1.5;SN-1";
    MeasureTable wells(*importFamily(FamilyKey::Ggs));
    read(wells, FamilyKey::Ggs, lines);
    wells.givePerformer(1);
    const StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    const int before = relay.statements();
    EXPECT_EQ(run(FamilyKey::Ggs, wells, {No}), 249);
    EXPECT_EQ(asked.size(), 1) << "row 230 has a measure";
    // The lock and its end, the rows, the stored one's own question, and what was asked ahead:
    // at the first row, at row 200, and again once the user had been asked.
    EXPECT_EQ(relay.statements() - before, 2 + 249 + 1 + 3);
    EXPECT_EQ(database()->value("select meas from ggs_meas where cycle_id = 1230"), "7");
}

// Somebody else may work while the question stands open.
TEST_F(Import, AMeasureThatAppearsDuringAQuestionIsAskedFor)
{
    makeMarksValid();
    readMarks({"Т-1;05.02.2021;500;SN-1", "Т-2;05.02.2021;100;SN-1"});
    QStringList questions;
    const int written = importMeasures(*importFamily(FamilyKey::Dm), marks.candidates(), [&](const QString& text) {
        questions << text;
        if (questions.size() == 1)
            database()->exec("insert into dm_meas (element_id, cycle_id, meas) values (2, 2, 3)");
        return No;
    });
    EXPECT_EQ(written, 0);
    EXPECT_EQ(questions, QStringList({"Деформационная марка Т-1" + doubtful, "Деформационная марка Т-2" + taken}));
    EXPECT_EQ(database()->value("select meas from dm_meas where element_id = 2 and cycle_id = 2"), "3");
}

TEST_F(Import, ARowWithoutADateGetsTheMiddleOfItsCycle)
{
    readMarks({"Т-1;;1.5;SN-1", "Т-2;05.09.2021;1.5;SN-1"});
    marks.giveCycle(2);
    EXPECT_EQ(run(FamilyKey::Dm, marks, {YesToAll}), 2);
    EXPECT_EQ(database()->rows("select element_id, cycle_id, date from dm_meas order by element_id"),
              QVector<QStringList>({{"1", "2", "2021-02-15"}, {"2", "2", "2021-09-05"}}))
        << "a date of the file stays, whatever cycle was chosen";
}

TEST_F(Import, EveryFamilyHasItsWords)
{
    const struct {
        FamilyKey family;
        const char* header;
        const char* line;
        const char* table;
        const char* columns;
        QStringList row;
        const char* word;
        const char* done;
    } cases[] = {
        {FamilyKey::Rp,
         "Имя;Дата;Отметка;Точность;SN прибора",
         "Т-1;05.01.2021;1.5;;SN-1",
         "rp_meas",
         "meas, precis",
         {"1", "1", "1", "2021-01-05", "1.5", QString(), "1"},
         "Репер Т-1",
         "\nИмпорт измерений для репера Т-1 завершен"},
        {FamilyKey::Ggs,
         "Имя;Дата;Уровень ГВ;SN прибора",
         "Т-1;05.01.2021;1.5;SN-1",
         "ggs_meas",
         "meas",
         {"1", "1", "1", "2021-01-05", "1.5", "1"},
         "Гидрогеологическая скважина Т-1",
         "\nИмпорт измерений для гидрогеологической скважины Т-1 завершен"},
        {FamilyKey::Tsg,
         "Имя;Дата;Температура воздуха;Температура конденсатора;SN прибора",
         "Т-1;05.01.2021;-1.5;-2,5;SN-1",
         "tsg_meas",
         "env_temp, exchanger_temp",
         {"1", "1", "1", "2021-01-05", "-1.5", "-2.5", "1"},
         "Термостабилизационный элемент Т-1",
         "\nИмпорт измерений для термостабилизационного элемента Т-1 завершен"},
        {FamilyKey::Tss,
         "Имя;Дата;Плотность;Высота;SN прибора",
         "Т-1;05.01.2021;0.3;1,25;SN-1",
         "tss_meas",
         "meas_density, meas_heigth",
         {"1", "1", "1", "2021-01-05", "0.3", "1.25", "1"},
         "Точка снегомерной съемки Т-1",
         "\nИмпорт измерений для точки снегомерной съемки Т-1 завершен"},
    };
    for (const auto& c : cases) {
        MeasureTable table(*importFamily(c.family));
        read(table, c.family, {c.header, c.line, c.line});
        table.givePerformer(1);
        EXPECT_EQ(run(c.family, table, {Yes}), 2) << c.table;
        EXPECT_EQ(asked, QStringList(c.word + taken)) << "these families have no doubtful rows";
        EXPECT_EQ(stored(c.table, c.columns), QVector<QStringList>({c.row}));
        EXPECT_EQ(console.take(), QString(c.done) + c.done + total.arg(2) + replaced.arg(1));
        database()->exec(QString("alter table %1 rename to away").arg(c.table));
        EXPECT_EQ(run(c.family, table), 0) << "a failed row does not stop the run";
        QString failed = c.done;
        failed.replace("\nИмпорт", "\nОшибка импорта").remove(" завершен");
        EXPECT_EQ(console.take(), failed + failed + nothing);
        database()->exec(QString("alter table away rename to %1").arg(c.table));
    }
}

TEST_F(Import, AWellStoresItsProfile)
{
    readWells({"Т-1;SN-1;05.01.2021;12:30;-5.126;-1;-,5;;1,005"});
    EXPECT_EQ(run(FamilyKey::Ts, wells, {Yes}), 1);
    EXPECT_EQ(asked, QStringList("Термоскважина Т-1" + doubtful));
    EXPECT_EQ(stored("ts_meas", "t_vozd, meas"),
              QVector<QStringList>({{"1", "1", "1", "2021-01-05", "-5.13", "1.00:-1.00|2.00:-0.50|4.00:1.00", "1"}}));
    // The line of success is the deformation marks'.
    EXPECT_EQ(console.take(), done.arg("Т-1") + total.arg(1));
}

TEST_F(Import, AStoredProfileIsAskedForAndReplaced)
{
    setNorms("null", "1", "4");
    database()->exec("insert into ts_meas (element_id, cycle_id, meas) values (1, 1, '1.00:-1.15|4.00:-1.15'), "
                     "(1, 2, '1.00:9.00')");
    readWells({"Т-1;SN-1;05.02.2021;12:30;-5;-1;-1.1;-1.2;-1.3"});
    EXPECT_EQ(run(FamilyKey::Ts, wells, {YesToAll}), 1);
    EXPECT_EQ(asked, QStringList("Термоскважина Т-1" + taken)) << "a valid profile is not doubtful";
    EXPECT_EQ(database()->value("select meas from ts_meas where cycle_id = 2"),
              "1.00:-1.00|2.00:-1.10|3.00:-1.20|4.00:-1.30");
}

TEST_F(Import, AQuoteInANameGoesNoFurtherThanTheCommandLine)
{
    readMarks({"Т';05.01.2021;1.5;SN-1"});
    marks.setData(marks.index(0, 1), 1, Qt::UserRole);
    EXPECT_EQ(run(FamilyKey::Dm, marks, {Yes}), 1);
    EXPECT_EQ(console.take(), done.arg("Т-1") + total.arg(1));
}

// The server goes away in the middle: what was written stays, each further row says so.
TEST_F(Import, AServerThatStopsLosesNothingWritten)
{
    QStringList lines;
    for (int day = 1; day <= 3; ++day)
        lines += QString("Т-1;SN-1;05.0%1.2021;12:00;-5;-1;-1.1;-1.2;-1.3").arg(day);
    readWells(lines + lines);
    const QString backend = session().run("select pg_backend_pid()").getvalue(0, 0);
    const QString failure = "\nОшибка импорта измерений термоскважины  Т-1";
    int questions = 0;
    const int written = importMeasures(
        *importFamily(FamilyKey::Ts), wells.candidates(),
        [&](const QString&) {
            ++questions;
            return ImportAnswer::YesToAll;
        },
        [&](int row) {
            if (row == 2)
                database()->exec("select pg_terminate_backend(" + backend + ")");
            return true;
        });
    EXPECT_EQ(written, 2);
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(console.take(), done.arg("Т-1").repeated(2) + failure.repeated(4) + total.arg(2));
    EXPECT_EQ(database()->value("select count(*) from ts_meas"), "2");
    // The next command finds its way back to the server.
    EXPECT_TRUE(session().checkConnection());
    console.take();
    EXPECT_EQ(importMeasures(*importFamily(FamilyKey::Ts), wells.candidates(),
                             [](const QString&) { return ImportAnswer::YesToAll; }),
              6);
    EXPECT_EQ(database()->value("select count(*) from ts_meas"), "3");
}

// The clocks of Moscow and Paris skip these hours; the test runs there, too.
TEST_F(Import, ADateInAnHourThatTheClockSkipsIsStoredAsWritten)
{
    database()->exec("insert into cycles (cycle_id, number, date_start, date_end) overriding system value "
                     "values (10, 10, '2010-03-01', '2010-03-31'), (19, 19, '2019-03-01', '2019-03-31')");
    loadCycles(lists);
    readWells({"Т-1;SN-1;28.03.2010;02:30;-5;-1;-1.1;-1.2;-1.3", "Т-2;SN-1;31.03.2019;02:30;-5;-1;-1.1;-1.2;-1.3"});
    EXPECT_EQ(run(FamilyKey::Ts, wells, {YesToAll}), 2);
    EXPECT_EQ(database()->rows("select element_id, cycle_id, date from ts_meas order by element_id"),
              (QVector<QStringList>{{"1", "10", "2010-03-28"}, {"2", "19", "2019-03-31"}}));
}
