// Records out of lines, and the statements of a record.
#include "exchange/geology/geology_fixture.h"

namespace {

class WellGeologyFile : public ::testing::Test {
protected:
    QVector<WellGeology> read(const QStringList& lines) { return readGeology(lines, ";", lists); }

    GeologyLists lists{{{"С-1", 1}, {"С-2", 2}}, {{"1а", 101}, {"2", 102}}, {}};
    ConsoleCapture console;
};

QStringList texts(const WellGeology& well)
{
    QStringList lines;
    for (const Statement& statement : geologyStatements(well)) {
        EXPECT_EQ(statement.refusal(), "");
        lines << statement.text();
    }
    return lines;
}

} // namespace

TEST_F(WellGeologyFile, ALayerRunsFromTheBottomOfTheOneBeforeIt)
{
    const auto wells = read({" С-1 ; 05.06.2021;98,5; 1а ;1,5;2; 4.25 "});
    ASSERT_EQ(wells.size(), 1);
    const WellGeology& well = wells[0];
    EXPECT_EQ(well.name, "С-1");
    EXPECT_EQ(well.elementId, 1);
    EXPECT_EQ(well.drilled, QDate(2021, 6, 5));
    EXPECT_EQ(well.z, 98.5);
    ASSERT_EQ(well.layers.size(), 2);
    EXPECT_EQ(well.layers[0].code, "1а");
    EXPECT_EQ(well.layers[0].egeId, 101);
    EXPECT_EQ(well.layers[0].from, 0.0);
    EXPECT_EQ(well.layers[0].to, 1.5);
    EXPECT_EQ(well.layers[1].egeId, 102);
    EXPECT_EQ(well.layers[1].from, 1.5);
    EXPECT_EQ(well.layers[1].to, 4.25);
    EXPECT_TRUE(well.isValid());
    EXPECT_EQ(console.text(), "");
}

TEST_F(WellGeologyFile, DatesOfTwoDigitsAreOfThisCentury)
{
    const auto wells = read({"С-1;05.06.21;;2;1", "С-1;нет;;2;1", "С-1;31.02.2021;;2;1"});
    ASSERT_EQ(wells.size(), 3);
    EXPECT_EQ(wells[0].drilled, QDate(2021, 6, 5));
    EXPECT_FALSE(wells[0].z.has_value());
    EXPECT_TRUE(wells[1].drilled.isNull());
    EXPECT_TRUE(wells[1].isValid()) << "a date may be missing";
    EXPECT_TRUE(wells[2].drilled.isNull());
}

TEST_F(WellGeologyFile, WhatIsNoRecordIsPassedOver)
{
    EXPECT_TRUE(read({"", "С-1;01.01.2021;1", "С-1;01.01.2021;1;2", "С-1;01.01.2021;1;2;", "С-1;01.01.2021;1;;5",
                      "С-1;01.01.2021;1;2;глубоко", "С-1;01.01.2021;1;2;inf", "Имя;Дата;Z;2;1", "СКВАЖИНА 5;;;2;1",
                      "Номер скважины;;;2;1"})
                    .isEmpty());
}

TEST_F(WellGeologyFile, APairWithoutCodeOrDepthDropsItsLayerAlone)
{
    const auto wells = read({"С-1;;;1а;1;;2;2;x;2;4;2", "С-2;;;1а;5;2;3"});
    ASSERT_EQ(wells.size(), 2);
    ASSERT_EQ(wells[0].layers.size(), 2);
    EXPECT_EQ(wells[0].layers[1].from, 1.0);
    EXPECT_EQ(wells[0].layers[1].to, 4.0);
    EXPECT_EQ(wells[1].layers[1].from, 5.0);
    EXPECT_EQ(wells[1].layers[1].to, 3.0) << "bottoms are not ordered";
}

TEST_F(WellGeologyFile, UnknownWellsAndCodesMakeARecordInvalid)
{
    const auto wells = read({"С-9;;;2;1", "С-1;;;2;1;7;2"});
    ASSERT_EQ(wells.size(), 2);
    EXPECT_FALSE(wells[0].isValid());
    EXPECT_FALSE(wells[1].isValid());
    EXPECT_EQ(console.text(), "\n [DEBUG] Не найден element_id для скважины: С-9");
}

TEST_F(WellGeologyFile, ANameOfSeveralWellsIsTold)
{
    lists.severalWells = {"С-2"};
    read({"С-1;;;2;1", "С-2;;;2;1"});
    EXPECT_EQ(console.text(), "\n Имя С-2 есть у нескольких скважин, взята скважина с ID 2");
}

TEST_F(WellGeologyFile, TheStatementsReplaceTheWholeColumn)
{
    const auto wells = read({"С-1;05.06.2021;98,12345;1а;1,5;2;4.25", "С-2;;;2;1", "С-9;;;2;1"});
    EXPECT_EQ(texts(wells[0]),
              QStringList({"DELETE FROM igs_geology_elements WHERE element_id = 1;\n",
                           "INSERT INTO igs_geology_elements (element_id, drilling_date) VALUES (1, '2021-06-05');\n",
                           "DELETE FROM igs_geology_layers WHERE element_id = 1;\n",
                           "UPDATE igs_elements SET z = 98.123 WHERE element_id = 1;\n",
                           "INSERT INTO igs_geology_layers (element_id, ege_id, depth_from, depth_to) VALUES (1, 101, "
                           "0.000, 1.500);\n",
                           "INSERT INTO igs_geology_layers (element_id, ege_id, depth_from, depth_to) VALUES (1, 102, "
                           "1.500, 4.250);\n"}));
    EXPECT_EQ(texts(wells[1]).value(1),
              "INSERT INTO igs_geology_elements (element_id, drilling_date) VALUES (2, NULL);\n");
    EXPECT_EQ(texts(wells[1]).size(), 4) << "without a mark it stays as it was";
    EXPECT_EQ(texts(wells[2]), QStringList());
}

TEST_F(GeologyProject, ListsAreOfThePositionOrOfAll)
{
    database->exec("insert into igs_elements (element_id, element_name, state_id, position_id) overriding system value "
                   "values (4, 'С-1', 'exist', 8)");
    const GeologyLists here = loadGeologyLists(7);
    EXPECT_EQ(here.wells, (QHash<QString, int>{{"С-1", 1}, {"С-2", 2}}));
    EXPECT_EQ(here.codes, (QHash<QString, int>{{"1а", 101}, {"2", 102}}));
    EXPECT_EQ(console.take(), "\n [DEBUG] Загружено имен скважин: 2");
    const GeologyLists all = loadGeologyLists(-1);
    EXPECT_EQ(all.wells.size(), 3);
    EXPECT_EQ(all.severalWells, QSet<QString>{"С-1"});
    database.disconnect();
    EXPECT_TRUE(loadGeologyLists(-1).wells.isEmpty());
}

TEST_F(GeologyProject, ImportingAgainReplacesEverything)
{
    const GeologyLists lists = loadGeologyLists(7);
    console.take();
    EXPECT_EQ(importGeology(readGeology({"С-1;05.06.2021;98.5;1а;1;2;2;1а;3", "С-2;;;2;9"}, ";", lists)), 2);
    EXPECT_EQ(layers().size(), 4);
    EXPECT_EQ(console.take(), "\n Импортировано скважин: 2");
    EXPECT_EQ(importGeology(readGeology({"С-1;;;2;7"}, ";", lists)), 1);
    EXPECT_EQ(layers(), QVector<QStringList>({{"1", "102", "0", "7"}, {"2", "102", "0", "9"}}));
    EXPECT_EQ(records(), QVector<QStringList>({{"1", QString()}, {"2", QString()}}));
    EXPECT_EQ(database->value("select z from igs_elements where element_id = 1"), "98.5");
}

TEST_F(GeologyProject, AWellThatIsRefusedKeepsWhatItHadAndTheRestGoOn)
{
    const GeologyLists lists = loadGeologyLists(7);
    importGeology(readGeology({"С-1;05.06.2021;98.5;1а;1"}, ";", lists));
    QVector<WellGeology> wells = readGeology({"С-1;;50;2;4", "С-9;;;2;4", "С-2;;;2;4"}, ";", lists);
    wells[0].layers[0].egeId = 999; // gone meanwhile
    console.take();
    EXPECT_EQ(importGeology(wells), 1);
    EXPECT_EQ(layers(), QVector<QStringList>({{"1", "101", "0", "1"}, {"2", "102", "0", "4"}}));
    EXPECT_EQ(database->value("select z from igs_elements where element_id = 1"), "98.5");
    EXPECT_TRUE(console.text().startsWith("\n [Ошибка SQL] ERROR: ")) << console.text();
    EXPECT_TRUE(console.text().contains("\n [Запрос] DELETE FROM igs_geology_elements WHERE element_id = 1;\nINSERT"));
    EXPECT_TRUE(console.text().endsWith("\n Импортировано скважин: 1"));
}

TEST_F(GeologyProject, AnImportThatIsGivenUpKeepsWhatItWrote)
{
    const auto wells = readGeology({"С-1;;;2;4", "С-2;;;2;4"}, ";", loadGeologyLists(7));
    EXPECT_EQ(importGeology(wells, [](int done, int total) { return done == 0 && total == 2; }), 1);
    EXPECT_EQ(layers().size(), 1);
    EXPECT_TRUE(console.text().endsWith("\n Импорт геологии прерван\n Импортировано скважин: 1"));
}
