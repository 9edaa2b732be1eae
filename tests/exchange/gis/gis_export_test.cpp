// The project's elements and measures, read back by GDAL.
#include "exchange/gis/gis_export.h"

#include "exchange/gis/forms/gis_question.h"
#include "exchange/gis/projection_text.h"
#include "support/session_database.h"

#include <script/modal_driver.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

namespace {

const char* const zone = "+proj=utm +zone=52 +datum=WGS84 +units=m +no_defs";
const char* const shifted = "+proj=tmerc +lat_0=0 +lon_0=129.05 +k=1 +x_0=500000 +y_0=-5811.63 +ellps=krass "
                            "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +units=m +no_defs";
const char* const nameless = "+proj=sterea +lat_0=62 +lon_0=129 +k=1 +x_0=500000 +y_0=6875000 +ellps=krass "
                             "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +units=m +no_defs";

// Two marks, one of them nowhere; a well with two logs; a point of the snow survey.
// An element of another project.
class Gis : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        session().projectId = 1;
        session().projectName = "Город \"N\"";
        session().workDir = folder.path();
        useSystem(zone);
        database.exec(
            "insert into dm_elements (element_id, element_name, type_id, state_id, position_id, x, y, z, h) overriding "
            "system value values (1, 'ДМ-1', 'dm', 'exist', 1, 500000.125, 6875000.25, 101.5, 1.25), (2, 'ДМ \"2\"', "
            "null, null, 2, null, null, null, null);"
            "insert into ts_elements (element_id, element_name, position_id, x, y) overriding system value values "
            "(7, 'ТС-7', 2, 500100, 6875100);"
            "insert into tss_elements (element_id, element_name, position_id, x, y, z) overriding system value values "
            "(9, 'С-9', 1, 500200, 6875000, 50);"
            "insert into devices (device_id, name, serial) overriding system value values (3, 'Коса', 'SN-3');"
            "insert into dm_meas (element_id, cycle_id, date, meas) values (1, 2, '2023-07-05', 101.4321), "
            "(1, 1, '2022-12-05', 101.5), (2, 1, null, null);"
            "insert into ts_meas (element_id, cycle_id, device_id, date, t_vozd, meas) values "
            "(7, 1, 3, '2022-12-06', -31.5, '0.50:-1.25|2.00:-0.75|3.00:inf'), (7, 2, null, '2023-07-06', null, "
            "'1:0.5');"
            "insert into tss_meas (element_id, cycle_id, date, meas_density, meas_heigth) values "
            "(9, 1, '2022-12-07', 0.24, 0.55);"
            "insert into projects (project_id, name) overriding system value values (2, 'Чужой');"
            "insert into objects (object_id, project_id) overriding system value values (2, 2);"
            "insert into subobjects (subobject_id, object_id) overriding system value values (2, 2);"
            "insert into positions (position_id, subobject_id) overriding system value values (3, 2);"
            "insert into dm_elements (element_name, position_id, x, y) values ('Чужая', 3, 1, 1)");
    }
    void useSystem(const char* text)
    {
        session().proj4Text = text;
        ASSERT_TRUE(session().saveProjection());
    }

    QJsonObject read(const QString& path)
    {
        QProcess reader;
        reader.start("/usr/bin/python3", {TERVA_SOURCE_DIR "/tests/exchange/gis/read_layers.py", path});
        EXPECT_TRUE(reader.waitForFinished(60000)) << "python3-gdal is wanted";
        EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().constData();
        return QJsonDocument::fromJson(reader.readAllStandardOutput()).object().value(path).toObject();
    }
    static QJsonObject values(const QJsonObject& layer, int row)
    {
        return layer["features"].toArray()[row].toObject()["values"].toObject();
    }
    static QString place(const QJsonObject& layer, int row)
    {
        return layer["features"].toArray()[row].toObject()["place"].toString();
    }
    // One line a feature: its values in the order of the names.
    static QStringList lines(const QJsonObject& layer, const QStringList& names)
    {
        QStringList all;
        const int count = layer["features"].toArray().size();
        for (int row = 0; row < count; ++row) {
            QStringList cells;
            for (const QString& name : names)
                cells << values(layer, row)[name].toVariant().toString();
            all << cells.join('|');
        }
        return all;
    }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files); }
    GisExport exportAs(GisFormat format, const QString& name) { return exportToGis(format, 1, folder.filePath(name)); }
    // What the server makes of the first mark.
    QPair<double, double> serversDegrees()
    {
        // By the session's connection: a server process keeps the system that it met first.
        const sql::Result row = session().run(
            "select ST_X(g), ST_Y(g) from (select ST_Transform(ST_SetSRID(ST_MakePoint(x, y), 9999), 4326) as g from "
            "dm_elements where element_id = 1) as t");
        return {row.toDouble(0, 0), row.toDouble(0, 1)};
    }

    QTemporaryDir folder;
    ModalDriver driver;
};

const QStringList measured = {"family", "name",     "position", "cycle", "date",
                              "device", "quantity", "unit",     "depth", "value"};

} // namespace

TEST_F(Gis, APackageHoldsBothLayersInTheProjectsSystem)
{
    const GisExport done = exportAs(GisFormat::GeoPackage, "проект.gpkg");
    ASSERT_TRUE(done.written) << done.message;
    EXPECT_EQ(done.message, "Выгружено элементов: 4, значений измерений: 8\n" + folder.filePath("проект.gpkg"));
    const QJsonObject layers = read(folder.filePath("проект.gpkg"));
    EXPECT_EQ(layers.keys(), (QStringList{"elements", "measures"}));

    const QJsonObject elements = layers["elements"].toObject();
    EXPECT_EQ(elements["system"].toString(), "Город \"N\"");
    EXPECT_EQ(
        lines(elements,
              {"element_id", "family", "name", "type", "state", "object", "subobject", "position", "x", "y", "z", "h"}),
        (QStringList{"1|Деформационные марки|ДМ-1|" + database.value("select name from dm_types where type_id='dm'")
                         + "|Существующий|Объект|Подобъект|Позиция 1|500000.125|6875000.25|101.5|1.25",
                     "2|Деформационные марки|ДМ \"2\"|||Объект|Подобъект|Позиция 2||||",
                     "7|Термоскважины|ТС-7|||Объект|Подобъект|Позиция 2|500100|6875100||",
                     "9|Точки снегомерной съемки|С-9|||Объект|Подобъект|Позиция 1|500200|6875000|50|"}));
    EXPECT_EQ(place(elements, 0), "POINT Z (500000.125 6875000.25 101.5)");
    EXPECT_EQ(place(elements, 1), "") << "an element without coordinates";
    EXPECT_EQ(place(elements, 2), "POINT (500100 6875100)") << "no mark, no height";
    EXPECT_EQ(elements["extent"].toVariant().toList(), (QVariantList{500000.125, 500200.0, 6875000.0, 6875100.0}));
    const QJsonObject types = elements["types"].toObject();
    EXPECT_EQ(types["element_id"].toString(), "Integer64");
    EXPECT_EQ(types["z"].toString(), "Real");
    EXPECT_EQ(types["name"].toString(), "String");
    EXPECT_EQ(layers["measures"].toObject()["types"].toObject()["date"].toString(), "Date");
}

TEST_F(Gis, MeasuresAreOneFeatureAValue)
{
    ASSERT_TRUE(exportAs(GisFormat::GeoPackage, "p.gpkg").written);
    const QJsonObject measures = read(folder.filePath("p.gpkg"))["measures"].toObject();
    EXPECT_EQ(lines(measures, measured),
              (QStringList{
                  "Деформационные марки|ДМ-1|Позиция 1|1|2022/12/05||Абсолютная отметка|м||101.5",
                  "Деформационные марки|ДМ-1|Позиция 1|2|2023/07/05||Абсолютная отметка|м||101.4321",
                  "Термоскважины|ТС-7|Позиция 2|1|2022/12/06|SN-3|Температура воздуха|°C||-31.5",
                  "Термоскважины|ТС-7|Позиция 2|1|2022/12/06|SN-3|Температура грунта|°C|0.5|-1.25",
                  "Термоскважины|ТС-7|Позиция 2|1|2022/12/06|SN-3|Температура грунта|°C|2|-0.75",
                  "Термоскважины|ТС-7|Позиция 2|2|2023/07/06||Температура грунта|°C|1|0.5",
                  "Точки снегомерной съемки|С-9|Позиция 1|1|2022/12/07||Плотность снега|||0.24",
                  "Точки снегомерной съемки|С-9|Позиция 1|1|2022/12/07||Высота снега|||0.55",
              }));
    EXPECT_EQ(place(measures, 3), "POINT (500100 6875100)");
    EXPECT_EQ(values(measures, 0)["element_id"].toInt(), 1);
}

TEST_F(Gis, ThePackagesSystemIsThatOfTheServer)
{
    for (const char* text : {zone, shifted, nameless}) {
        useSystem(text);
        ASSERT_TRUE(exportAs(GisFormat::GeoPackage, "p.gpkg").written);
        const QJsonObject elements = read(folder.filePath("p.gpkg"))["elements"].toObject();
        const QJsonArray met = elements["features"].toArray()[0].toObject()["degrees"].toArray();
        ASSERT_EQ(met.size(), 2) << text;
        EXPECT_NEAR(met[0].toDouble(), serversDegrees().first, 1e-8) << text;
        EXPECT_NEAR(met[1].toDouble(), serversDegrees().second, 1e-8) << text;
    }
}

TEST_F(Gis, WithoutASystemThePackageSaysSo)
{
    session().proj4Text.clear();
    ASSERT_TRUE(exportAs(GisFormat::GeoPackage, "p.gpkg").written);
    const QJsonObject elements = read(folder.filePath("p.gpkg"))["elements"].toObject();
    EXPECT_TRUE(elements["system"].toString().startsWith("Undefined")) << elements["system"].toString().toStdString();
    EXPECT_EQ(place(elements, 0), "POINT Z (500000.125 6875000.25 101.5)");
}

TEST_F(Gis, JsonIsInLongitudeAndLatitude)
{
    useSystem(shifted);
    const GisExport done = exportAs(GisFormat::GeoJson, "проект.geojson");
    ASSERT_TRUE(done.written) << done.message;
    EXPECT_EQ(files(), (QStringList{"проект-measures.geojson", "проект.geojson"}));
    const QJsonObject elements = read(folder.filePath("проект.geojson"))["elements"].toObject();
    EXPECT_EQ(elements["system"].toString(), "WGS 84");
    EXPECT_EQ(elements["features"].toArray().size(), 4);
    const QJsonArray met = elements["features"].toArray()[0].toObject()["degrees"].toArray();
    EXPECT_NEAR(met[0].toDouble(), serversDegrees().first, 1e-8);
    EXPECT_NEAR(met[1].toDouble(), serversDegrees().second, 1e-8);
    EXPECT_TRUE(place(elements, 0).endsWith(" 101.5)")) << place(elements, 0).toStdString();
    EXPECT_EQ(place(elements, 1), "");
    EXPECT_EQ(values(elements, 0)["x"].toDouble(), 500000.125);
    EXPECT_EQ(values(elements, 1)["name"].toString(), "ДМ \"2\"");
    const QJsonObject measures = read(folder.filePath("проект-measures.geojson"))["measures"].toObject();
    EXPECT_EQ(lines(measures, {"name", "date", "quantity", "depth", "value"}).value(3),
              "ТС-7|2022/12/06|Температура грунта|0.5|-1.25");
    QFile file(folder.filePath("проект.geojson"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QJsonDocument::fromJson(file.readAll()).object()["projection"].toString(), shifted);
}

TEST_F(Gis, JsonWithoutAGoodSystemIsNotWritten)
{
    useSystem("+proj=nowhere");
    const GisExport done = exportAs(GisFormat::GeoJson, "p.geojson");
    EXPECT_FALSE(done.written);
    EXPECT_TRUE(done.message.startsWith("Координаты не пересчитаны в широту и долготу, проверьте систему координат "
                                        "проекта: "))
        << done.message;
    EXPECT_EQ(files(), QStringList());
}

TEST_F(Gis, NothingIsHalfWritten)
{
    const GisExport stopped = exportToGis(GisFormat::GeoPackage, 1, folder.filePath("p.gpkg"),
                                          [](int done, int total) { return done < total / 2; });
    EXPECT_FALSE(stopped.written);
    EXPECT_EQ(stopped.message, "Экспорт прерван, файл не записан");
    EXPECT_FALSE(exportAs(GisFormat::GeoPackage, "нет/такой/папки.gpkg").written);
    loseServer();
    const GisExport lost = exportAs(GisFormat::GeoPackage, "p.gpkg");
    EXPECT_FALSE(lost.written);
    EXPECT_TRUE(lost.message.startsWith("Экспорт не выполнен")) << lost.message;
    EXPECT_EQ(files(), QStringList());
}

TEST_F(Gis, NothingIsReadBehindARefusal)
{
    database.exec("alter table dm_meas rename to dm_other");
    QVector<int> steps;
    const GisExport refused = exportToGis(GisFormat::GeoPackage, 1, folder.filePath("p.gpkg"), [&](int done, int) {
        steps << done;
        return true;
    });
    EXPECT_TRUE(refused.message.startsWith("Экспорт не выполнен: ERROR:  relation \"dm_meas\"")) << refused.message;
    EXPECT_EQ(steps, (QVector<int>{0, 1})) << "of the first family, and of no other";
    EXPECT_EQ(files(), QStringList());
}

TEST_F(Gis, AnEmptyProjectIsTwoEmptyLayers)
{
    ASSERT_TRUE(exportToGis(GisFormat::GeoPackage, 55, folder.filePath("p.gpkg")).written);
    const QJsonObject layers = read(folder.filePath("p.gpkg"));
    EXPECT_EQ(layers.keys(), (QStringList{"elements", "measures"}));
    EXPECT_TRUE(layers["measures"].toObject()["features"].toArray().isEmpty());
}

TEST_F(Gis, TheUserNamesAFile)
{
    driver.expect("Экспорт в ГИС").files({folder.filePath("первый.gpkg")});
    driver.expect("Экспорт в ГИС")
        .text("Выгружено элементов: 4, значений измерений: 8\n" + folder.filePath("первый.gpkg"))
        .press("OK");
    askAndExportToGis(nullptr);
    driver.expect("Экспорт в ГИС").files({folder.filePath("второй.geojson")});
    driver.expect("Экспорт в ГИС")
        .text("Выгружено элементов: 4, значений измерений: 8\n" + folder.filePath("второй.geojson") + "\n"
              + folder.filePath("второй-measures.geojson"))
        .press("OK");
    askAndExportToGis(nullptr);
    driver.expect("Экспорт в ГИС").files({folder.filePath("без окончания")});
    driver.expect("Экспорт в ГИС").press("OK");
    askAndExportToGis(nullptr);
    driver.expect("Экспорт в ГИС").close();
    askAndExportToGis(nullptr);
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(files(), (QStringList{"без окончания.gpkg", "второй-measures.geojson", "второй.geojson", "первый.gpkg"}));
    loseServer();
    session().connected = false;
    driver.expect("Внимание").text("Не установлено соединение с базой данных").press("OK");
    askAndExportToGis(nullptr);
    EXPECT_TRUE(driver.done()) << driver.report();
}

TEST(ProjectionText, WhatHasNoProjectionHasNoText)
{
    EXPECT_EQ(projectionWkt("", "П"), "");
    EXPECT_EQ(projectionWkt("+units=m", "П"), "");
    EXPECT_TRUE(projectionWkt("+proj=longlat +datum=WGS84", "П").startsWith("GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\""));
    EXPECT_TRUE(
        projectionWkt("+proj=tmerc +units=us-ft", "П").contains("EXTENSION[\"PROJ4\",\"+proj=tmerc +units=us-ft\"]"))
        << "other units go by the text itself";
}
