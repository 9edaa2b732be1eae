// TERVA_DWG_TO_PG: the drawing's lines in a real PostGIS.
#include "alignment_fixture.h"
#include "drawing/alignment/plan_export.h"

#include <script/modal_driver.h>

namespace {

const QString warning =
    "\nСохраняет геометрию текущего чертежа в PostGIS таблицу БД\nВНИМАНИЕ!!! ДЕЙСТВИЕ НЕОБРАТИМО!!!";
const QString layerTitle = "Экспорт элементов чертежа в PostGIS";
const QString layerLabel = "ВНИМАНИЕ!!! Операция необратима.\n\nВыберите слой:";
const QString clearQuestion = "Выполнить очистку таблицы geometries PostGIS перед вставкой?";

std::unique_ptr<NcDbLine> line(double x1, double y1, double x2, double y2)
{
    return std::make_unique<NcDbLine>(NcGePoint3d(x1, y1, 5), NcGePoint3d(x2, y2, 7));
}

class PlanExport : public AlignmentFixture {
protected:
    void SetUp() override
    {
        database->exec("truncate geometries restart identity");
        addLayer("План");
    }
    QVector<QStringList> geometries()
    {
        return database->rows(
            "select ST_AsText(geom), ST_SRID(geom), ST_IsValid(geom), name from geometries order by id");
    }
    // Runs the command with a layer and an answer.
    void run(const QString& layer, const QString& clear)
    {
        ModalDriver driver;
        driver.expect(layerTitle).set("input", layer).press("OK");
        driver.expect("ВНИМАНИЕ!!!").text(clearQuestion).press(clear);
        AlignmentFixture::run("TERVA_DWG_TO_PG");
        EXPECT_TRUE(driver.done()) << driver.report();
    }
};

} // namespace

TEST(LineStatement, IsOneLinestring)
{
    EXPECT_EQ(lineStatement({{1, 2, 3}, {0.1234567, -4, 0}}).text(),
              "INSERT INTO geometries (geom) VALUES (ST_GeomFromText('LINESTRING(1.000000 2.000000, "
              "0.123457 -4.000000)', 9999));");
}

TEST_F(PlanExport, WritesLinesAndPolylinesOfEveryLayer)
{
    add(line(0, 0, 10, 20));
    auto open = std::make_unique<NcDbPolyline>();
    open->addVertexAt(0, {1, 1});
    open->addVertexAt(1, {2, 1});
    open->addVertexAt(2, {2, 3});
    add(std::move(open), "План");
    auto closed = std::make_unique<NcDb2dPolyline>();
    closed->appendVertex({0, 0, 4});
    closed->appendVertex({4, 0, 4});
    closed->appendVertex({4, 4, 4});
    closed->setClosed(true);
    add(std::move(closed));
    add(std::make_unique<NcDbCircle>(NcGePoint3d(), NcGeVector3d(0, 0, 1), 1.0));
    insert(0, 1, {3, 3});
    run("Все слои", "Нет");
    EXPECT_EQ(host.console,
              warning + "Выбранный слой: Все слои\nЭлементов чертежа обработано: 5\nРазмер geomFromDwg: 3\n");
    EXPECT_EQ(geometries(),
              (QVector<QStringList>{{"LINESTRING(0 0,10 20)", "9999", "t", QString()},
                                    {"LINESTRING(1 1,2 1,2 3)", "9999", "t", QString()},
                                    {"LINESTRING(0 0,4 0,4 4,0 0)", "9999", "t", QString()}}));
    EXPECT_EQ(faults(), QStringList());
}

TEST_F(PlanExport, WritesTheChosenLayerAlone)
{
    add(line(0, 0, 1, 0));
    add(line(2, 0, 3, 0), "План");
    ModalDriver driver;
    driver.expect(layerTitle).text(layerLabel).check("input", "Все слои").set("input", "План").press("OK");
    driver.expect("ВНИМАНИЕ!!!").text(clearQuestion).press("Нет");
    AlignmentFixture::run("TERVA_DWG_TO_PG");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(host.console, warning + "Выбранный слой: План\nЭлементов чертежа обработано: 1\nРазмер geomFromDwg: 1\n");
    ASSERT_EQ(geometries().size(), 1);
    EXPECT_EQ(geometries()[0][0], "LINESTRING(2 0,3 0)");
}

TEST_F(PlanExport, ArcsBecomeChordsWithinAMillimetre)
{
    // A full circle of radius 10 about (100, 50) in two halves.
    auto circle = std::make_unique<NcDbPolyline>();
    circle->addVertexAt(0, {110, 50}, 1.0);
    circle->addVertexAt(1, {90, 50}, 1.0);
    circle->setClosed(true);
    add(std::move(circle));
    auto older = std::make_unique<NcDb2dPolyline>();
    older->appendVertex({0, 0, 0}, -1.0);
    older->appendVertex({4, 0, 0});
    add(std::move(older));
    run("Все слои", "Нет");
    const QVector<QStringList> rows = database->rows(
        "select ST_NPoints(geom), ST_IsValid(geom), ST_IsClosed(geom), "
        "ST_HausdorffDistance(geom, ST_SetSRID(ST_ExteriorRing(ST_Buffer(ST_MakePoint(100, 50), 10, 2048)), "
        "9999), 0.25) < 0.0011, ST_YMax(geom), ST_YMin(geom) from geometries order by id");
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0].mid(0, 4), (QStringList{"225", "t", "t", "t"}));
    EXPECT_NEAR(rows[1][4].toDouble(), 2.0, 0.001) << "clockwise from the left runs over the top";
    EXPECT_NEAR(rows[1][5].toDouble(), 0.0, 1e-9);
    EXPECT_EQ(
        database->value("select max(abs(ST_Distance(d.geom, ST_SetSRID(ST_MakePoint(100, 50), 9999)) - 10)) < 1e-5 "
                        "from geometries, ST_DumpPoints(geometries.geom) d where id = 1"),
        "t");
}

TEST_F(PlanExport, ClearsTheTableOnlyWhenToldTo)
{
    database->exec("insert into geometries (name, geom) values ('старая', ST_GeomFromText('POINT(1 1)', 9999))");
    add(line(0, 0, 1, 0));
    run("Все слои", "Нет");
    EXPECT_EQ(geometries().size(), 2);
    run("Все слои", "Да");
    ASSERT_EQ(geometries().size(), 1);
    EXPECT_EQ(geometries()[0][0], "LINESTRING(0 0,1 0)");
}

TEST_F(PlanExport, EscAtTheQuestionIsNo)
{
    database->exec("insert into geometries (name, geom) values ('старая', ST_GeomFromText('POINT(1 1)', 9999))");
    add(line(0, 0, 1, 0));
    ModalDriver driver;
    driver.expect(layerTitle).press("OK");
    driver.expect("ВНИМАНИЕ!!!").close();
    AlignmentFixture::run("TERVA_DWG_TO_PG");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(geometries().size(), 2);
}

TEST_F(PlanExport, EscAtTheLayerEndsTheCommand)
{
    add(line(0, 0, 1, 0));
    database->exec("drop table geometries");
    ModalDriver driver;
    driver.expect(layerTitle).close();
    AlignmentFixture::run("TERVA_DWG_TO_PG");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(host.console, warning);
    EXPECT_EQ(database->value("select to_regclass('geometries') is null"), "t");
    database->exec("CREATE TABLE geometries (id SERIAL PRIMARY KEY, name VARCHAR(255), geom GEOMETRY)");
}

TEST_F(PlanExport, MakesTheTableOnDemand)
{
    database->exec("drop table geometries");
    add(line(0, 0, 1, 0));
    run("Все слои", "Да");
    EXPECT_EQ(geometries().size(), 1);
    EXPECT_EQ(
        database->rows("select column_name, coalesce(character_maximum_length, 0) from information_schema.columns "
                       "where table_name = 'geometries' order by ordinal_position"),
        (QVector<QStringList>{{"id", "0"}, {"name", "255"}, {"geom", "0"}}));
}

TEST_F(PlanExport, ALineOfOnePointIsPassedOver)
{
    auto dot = std::make_unique<NcDbPolyline>();
    dot->addVertexAt(0, {1, 1});
    dot->setClosed(true);
    add(std::move(dot));
    add(std::make_unique<NcDbPolyline>());
    add(line(0, 0, 1, 0));
    run("Все слои", "Нет");
    EXPECT_TRUE(host.console.endsWith("\nЭлементов чертежа обработано: 3\nРазмер geomFromDwg: 2\n"));
    EXPECT_EQ(geometries().size(), 1);
}

TEST_F(PlanExport, EveryRefusedLineIsToldOnceAndTheNextOneTried)
{
    database->exec("alter table geometries add constraint near check (ST_XMax(geom) < 100)");
    add(line(0, 0, 100, 0));
    add(line(0, 0, 1, 0));
    add(line(0, 0, 200, 0));
    add(line(0, 0, 2, 0));
    run("Все слои", "Нет");
    EXPECT_EQ(host.console.count("\nОшибка при вставке данных: ERROR"), 2) << host.console;
    EXPECT_EQ(host.console.count("\nОшибка при вставке данных: "), 2);
    EXPECT_EQ(database->rows("select ST_AsText(geom) from geometries order by id"),
              (QVector<QStringList>{{"LINESTRING(0 0,1 0)"}, {"LINESTRING(0 0,2 0)"}}));
    database->exec("alter table geometries drop constraint near");
}

TEST_F(PlanExport, ATableThatCannotBeMadeOrClearedIsTold)
{
    add(line(0, 0, 1, 0));
    // A role of the server is seen by all of its databases.
    const QString role = "reader_of_" + database->value("select current_database()");
    database->exec("create role " + role + "; grant usage, create on schema public to " + role
                   + "; grant select on projects to " + role);
    ASSERT_TRUE(session().run(compose("set role %1", Identifier(role))).isCommand());
    run("Все слои", "Да");
    EXPECT_TRUE(host.console.contains("\nОшибка при вставке данных: ERROR")) << host.console;
    EXPECT_FALSE(host.console.contains("geomFromDwg")) << "what could not be cleared is not filled once more";

    host.console.clear();
    database->exec("revoke create on schema public from " + role + ", public");
    ModalDriver driver;
    driver.expect(layerTitle).press("OK");
    AlignmentFixture::run("TERVA_DWG_TO_PG");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(host.console.contains("\nОшибка при создании таблицы: ERROR")) << host.console;
    EXPECT_TRUE(session().run("reset role").isCommand());
    EXPECT_EQ(geometries().size(), 0);
    database->exec("drop owned by " + role + "; drop role " + role);
}

TEST_F(PlanExport, AServerLostAtTheQuestionIsToldForEveryLine)
{
    add(line(0, 0, 1, 0));
    add(line(0, 0, 2, 0));
    ModalDriver driver;
    driver.expect(layerTitle).press("OK");
    driver.expect("ВНИМАНИЕ!!!")
        .call([this](QWidget*) {
            database.disconnect();
            return QString();
        })
        .press("Нет");
    AlignmentFixture::run("TERVA_DWG_TO_PG");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(host.console.count("\nОшибка при вставке данных: "), 2);
    database.connect();
    EXPECT_EQ(geometries().size(), 0);
}

TEST_F(PlanExport, NeedsAConnectionThenAPosition)
{
    session().currentPositionId = -1;
    AlignmentFixture::run("TERVA_DWG_TO_PG");
    EXPECT_EQ(host.console, "Не выбрана текущая позиция с базой данных");
    host.console.clear();
    database.disconnect();
    AlignmentFixture::run("TERVA_DWG_TO_PG");
    EXPECT_EQ(host.console, "Не установлено соединение с базой данных");
}

TEST_F(PlanExport, ModelSpaceHeldElsewhereIsTold)
{
    const Opened<NcDbBlockTableRecord> held = openModelSpace(kForWrite);
    exportPlan({}, [] { return false; });
    EXPECT_EQ(host.console, "\nerror opening model_space");
}
