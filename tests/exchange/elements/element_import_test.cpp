// Records into rows and blocks.
#include "exchange/elements/element_import.h"

#include "exchange/elements/element_change.h"
#include "support/console_capture.h"
#include "support/element_drawing.h"
#include "support/position_session.h"

#include <deque>
#include <gtest/gtest.h>

namespace {

class ElementImport : public ::testing::Test {
protected:
    void SetUp() override { drawing.addAllKinds(); }

    static ElementRecord record(const QString& name, double x, double y)
    {
        ElementRecord made;
        made.name = name;
        made.x = x;
        made.y = y;
        return made;
    }
    ElementImportResult run(const QVector<ElementRecord>& records, std::deque<ImportAnswer> answers = {})
    {
        asked.clear();
        const auto result = importElements(records, task, [&](const QString& text) {
            asked << text;
            EXPECT_FALSE(answers.empty()) << text;
            if (answers.empty())
                return ImportAnswer::No;
            const ImportAnswer answer = answers.front();
            answers.pop_front();
            return answer;
        });
        EXPECT_TRUE(answers.empty());
        EXPECT_EQ(drawing.faults(), QStringList());
        return result;
    }
    QVector<QStringList> rows(const QString& columns = "element_name, x, y, z, h, position_id")
    {
        return database->rows("select " + columns + " from dm_elements order by element_id");
    }
    QString idOf(const QString& name)
    {
        return database->value("select element_id from dm_elements where element_name = '" + name + "'");
    }

    ElementDrawing drawing;
    PositionSession database;
    ConsoleCapture console;
    ElementImportTask task{0, PositionSession::position, 1, -1};
    QStringList asked;
};

} // namespace

TEST_F(ElementImport, ANewElementBecomesARowAndABlock)
{
    ElementRecord mark = record("М-1", 10, 20);
    mark.absoluteMark = 100.5;
    mark.groundMark = 99;
    mark.rotation = 0.5;
    EXPECT_EQ(run({mark, record("М-2", 11, 20)}).inserted, 2);
    EXPECT_EQ(rows(),
              QVector<QStringList>({{"М-1", "10", "20", "100.5", "1.5", "7"}, {"М-2", "11", "20", "0", "0", "7"}}));
    ASSERT_EQ(drawing.references().size(), 2);
    const NcDbObjectId block = drawing.references()[0];
    EXPECT_EQ(drawing.attributes(block)["name"], "М-1");
    EXPECT_EQ(drawing.attributes(block)["element_id"], idOf("М-1"));
    EXPECT_EQ(drawing.dynProp(block, "Угол1").toDouble(), 0.5);
    EXPECT_EQ(drawing.reference(block).position().z, 100.5);
    EXPECT_TRUE(console.text().contains("Новый элемент М-1  ID  " + idOf("М-1")));
    EXPECT_TRUE(
        database->value("select props from dm_dynprops where element_id = " + idOf("М-1")).contains("Угол1:0.500000"));
}

TEST_F(ElementImport, TheSameElementIsUpdatedWhereItStandsIfTheUserAgrees)
{
    run({record("М-1", 10, 20)});
    ElementRecord again = record("М-1", 10.00005, 20);
    again.height = 2.5;
    EXPECT_EQ(run({again}, {ImportAnswer::No}).skipped, 1);
    EXPECT_EQ(asked.first(),
              "Элемент  М-1  уже есть в БД                                  \nВыполнить обновление аттрибутов?");
    EXPECT_TRUE(console.take().endsWith("Пропускаем элемент М-1  ID " + idOf("М-1")));
    EXPECT_EQ(run({again}, {ImportAnswer::Yes}).updated, 1);
    EXPECT_EQ(rows(), QVector<QStringList>({{"М-1", "10", "20", "0", "2.5", "7"}}));
    EXPECT_TRUE(console.text().contains("Обновление  элемента М-1  ID " + idOf("М-1")));
    EXPECT_EQ(drawing.references().size(), 1);
}

TEST_F(ElementImport, AnElementOfTheNameElsewhereIsMoved)
{
    run({record("М-1", 10, 20)});
    EXPECT_EQ(run({record("М-1", 30, 40)}, {ImportAnswer::Yes}).updated, 1);
    EXPECT_EQ(asked.first(),
              "Имена элементов совпадают  с бд М-1 ID " + idOf("М-1") + ".                \n Выполнить замену?");
    EXPECT_EQ(rows("x, y"), QVector<QStringList>({{"30", "40"}}));
    EXPECT_EQ(drawing.reference(drawing.references()[0]).position().x, 30.0);
    EXPECT_TRUE(console.text().contains("Замена элемента М-1  ID "));
}

TEST_F(ElementImport, ASecondElementAtOnePointAsks)
{
    EXPECT_EQ(run({record("М-1", 10, 20), record("М-2", 10, 20)}, {ImportAnswer::No}).inserted, 1);
    EXPECT_EQ(asked.first(),
              "Координаты элемента М-2  совпадают с бд  x=10.000 y=20.000 ID " + idOf("М-1")
                  + ". \n Выполнить обновление аттрибутов?");
    EXPECT_EQ(run({record("М-2", 10, 20)}, {ImportAnswer::Yes}).updated, 1);
    EXPECT_EQ(rows("element_name"), QVector<QStringList>({{"М-2"}}));
    EXPECT_EQ(drawing.attributes(drawing.references()[0])["name"], "М-2");
}

TEST_F(ElementImport, AnswersForAllHoldPerQuestion)
{
    run({record("М-1", 10, 20), record("М-2", 20, 20), record("М-3", 30, 20)});
    const auto result = run({record("М-1", 10, 20), record("М-2", 20, 20), record("М-3", 33, 20)},
                            {ImportAnswer::NoToAll, ImportAnswer::YesToAll});
    EXPECT_EQ(asked.size(), 2);
    EXPECT_EQ(result.skipped, 2);
    EXPECT_EQ(result.updated, 1);
}

TEST_F(ElementImport, PositionsAreMadeOnceOnTheWay)
{
    ElementRecord first = record("М-1", 10, 20), second = record("М-2", 20, 20), known = record("М-3", 30, 20);
    first.position = second.position = "Новая";
    known.position = "Другая";
    EXPECT_EQ(run({first, second, known}).inserted, 3);
    EXPECT_EQ(database->value("select count(*) from positions where position = 'Новая' and subobject_id = 1"), "1");
    EXPECT_EQ(database->value("select count(*) from dm_elements join positions using (position_id) "
                              "where position = 'Новая'"),
              "2");
    EXPECT_EQ(rows("position_id").last(), QStringList({"8"}));
}

TEST_F(ElementImport, WhatHasNoNamePlaceOrPositionIsSkipped)
{
    task.positionId = -1;
    ElementRecord unplaced = record("М-1", 1, 2);
    unplaced.y.reset();
    EXPECT_EQ(run({record("", 1, 2), unplaced, record("М-2", 1, 2)}).skipped, 3);
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_EQ(console.text(), "\nНет информации о позиции элемента М-2");
}

TEST_F(ElementImport, WhatTheServerDoesNotTakeGetsNoBlock)
{
    EXPECT_EQ(run({record("О'Нил", 1, 2), record("М-2", 3, 4)}).inserted, 1);
    EXPECT_TRUE(console.text().contains("\nОшибка: элемент О'Нил не записан в базу данных: "));
    EXPECT_EQ(drawing.references().size(), 1);
}

TEST_F(ElementImport, AnUpdateTurnsTheLeaderAlongAndKeepsTheKind)
{
    ElementBlock leaning(18);
    ElementRecord given;
    given.name = "Т-1";
    given.burial = 10;
    given.rotation = 1.5707963267948966;
    takeRecord(leaning, given, true);
    EXPECT_EQ(leaning.e, 10.0);
    EXPECT_EQ(leaning.attributes["de"], "10.00");
    EXPECT_NEAR(leaning.dynProps["Положение2 X"].toDouble(), -10.0, 1e-5);
    EXPECT_NEAR(leaning.dynProps["Положение2 Y"].toDouble(), 0.0, 1e-5);
    task.kind = 11;
    run({record("Т-1", 1, 1)});
    task.kind = 0;
    run({record("Т-1", 2, 2)}, {ImportAnswer::Yes});
    EXPECT_EQ(rows("type_id, x"), QVector<QStringList>({{"dm_t", "2"}}));
}

TEST_F(ElementImport, AnImportThatIsGivenUpKeepsWhatItWrote)
{
    const auto result =
        importElements({record("М-1", 1, 1), record("М-2", 2, 2)}, task, {}, [](int done, int) { return done < 1; });
    EXPECT_EQ(result.inserted, 1);
    EXPECT_EQ(rows().size(), 1);
}
