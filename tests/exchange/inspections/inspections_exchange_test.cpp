// Whole documents out of a database and back.
#include "exchange/inspections/inspections_exchange.h"

#include "exchange/inspections/gzip_file.h"
#include "support/session_database.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSet>
#include <QTemporaryDir>
#include <algorithm>

namespace {

const QStringList prefixes = {"ts", "dm", "rp", "tss", "ggs", "tsg"};

// Elements 1 and 2 of every family at position 1, element 3 at position 2, which
// is no analytic one. Cycle 2 has one inspection of each element 1.
class Exchange : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        session().projectId = 1;
        session().proj4Text = "+proj=utm +zone=52 +datum=WGS84 +units=m +no_defs";
        session().saveProjection();
        database.exec("update positions set position_type = 2 where position_id = 2;"
                      "update cycles set cycle_status = 1 where cycle_id = 2;"
                      "insert into contours (position_id, contour_name, geom) values "
                      "(1, 'старый', ST_GeomFromText('LINESTRING(500000 6875000, 500001 6875000)', 9999)), "
                      "(1, 'новый', ST_GeomFromText('LINESTRING(500000 6875000, 500100 6875000)', 9999));"
                      "insert into geometries (name, geom) values "
                      "('основание', ST_GeomFromText('LINESTRING(500000 6875000, 500000 6875100)', 9999))");
        for (const QString& family : prefixes)
            addFamily(family);
    }

    void addFamily(const QString& family)
    {
        database.exec(QString("insert into %1_elements (element_id, element_name, state_id, position_id, x, y, z, h, "
                              "block_rotation) overriding system value values "
                              "(1, 'Э-1', 'exist', 1, 500000, 6875000, 101.5, 1.25, 0.5), "
                              "(2, '102', 'exist', 1, 500010, 6875000, null, null, 0), "
                              "(3, 'Э-3', 'exist', 2, 500020, 6875000, 1, 1, 0);"
                              "update %1_elements set geom = ST_SetSRID(ST_MakePoint(x, y), 9999);"
                              "insert into %1_inspection (inspect_id, element_id, cycle_id, inspectresult, note) "
                              "overriding system value values (11, 1, 2, 3, 'цела'), (12, 1, 1, 0, 'иной цикл')")
                          .arg(family));
    }

    QJsonObject exported(const InspectionsTask& task)
    {
        const QString path = folder.filePath("out.json.gz");
        EXPECT_TRUE(exportInspections(task, path)) << console.text();
        QByteArray bytes;
        EXPECT_EQ(readGzip(path, 1 << 28, bytes).state, GzipState::Done);
        return QJsonDocument::fromJson(bytes).object();
    }
    QJsonObject exported(bool analyticOnly = false) { return exported({1, 2, analyticOnly}); }

    // The positions of the only subobject.
    static QJsonArray positions(const QJsonObject& root)
    {
        const QJsonArray objects = root["project"].toObject()["objects"].toArray();
        return objects[0].toObject()["subobjects"].toArray()[0].toObject()["positions"].toArray();
    }
    static QJsonObject element(const QJsonObject& root, const QString& family, int place)
    {
        return positions(root)[0].toObject()[family].toArray()[place].toObject();
    }

    QString write(const QByteArray& bytes, const QString& name = "in.json")
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    InspectionsImport import(const QByteArray& json, int cycle = 2)
    {
        console.take();
        return importInspections(write(json), cycle);
    }
    QVector<QStringList> marks()
    {
        return database.rows("select element_id, cycle_id, inspectresult, note from dm_inspection order by 1, 2");
    }

    QTemporaryDir folder;
};

} // namespace

// --- export ---------------------------------------------------------------------

TEST_F(Exchange, TheDocumentIsTheTreeOfTheProject)
{
    const QJsonObject root = exported();
    EXPECT_EQ(root.keys(), QStringList({"cycles", "project", "states", "subbases", "version"}));
    EXPECT_EQ(root["version"], "1.0");
    const QJsonArray cycles = root["cycles"].toArray();
    ASSERT_EQ(cycles.size(), 2);
    EXPECT_EQ(cycles[1].toObject(),
              (QJsonObject{{"cycle_id", "2"},
                           {"number", 2},
                           {"date_start", "2023-07-01"},
                           {"date_end", "2023-07-31"},
                           {"is_current", true}}));
    EXPECT_EQ(cycles[0].toObject()["is_current"], false);
    EXPECT_EQ(root["states"].toArray()[0].toObject(),
              (QJsonObject{{"state_id", "exist"}, {"note", "Существующий"}, {"colorindex", 5}}));
    const QJsonObject plot = root["subbases"].toArray()[0].toObject();
    EXPECT_EQ(plot.keys(), QStringList({"coordinates", "id"}));
    EXPECT_EQ(plot["id"], "1");
    EXPECT_EQ(plot["coordinates"].toArray().size(), 2);

    const QJsonObject project = root["project"].toObject();
    EXPECT_EQ(project.keys(), QStringList({"description", "id", "latitude", "longitude", "name", "objects", "status"}));
    EXPECT_EQ(project["id"], "1");
    EXPECT_EQ(project["description"], "Место");
    EXPECT_EQ(project["status"], "normal");
    EXPECT_NEAR(project["longitude"].toDouble(), 129.0, 0.001);
    EXPECT_NEAR(project["latitude"].toDouble(), 62.0, 0.01);
    const QJsonObject object = project["objects"].toArray()[0].toObject();
    EXPECT_EQ(object.keys(), QStringList({"appearance", "id", "name", "subobjects"}));
    EXPECT_EQ(object["appearance"], 1);

    ASSERT_EQ(positions(root).size(), 2);
    const QJsonObject position = positions(root)[0].toObject();
    EXPECT_EQ(position.keys(),
              QStringList(
                  {"appearance", "coordinates", "dm", "ggs", "id", "name", "position_type", "rp", "ts", "tsg", "tss"}));
    EXPECT_EQ(position["position_type"], 1);
    const QJsonArray line = position["coordinates"].toArray();
    EXPECT_NEAR(line[1].toArray()[0].toDouble() - line[0].toArray()[0].toDouble(), 0.0019, 0.0001)
        << "the later contour";
    EXPECT_EQ(positions(root)[1].toObject()["coordinates"], QJsonArray());
    EXPECT_EQ(console.text(),
              "\nНачало экспорта (Иерархическая структура)...\n\nЭкспорт (Tree) успешно завершен: "
                  + folder.filePath("out.json.gz") + "\n");
}

TEST_F(Exchange, AnElementHoldsItsInspectionsOfTheCycle)
{
    const QJsonObject root = exported();
    const QJsonObject well = element(root, "ts", 0);
    EXPECT_EQ(well.keys(),
              QStringList({"depth", "element_category", "element_id", "element_name", "h", "inspections", "lat", "lon",
                           "position_id", "rotation", "state_id", "z"}));
    EXPECT_EQ(well["element_id"], "1");
    EXPECT_EQ(well["z"], 101.5);
    EXPECT_EQ(well["h"], 1.25);
    EXPECT_EQ(well["element_category"], "ts");
    const QJsonObject unknown = element(root, "ts", 1);
    EXPECT_EQ(unknown["element_name"], 102) << "a name of digits is a number";
    EXPECT_TRUE(unknown["z"].isNull());
    EXPECT_EQ(unknown["inspections"], QJsonArray());
    const QJsonObject mark = element(root, "dm", 0);
    EXPECT_EQ(mark.keys(),
              QStringList({"element_category", "element_id", "element_name", "inspections", "lat", "lon", "position_id",
                           "rotation", "state_id", "z"}));
    ASSERT_EQ(mark["inspections"].toArray().size(), 1);
    EXPECT_EQ(mark["inspections"].toArray()[0].toObject(),
              (QJsonObject{{"inspect_id", "11"},
                           {"element_id", "1"},
                           {"cycle_id", "2"},
                           {"marknumber", QJsonValue::Null},
                           {"markmark", QJsonValue::Null},
                           {"constructintegrity", QJsonValue::Null},
                           {"railset", QJsonValue::Null},
                           {"h_railset", QJsonValue::Null},
                           {"inspectresult", 3},
                           {"note", "цела"},
                           {"state_id", QJsonValue::Null},
                           {"photos", QJsonValue::Null}}));
}

TEST_F(Exchange, SnowAndWaterComeFromTheMeasures)
{
    database.exec("insert into tss_meas (element_id, cycle_id, meas_density, meas_heigth) values (1, 2, 0.25, 40);"
                  "insert into ggs_meas (element_id, cycle_id, meas) values (1, 2, 3.5)");
    const QJsonObject root = exported();
    const QJsonObject snow = element(root, "tss", 0)["inspections"].toArray()[0].toObject();
    EXPECT_EQ(snow["snow_density"], 0.25);
    EXPECT_EQ(snow["snow_height"], 40);
    EXPECT_EQ(element(root, "ggs", 0)["inspections"].toArray()[0].toObject()["water_level"], 3.5);
    EXPECT_FALSE(element(root, "dm", 0)["inspections"].toArray()[0].toObject().contains("water_level"));
}

TEST_F(Exchange, PhotosOfTheElementReplaceThatOfTheInspection)
{
    database.exec("update dm_inspection set photos = 'ab'::bytea; update ts_inspection set photos = 'ab'::bytea;"
                  "insert into dm_files (element_id, file_type, content) values (1, 'photo', '\\x00ff'), "
                  "(1, 'abris', 'cd'), (2, 'photo', 'ef')");
    const QJsonObject root = exported();
    EXPECT_EQ(element(root, "ts", 0)["inspections"].toArray()[0].toObject()["photos"], "YWI=");
    EXPECT_EQ(element(root, "dm", 0)["inspections"].toArray()[0].toObject()["photos"], (QJsonArray{"AP8=", "Y2Q="}));
}

TEST_F(Exchange, AnalyticPositionsAloneAreListedOnDemand)
{
    const QJsonObject root = exported(true);
    ASSERT_EQ(positions(root).size(), 1);
    EXPECT_EQ(positions(root)[0].toObject()["name"], "Позиция 1");
    EXPECT_EQ(positions(root)[0].toObject()["dm"].toArray().size(), 2);
    EXPECT_LT(root["project"].toObject()["longitude"].toDouble(),
              exported(false)["project"].toObject()["longitude"].toDouble())
        << "the mean is that of the listed positions";
}

TEST_F(Exchange, AFamilyWithoutElementsHasNoKey)
{
    database.exec("delete from tsg_elements where position_id = 1; delete from ts_elements; delete from dm_elements");
    const QJsonObject root = exported();
    EXPECT_FALSE(positions(root)[0].toObject().contains("tsg"));
    EXPECT_TRUE(positions(root)[1].toObject().contains("tsg"));
    EXPECT_FALSE(root["project"].toObject().contains("latitude")) << "no wells and no marks";
}

TEST_F(Exchange, AnUnknownProjectHasAStatusAlone)
{
    EXPECT_EQ(exported({77, 2, false})["project"].toObject(), (QJsonObject{{"status", "normal"}}));
}

TEST_F(Exchange, APathGetsTheSuffixWhenItIsWritten)
{
    EXPECT_TRUE(exportInspections({1, 2, false}, folder.filePath("out.json")));
    EXPECT_TRUE(QFile::exists(folder.filePath("out.json.gz")));
    EXPECT_FALSE(QFile::exists(folder.filePath("out.json")));
}

TEST_F(Exchange, AFileThatCannotBeWrittenIsTold)
{
    const QString path = folder.filePath("нет/out.gz");
    EXPECT_FALSE(exportInspections({1, 2, false}, path));
    EXPECT_TRUE(console.text().endsWith("Ошибка: Не удалось открыть файл для записи: " + path + "\n"));
}

TEST_F(Exchange, ALineWithoutACoordinateSystemIsLeftOutAndTold)
{
    database.exec("insert into geometries (name, geom) values ('чужая', ST_GeomFromText('LINESTRING(0 0, 1 1)'))");
    const QJsonObject root = exported();
    EXPECT_EQ(root["subbases"], QJsonArray());
    EXPECT_EQ(positions(root).size(), 2);
    EXPECT_TRUE(console.text().contains("\nНе выгружено: Основания: "));
}

TEST_F(Exchange, TheProgressOfAnExportOnlyGrowsAndCountsTheRowsOfAFamily)
{
    database.exec("insert into ts_inspection (element_id, cycle_id, inspectresult) values (2, 2, 1)");
    QVector<int> steps;
    QSet<int> totals;
    const auto keep = [&](int done, int total) {
        steps << done;
        totals << total;
        return true;
    };
    EXPECT_TRUE(exportInspections({1, 2, false}, folder.filePath("out.json"), keep)) << console.text();
    EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
    // The second of two inspections stands at the half of its family's share.
    EXPECT_EQ(std::count_if(steps.begin(), steps.end(), [](int done) { return done % 1000 == 500; }), 1);
    EXPECT_EQ(totals.size(), 1);
    EXPECT_GE(steps.first(), 0);
    EXPECT_LT(steps.last(), *totals.begin());
}

TEST_F(Exchange, AnExportThatIsGivenUpOrLosesTheServerWritesNothing)
{
    const QString path = folder.filePath("out.gz");
    EXPECT_FALSE(exportInspections({1, 2, false}, path, [](int, int) { return false; }));
    EXPECT_TRUE(console.take().endsWith("\nЭкспорт прерван, файл не записан.\n"));
    loseServer();
    EXPECT_FALSE(exportInspections({1, 2, false}, path));
    EXPECT_TRUE(console.text().contains("\nОшибка: Экспорт не выполнен: "));
    EXPECT_FALSE(QFile::exists(path));
}

// --- import ---------------------------------------------------------------------

TEST_F(Exchange, RecordsAreWrittenIntoTheChosenCycle)
{
    const InspectionsImport done = import(R"({"dm": [
        {"element_id": 1, "cycle_id": 99, "inspect_id": 5, "inspectresult": 2, "note": "O'Neil", "railset": true},
        {"element_id": "2", "note": null, "h_railset": 0.125}], "version": "1.0"})");
    EXPECT_EQ(done.written, 2);
    EXPECT_EQ(done.errors, 0);
    EXPECT_EQ(marks(),
              QVector<QStringList>(
                  {{"1", "1", "0", "иной цикл"}, {"1", "2", "2", "O'Neil"}, {"2", "2", QString(), QString()}}));
    EXPECT_EQ(database.value("select railset || ' ' || inspect_id from dm_inspection where note like 'O%'"), "1 11");
    EXPECT_EQ(database.value("select h_railset from dm_inspection where element_id = 2"), "0.125");
    EXPECT_EQ(console.text(),
              "\nИмпорт группы: dm (2 записей)\n"
              "\nИмпорт завершен. Успешно вставлено записей: 2, Ошибок: 0\n");
}

TEST_F(Exchange, ASecondImportChangesNothing)
{
    const QByteArray json = R"({"dm": [{"element_id": 2, "note": "раз"}], "rp": [{"element_id": 3, "mark": 1}]})";
    import(json);
    const auto before = marks();
    const QString benchmarks = database.value("select string_agg(r::text, ';' order by r) from rp_inspection r");
    EXPECT_EQ(import(json).written, 2);
    EXPECT_EQ(marks(), before);
    EXPECT_EQ(database.value("select string_agg(r::text, ';' order by r) from rp_inspection r"), benchmarks);
}

TEST_F(Exchange, ARefusedRecordIsToldByItsElementAndTheRestGoOn)
{
    const InspectionsImport done = import(R"({"dm": [{"note": "без элемента"}, {"element_id": 2, "colour": 1},
        {"element_id": 2, "no; drop": 1}, 5, {"element_id": 2, "note": "да"}], "igs": [{"element_id": 1}],
        "х y": [{"element_id": 1}]})");
    EXPECT_EQ(done.written, 1);
    EXPECT_EQ(done.errors, 6);
    for (const char* told : {" Ошибка в dm (element_id: 0): ", " Ошибка в dm (element_id: 2): ",
                             " Ошибка в igs (element_id: 1): ", " Ошибка в х y (element_id: 1): "})
        EXPECT_TRUE(console.text().contains(told)) << told << console.text();
    EXPECT_TRUE(console.text().endsWith("\nИмпорт завершен. Успешно вставлено записей: 1, Ошибок: 6\n"));
    EXPECT_EQ(marks().last(), QStringList({"2", "2", QString(), "да"}));
}

TEST_F(Exchange, AWellsDepthsGoIntoItsOwnRowToo)
{
    EXPECT_EQ(import(R"({"ts": [{"element_id": 1, "h": 0.75, "depth": "10.5", "depth_proj": 12}]})").written, 1);
    EXPECT_EQ(database.rows("select h, depth from ts_inspection where element_id = 1 and cycle_id = 2"),
              QVector<QStringList>({{"0.75", "10.5"}}));
    EXPECT_EQ(database.rows("select h, depth, depth_proj from ts_elements where element_id = 1"),
              QVector<QStringList>({{"0.75", "10.5", "12"}}));
    EXPECT_EQ(import(R"({"ts": [{"element_id": 1, "depth_proj": "глубоко"}]})").written, 1);
    EXPECT_TRUE(console.text().contains(" Ошибка обновления ts_elements (element_id: 1): "));
    EXPECT_EQ(import(R"({"ggs": [{"element_id": 1, "h": 9}]})").written, 1);
    EXPECT_EQ(database.value("select h from ggs_elements where element_id = 1"), "1.25") << "wells alone";
    EXPECT_EQ(import(R"({"ggs": [{"element_id": 1, "depth_proj": 9}]})").errors, 1) << "no column of that table";
}

TEST_F(Exchange, APhotoIsStoredAsItsBytes)
{
    EXPECT_EQ(import(R"({"dm": [{"element_id": 1, "photos": "AP8="}]})").written, 1);
    EXPECT_TRUE(console.text().contains(" - Сохранение фото для inspect_id: 11... OK\n"));
    EXPECT_EQ(database.value("select encode(photos, 'hex') from dm_inspection where inspect_id = 11"), "00ff");
    for (const char* junk : {"AP8", "A!P8=", "AP 8=", "AP8=\u0416"}) {
        EXPECT_EQ(import(QByteArray(R"({"dm": [{"element_id": 1, "photos": ")") + junk + "\"}]}").written, 1);
        EXPECT_TRUE(console.text().contains(
            " - Сохранение фото для inspect_id: 11...  ОШИБКА: Не удалось декодировать base64.\n"))
            << junk;
    }
    for (const char* other : {"null", R"(["AP8="])", "5"}) {
        EXPECT_EQ(import(QByteArray(R"({"dm": [{"element_id": 1, "photos": )") + other + "}]}").written, 1);
        EXPECT_FALSE(console.text().contains("фото")) << other;
    }
    EXPECT_EQ(database.value("select encode(photos, 'hex') from dm_inspection where inspect_id = 11"), "00ff");
}

TEST_F(Exchange, ValuesAreNeverStatements)
{
    EXPECT_EQ(import(R"({"dm": [{"element_id": 2, "note": "x'); delete from dm_inspection; --\\' %1 $1"}]})").written,
              1);
    EXPECT_EQ(marks().size(), 3);
    EXPECT_EQ(marks().last()[3], "x'); delete from dm_inspection; --\\' %1 $1");
}

TEST_F(Exchange, WhatIsNoDocumentIsRefused)
{
    const QString wrong = "\nОшибка: Некорректный формат JSON или файл пуст.\n";
    for (const char* text : {"", "[1, 2]", "{\"dm\": [", "{\"dm\": [{}]} x", "\x1f\x8b"}) {
        EXPECT_EQ(import(text).errors, 0);
        EXPECT_EQ(console.text(), wrong) << text;
    }
    console.take();
    const QString absent = folder.filePath("нет.json");
    importInspections(absent, 2);
    EXPECT_EQ(console.take(), "\nОшибка: Не удалось открыть файл " + absent + "\n");
    importInspections(absent + ".gz", 2);
    EXPECT_EQ(console.take(), "\nОшибка: Не удалось открыть файл " + absent + ".gz\n");
    EXPECT_EQ(import("{}").written, 0);
    EXPECT_EQ(console.text(), "\nИмпорт завершен. Успешно вставлено записей: 0, Ошибок: 0\n");
}

TEST_F(Exchange, PackedDocumentsAreReadAndCutOnesChangeNothing)
{
    QByteArray json = R"({"dm": [)";
    for (int i = 0; i < 500; ++i)
        json += QByteArray(R"({"element_id": 2, "note": ")") + QByteArray::number(i * 7919) + "\"},";
    json += R"({"element_id": 2, "note": "последняя"}]})";
    const QString path = folder.filePath("in.json.gz");
    ASSERT_EQ(writeGzip(path, json).state, GzipState::Done);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray packed = file.readAll();
    const auto before = marks();
    console.take();
    EXPECT_EQ(importInspections(write(packed.left(packed.size() - 9), "cut.gz"), 2).written, 0);
    EXPECT_EQ(console.text(), "\nОшибка: Файл " + folder.filePath("cut.gz") + " прочитан не до конца: файл обрезан\n");
    EXPECT_EQ(marks(), before);
    EXPECT_EQ(importInspections(path, 2).written, 501);
    EXPECT_EQ(marks().last()[3], "последняя");
    EXPECT_EQ(importInspections(write(json, "in.md"), 2).written, 501);
    EXPECT_EQ(importInspections(write(json, "in"), 2).written, 501);
}

TEST_F(Exchange, ADocumentOfHalfAGigabyteIsRefusedBeforeItIsUnpacked)
{
    const QString plain = folder.filePath("big.json");
    QFile file(plain);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(500ll * 1024 * 1024)) << "holes take no room";
    file.close();
    console.take();
    importInspections(plain, 2);
    EXPECT_EQ(console.take(), "\nОшибка: Файл " + plain + " больше 256 МБ. Разделите его на части.\n");
}

// Three hundred kilobytes that would be three hundred megabytes.
TEST_F(Exchange, ABombIsLeftBeforeItFillsTheMemory)
{
    const QString path = folder.filePath("bomb.json.gz");
    ASSERT_EQ(writeGzip(path, QByteArray(300 << 20, ' ')).state, GzipState::Done);
    EXPECT_LT(QFileInfo(path).size(), 1 << 20);
    const auto before = marks();
    console.take();
    EXPECT_EQ(importInspections(path, 2).written, 0);
    EXPECT_EQ(console.take(), "\nОшибка: Файл " + path + " больше 256 МБ. Разделите его на части.\n");
    EXPECT_EQ(marks(), before);
}

TEST_F(Exchange, AnImportThatIsGivenUpKeepsWhatItWrote)
{
    console.take();
    const QString path = write(R"({"dm": [{"element_id": 2, "note": "раз"}, {"element_id": 3, "note": "два"}]})");
    EXPECT_EQ(importInspections(path, 2, [](int done, int total) { return done < 1 && total == 2; }).written, 1);
    EXPECT_TRUE(console.text().endsWith("\nИмпорт прерван: записанное до этого остается в базе.\n"
                                        "\nИмпорт завершен. Успешно вставлено записей: 1, Ошибок: 0\n"));
    EXPECT_EQ(database.value("select count(*) from dm_inspection where cycle_id = 2 and element_id > 1"), "1");
}

// What the office sends out and gets back unchanged leaves every field as it was.
TEST_F(Exchange, InspectionsSentOutWipedAndReadBackAreTheSame)
{
    database.exec("update ts_inspection set h = 0.1, depth = 12.345, namemarked = 1, photos = '\\x00ff10'::bytea;"
                  "update dm_inspection set h_railset = 1e-7, note = 'O''Neil \"кавычки\" \\ t', state_id = 'exist'");
    const QJsonObject root = exported();
    QJsonObject groups;
    QStringList before;
    for (const QString& family : prefixes) {
        const QString stored = QString("select (to_jsonb(i) - 'inspect_id')::text from %1_inspection i "
                                       "where cycle_id = 2")
                                   .arg(family);
        before << database.value(stored);
        QJsonObject record = element(root, family, 0)["inspections"].toArray()[0].toObject();
        for (const char* measured : {"snow_density", "snow_height", "water_level"})
            record.remove(measured);
        groups.insert(family, QJsonArray{record});
        database.exec(QString("delete from %1_inspection where cycle_id = 2").arg(family));
    }
    EXPECT_EQ(import(QJsonDocument(groups).toJson()).written, 6);
    for (int i = 0; i < prefixes.size(); ++i) {
        EXPECT_EQ(database.value(QString("select (to_jsonb(i) - 'inspect_id')::text from %1_inspection i "
                                         "where cycle_id = 2")
                                     .arg(prefixes[i])),
                  before[i]);
    }
}
