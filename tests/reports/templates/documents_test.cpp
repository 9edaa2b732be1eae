// Whole documents of each kind, compared with what the database holds.
#include "package_checker.h"
#include "report_table.h"

#include "reports/templates/position_state_template.h"
#include "reports/templates/table_documents.h"
#include "reports/templates/template_description.h"
#include "reports/templates/ts_passport_template.h"
#include "support/session_database.h"

#include <QBuffer>
#include <QFileInfo>

namespace {

QByteArray png(QRgb color) { return imageBytes("PNG", color); }

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

class Documents : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        database.exec(
            "insert into cycles (cycle_id, number, date_start, date_end) overriding system value values "
            "(3, 3, '2024-01-01', '2024-01-31');"
            "insert into devices (device_id, serial) overriding system value values (1, 'SN-7');"
            "insert into dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h, geom) "
            "overriding system value values "
            "(1, (select min(type_id) from dm_types), 'ДМ-1', 'exist', 1, 1.5, 2.5, 3, 4, ST_SetSRID(ST_Point(90.5, "
            "45.25), 4326)),"
            "(2, null, 'ДМ-2', 'exist', 2, 5, 6, 7, 8, null);"
            "insert into dm_meas (element_id, cycle_id, meas) values (1, 1, 10), (1, 2, 10.005), (1, 3, 9.99), "
            "(2, 1, 20);"
            "insert into rp_elements (element_id, element_name, position_id) overriding system value values "
            "(5, 'РП-1', 1);"
            "insert into rp_meas (element_id, cycle_id, meas) values (5, 1, 1), (5, 3, 1.001);"
            "insert into ts_elements (element_id, element_name, position_id, x, y, z, h, depth, depth_proj) "
            "overriding system value values (7, 'ТС/7', 1, 11, 22, 100, 0.5, 9.5, null), (8, 'ТС-8', 2, 1, 2, 50, 0, "
            "0, 0);"
            "insert into ts_meas (element_id, cycle_id, device_id, date, meas) values "
            "(7, 1, 1, '2022-12-05', '1.00:-2.00|3.00:0.50'), (7, 2, 1, '2023-07-06', '1.00:1.00|2.00:-0.50');");
        session().reloadCycles();
        session().templateDir = folder / "";
        parameters.cycles = {1, 2, 3};
        parameters.baseCycleId = 1;
        parameters.currentCycleId = 2;
        parameters.cycleId = 2;
        parameters.part = {"projects", 1};
        parameters.folder = folder / "";
        parameters.colorMap.ranges = {{-100, 0, NcCmColor::fromRGB(0, 0, 255)},
                                      {0, 100, NcCmColor::fromRGB(255, 0, 0)}};
        console.take();
    }

    /// Makes a template whose table's heading holds a control bound to the variable.
    template <class Kind>
    void load(Kind& kind, const QByteArray& body, const QVector<Substitution>& substitutions)
    {
        DocxMaker maker(body);
        maker.declare("<Default Extension=\"png\" ContentType=\"image/png\"/>");
        maker.image("rId7", "media/a.png", png(0xff000000));
        maker.write(folder / "t.docx");
        ASSERT_TRUE(writeDescription(folder / "t.xml", {kind.documentKey, "Т", "t.xml", "t.docx", substitutions}));
        ASSERT_TRUE(kind.loadTemplate(folder / "t.xml"));
        kind.parameters = parameters;
    }
    static QByteArray tagged(const QByteArray& tag, const QStringList& lines)
    {
        QByteArray xml = plainTable(lines);
        // Into the first cell, behind its text.
        const int end = xml.indexOf("</w:p>");
        return xml.insert(end, textControl(tag, "метка"));
    }

    QStringList made(ExportTemplateClass& kind, int table = 0)
    {
        const QString path = folder / "out.docx";
        EXPECT_EQ(int(kind.exportFile(path)), int(ReportOutcome::Made));
        EXPECT_EQ(findFaults(path), QStringList());
        const QVector<QDomElement> tables = tablesOf(path, read);
        return tableTexts(tables.value(table));
    }

    Folder folder;
    ReportParameters parameters;
    QDomDocument read;
};

} // namespace

TEST_F(Documents, VerticalMovements)
{
    DeformationExportTemplateClass kind;
    load(kind,
         tagged("rp", {"№|Имя|База|О|Р", "0|x|x|x|x"}) + paragraph(run("-"))
             + tagged("dm", {"№|Имя|База|О|Р", "0|x|x|x|x"}) + paragraph(run("-")) + plainTable({"чужая|таблица"})
             + tagged("map", {"v", "c"}),
         {{"dm", "32_deformation_table", ""}, {"rp", "33_rp_deformation_table", ""}, {"map", "31_color_map", ""}});
    EXPECT_EQ(made(kind, 1),
              (QStringList{"№|Имя|1-цикл Дек. 2022|2-цикл Июл. 2023|2-1|3-цикл Янв. 2024|3-1", "Позиция 1",
                           "1|ДМ-1|10.0000|10.0050|+5.0|9.9900|-10.0", "Позиция 2", "2|ДМ-2|20.0000|-|-|-|-"}));
    EXPECT_EQ(rowShades(elements(read, "w:tbl").value(1), 2), (QStringList{"", "", "", "", "FF0000", "", "0000FF"}));
    EXPECT_EQ(tableTexts(elements(read, "w:tbl").value(0)).last(), "1|РП-1|1.0000|-|-|1.0010|+1.0");
    EXPECT_EQ(tableTexts(elements(read, "w:tbl").value(2)), (QStringList{"чужая|таблица"}));
    EXPECT_EQ(tableTexts(elements(read, "w:tbl").value(3)).first(), "-100.0|0.0");
    EXPECT_EQ(console.text().count("\nНачата обработка измерений\n Обработка измерений: элемент 1 из 2"), 1);
    EXPECT_TRUE(console.text().contains("\nОбработка элементов  завершена\nОбработка измерений завершена"));
}

TEST_F(Documents, TheRunIsStoppedBetweenElements)
{
    DeformationExportTemplateClass kind;
    load(kind, tagged("dm", {"№|Имя|База|О|Р", "0|x|x|x|x"}), {{"dm", "32_deformation_table", ""}});
    kind.parameters.progress = [](int done, int, const QString&) { return done < 2; };
    EXPECT_EQ(int(kind.exportFile(folder / "out.docx")), int(ReportOutcome::Stopped));
    EXPECT_FALSE(QFileInfo::exists(folder / "out.docx"));
}

TEST_F(Documents, TemperaturesOfACycle)
{
    TemperaturesExportTemplateClass kind;
    load(kind,
         paragraph(textControl("cycle", "?")) + tagged("t", {"№|Имя|Дата|Прибор|г", "0|x|x|x|x"})
             + tagged("p", {"№|Имя|Дата|Прибор|г", "0|x|x|x|x"}),
         {{"t", "32_temperature_table", ""},
          {"p", "34_temperature_table_by_position", ""},
          {"cycle", "33_cycle_name", ""}});
    EXPECT_EQ(made(kind),
              (QStringList{"№|Имя|Дата|Прибор|1.0|2.0", "1|ТС/7|06.07.2023|SN-7|+1.0|-0.5", "2|ТС-8|----|-|--|--"}));
    EXPECT_EQ(tableTexts(elements(read, "w:tbl").value(1)),
              (QStringList{"№|Имя|Дата|Прибор|1.0|2.0", "Позиция 1", "1|ТС/7|06.07.2023|SN-7|+1.0|-0.5", "Позиция 2",
                           "2|ТС-8|----|-|--|--"}));
    EXPECT_TRUE(textOf(read.documentElement()).startsWith("Цикл 2 (01.07.23 - 31.07.23)"));
}

TEST_F(Documents, DifferencesOfTwoCycles)
{
    TempDiffExportTemplateClass kind;
    load(kind, paragraph(textControl("b", "?") + textControl("c", "?")) + tagged("t", {"№|И|Д|Д|г", "0|x|x|x|x"}),
         {{"t", "32_temperature_diff_table", ""}, {"b", "33_base_cycle_name", ""}, {"c", "34_curr_cycle_name", ""}});
    EXPECT_EQ(made(kind), (QStringList{"№|И|Д|Д|1.0", "1|ТС/7|05.12.2022|06.07.2023|+3.0", "2|ТС-8|----|----|--"}));
    EXPECT_TRUE(textOf(read.documentElement()).startsWith("Цикл 1 (01.12.22 - 31.12.22)Цикл 2 (01.07.23 - 31.07.23)"));
    EXPECT_TRUE(console.text().contains("\nЗавершена обработка измерений исходного цикла\nНачата обработка текущего "
                                        "исходного цикла\n"));
    EXPECT_TRUE(console.text().endsWith("\nЗавершена обработка текущего цикла"));
}

TEST_F(Documents, InspectionsOfACycle)
{
    const sql::Result stored = session().run(
        "insert into rp_inspection (element_id, cycle_id, fence, protectpit, protectpitcover, protectpipe, mark, "
        "inspectresult, note, state_id, sealing, photos) values (5, 2, 1, 0, 1, 0, 1, 1, 'примечание', 'exist', 1, "
        "$1::bytea)",
        {sql::binary(png(0xff00ff00))});
    ASSERT_TRUE(stored.isCommand());
    database.exec("insert into ts_inspection (element_id, cycle_id, inspectresult, depth) values (7, 2, 0, 9.256)");
    InspectionsExportTemplateClass kind;
    load(kind,
         tagged("rp", {"№|И|1|2|3|4|5|В|П|С|С|Ф", "0|x|x|x|x|x|x|x|x|x|x|x"})
             + tagged("ts", {"№|И|1|2|3|4|5|6|7|В|П|С|Г|h|Ф", "0|x|x|x|x|x|x|x|x|x|x|x|x|x|x"}),
         {{"rp", "31_rp_insp_table", ""}, {"ts", "32_ts_insp_table", ""}});
    EXPECT_EQ(made(kind).mid(1), (QStringList{"Позиция 1", "1|РП-1|+|-|+|-|+|удовл.|примечание|Существующий|да|"}));
    EXPECT_EQ(elements(elements(read, "w:tbl").value(0), "w:drawing").size(), 1);
    EXPECT_EQ(tableTexts(elements(read, "w:tbl").value(1)).mid(1),
              (QStringList{"Позиция 1", "1|ТС/7|-|-|-|-|-|-|-|неудовл.|||9.26|--|", "Позиция 2",
                           "2|ТС-8|--|--|--|--|--|--|--|--|--|--|--|--|"}));
    kind.parameters.defectsOnly = true;
    EXPECT_EQ(made(kind), (QStringList{"№|И|1|2|3|4|5|В|П|С|С|Ф"}));
    EXPECT_EQ(tableTexts(elements(read, "w:tbl").value(1)).size(), 5);
}

TEST_F(Documents, ListsOfElements)
{
    ElementListExportTemplateClass kind;
    load(kind, tagged("dm", {"№|П|И|Т|Y|X|L|B|Z|h", "0|x|x|x|x|x|x|x|x|x"}), {{"dm", "33_dm_list_table", ""}});
    const QString type = database.value("select name from dm_types order by type_id limit 1");
    EXPECT_EQ(made(kind).mid(1),
              (QStringList{"1|Позиция 1|ДМ-1|" + type + "|2.50|1.50|E90°30'0.00\"|N45°15'0.00\"|3.00|4.00",
                           "2|Позиция 2|ДМ-2||6.00|5.00|--|--|7.00|8.00"}))
        << "without a geometry there is no place on the earth";
    for (const char* level : {"objects", "subobjects"}) {
        kind.parameters.part = {level, 1};
        EXPECT_EQ(made(kind).size(), 3) << level;
    }
    kind.parameters.part = {"positions", 2};
    EXPECT_TRUE(made(kind).last().startsWith("1|Позиция 2|ДМ-2"));
    // A geometry in the metres of a local system is written as it comes.
    database.exec("update dm_elements set geom = ST_SetSRID(ST_Point(512345.25, -6543210.5), 4326) where element_id = "
                  "2");
    EXPECT_TRUE(made(kind).last().contains("|E512345°15'0.00\"|S6543210°30'0.00\"|")) << made(kind).last();
    database.exec("update dm_elements set (x, y, z, h) = (null, null, null, null) where element_id = 2");
    EXPECT_TRUE(made(kind).last().startsWith("1|Позиция 2|ДМ-2||--|--|E512345°15'0.00\"|")) << made(kind).last();
    EXPECT_TRUE(made(kind).last().endsWith("|--|--")) << made(kind).last();
    // On the meridian and the equator is a place like any other.
    database.exec("update dm_elements set geom = ST_SetSRID(ST_Point(0, 0), 4326) where element_id = 2");
    EXPECT_TRUE(made(kind).last().contains("|E0°00'0.00\"|N0°00'0.00\"|")) << made(kind).last();
    kind.parameters.part = {"nowhere", 2};
    EXPECT_EQ(made(kind).size(), 1);
}

TEST_F(Documents, APassportOfEachWellAndOneOfAll)
{
    const sql::Result stored =
        session().run("insert into ts_files (element_id, file_type, content) values (7, 'photo', $1::bytea)",
                      {sql::binary(png(0xff123456))});
    ASSERT_TRUE(stored.isCommand());
    TSPassportExportTemplate kind;
    QByteArray texts;
    QVector<Substitution> rows;
    for (const char* name : {"10_ts_name", "101_ts_position", "11_ts_z", "12_ts_h", "13_ts_deep", "131_ts_heihgth",
                             "132_ts_depth", "133_ts_projdepth", "14_ts_x", "15_ts_y"}) {
        texts += textControl(name, "?") + run("/");
        rows.append({name, name, ""});
    }
    rows += {{"chart", "17_ts_temp_diagramm", ""},
             {"photo", "20_ts_img_photo", ""},
             {"abris", "19_ts_img_abris", ""},
             {"h", "22_ts_htbl_meas", ""}};
    load(kind,
         paragraph(texts)
             + paragraph(pictureControl("chart", "rId7") + pictureControl("photo", "rId7")
                         + pictureControl("abris", "rId7"))
             + tagged("h", {"№|Д|П|г", "№|Д|П|о", "0|x|x|x"}),
         rows);
    kind.parameters.elements = {7, 99, 8};
    kind.parameters.merge = true;
    EXPECT_EQ(int(kind.generateAll()), int(ReportOutcome::Missing)) << "one of the three is not there";
    EXPECT_EQ(sorted(folder.files()),
              sorted({"t.docx", "t.xml", "ТС-8.docx", "ТС7.docx", "Общий_паспорт_термоскважин.docx"}));
    EXPECT_TRUE(console.text().contains("\nСоздан файл '" + folder / "ТС7.docx" + "'"));
    EXPECT_TRUE(console.text().contains("\nЗапись с ID:99 не найдена"));
    EXPECT_TRUE(console.text().contains("\nСоздан объединенный файл: '" + folder / "Общий_паспорт_термоскважин.docx"));
    EXPECT_TRUE(console.text().endsWith("\nСоздано документов: 2 из 3"));
    for (const char* name : {"chart.png", "photo.png", "abris.png"})
        EXPECT_FALSE(folder.files().contains(name)) << name;

    const QVector<QDomElement> tables = tablesOf(folder / "ТС7.docx", read);
    EXPECT_TRUE(textOf(read.documentElement()).startsWith("ТС/7/Позиция 1/100.00/0.50/3.00/3.50/9.50//11.00/22.00/"))
        << textOf(read.documentElement());
    EXPECT_EQ(tableTexts(tables.value(0)),
              (QStringList{"№|Д|П|1.0|2.0|3.0", "№|Д|П|98.50|97.50|96.50", "1|05.12.2022|SN-7|-2.0|-|+0.5",
                           "2|06.07.2023|SN-7|+1.0|-0.5|-"}));
    // Chart and photo are new pictures, the layout keeps the template's own.
    const QMap<QString, QByteArray> parts = unpacked(folder / "ТС7.docx");
    EXPECT_EQ(QStringList(parts.keys()).filter("word/media/tag_image_").size(), 2);
    EXPECT_EQ(newFaults(folder / "ТС7.docx", folder / "t.docx"), QStringList());
    EXPECT_EQ(newFaults(folder / "Общий_паспорт_термоскважин.docx", folder / "t.docx"), QStringList());
    // A well without measures has a passport with an empty table.
    EXPECT_EQ(tableTexts(tablesOf(folder / "ТС-8.docx", read).value(0)), (QStringList{"№|Д|П|", "№|Д|П|"}));
    EXPECT_TRUE(textOf(read.documentElement()).startsWith("ТС-8/Позиция 2/50.00/0.00///0.00/0.00/1.00/2.00/"));
}

TEST_F(Documents, AnOldFileIsKeptAndTheRunGoesOn)
{
    TSPassportExportTemplate kind;
    load(kind, paragraph(textControl("name", "?")), {{"name", "10_ts_name", ""}});
    QFile old(folder / "ТС7.docx");
    ASSERT_TRUE(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    old.close();
    kind.parameters.elements = {7, 8};
    kind.generateAll();
    EXPECT_EQ(console.take(),
              "\nФайл '" + folder / "ТС7.docx" + "' уже существует\nСоздан файл '" + folder / "ТС-8.docx"
                  + "'\nСоздано документов: 1 из 2");
    EXPECT_EQ(QFileInfo(old).size(), 3);
    kind.parameters.overwrite = true;
    EXPECT_EQ(int(kind.generateAll()), int(ReportOutcome::Made));
    EXPECT_GT(QFileInfo(old.fileName()).size(), 3);
}

TEST_F(Documents, OneDocumentIsNotMerged)
{
    TSPassportExportTemplate kind;
    load(kind, paragraph(textControl("name", "?")), {{"name", "10_ts_name", ""}});
    kind.parameters.elements = {7};
    kind.parameters.merge = true;
    EXPECT_EQ(int(kind.generateAll()), int(ReportOutcome::Made));
    EXPECT_FALSE(console.text().contains("объединенн"));
}

TEST_F(Documents, ASeriesIsStoppedBetweenDocuments)
{
    TSPassportExportTemplate kind;
    load(kind, paragraph(textControl("name", "?")), {{"name", "10_ts_name", ""}});
    kind.parameters.elements = {7, 8};
    kind.parameters.progress = [](int done, int, const QString&) { return done < 1; };
    EXPECT_EQ(int(kind.generateAll()), int(ReportOutcome::Stopped));
    EXPECT_TRUE(QFileInfo::exists(folder / "ТС7.docx"));
    EXPECT_FALSE(QFileInfo::exists(folder / "ТС-8.docx"));
    EXPECT_TRUE(console.text().endsWith("\nСоздано документов: 1 из 2"));
}

TEST_F(Documents, AUsersOwnPictureOfTheSameNameStays)
{
    TSPassportExportTemplate kind;
    load(kind, paragraph(pictureControl("chart", "rId7")), {{"chart", "17_ts_temp_diagramm", ""}});
    QFile own(folder / "chart.png");
    ASSERT_TRUE(own.open(QIODevice::WriteOnly) && own.write("own") == 3);
    own.close();
    kind.parameters.elements = {7};
    kind.generateAll();
    EXPECT_EQ(QFileInfo(own).size(), 3);
    EXPECT_EQ(QStringList(unpacked(folder / "ТС7.docx").keys()).filter("tag_image_").size(), 1);
}

TEST_F(Documents, StatesOfPositions)
{
    // The well is solid in cycle 1 and thawed in cycle 2; the mark has sunk by 5 mm in cycle 2 and by 10 mm in cycle 3.
    database.exec("insert into positions_attributes (position_id, temperature_deep_min, temperature_deep_max, "
                  "temperature_h, temperature_bf, base_depth, averagediff, norm_id) "
                  "values (1, 1, 1.5, -0.5, -0.1, 1, 0.6, 1)");
    PositionStateExportTemplate kind;
    load(kind,
         paragraph(textControl("n", "?") + run("/") + textControl("t", "?"))
             + tagged("s", {"1|2|3|4|5|6|7|8|9", "x|x|x|x|x|x|x|x|x"})
             + tagged("d", {"1|2|3|4|5|6|7|8|9|10", "x|x|x|x|x|x|x|x|x|x"}),
         {{"n", "40_pos_name", ""},
          {"t", "401_pos_morm", ""},
          {"s", "41_pos_term_table)", ""},
          {"d", "42_pos_def_table", ""}});
    kind.parameters.positions = {1, 2};
    kind.parameters.merge = true;
    EXPECT_EQ(int(kind.generateAll()), int(ReportOutcome::Made));
    const QVector<QDomElement> tables = tablesOf(folder / "Позиция 1.docx", read);
    EXPECT_EQ(
        tableTexts(tables.value(0)).mid(1),
        (QStringList{"Цикл 1|от 01.12.22|0|1|0|0|0|от -1.69\nдо -1.69 |Р",
                     "Цикл 2|от 01.07.23|0|0|0|0|1|от 0.63\nдо 0.63 |H", "Цикл 3|от 01.01.24|1|0|0|0|0| -- |НИ"}));
    EXPECT_EQ(tableTexts(tables.value(1)).mid(1),
              (QStringList{"Цикл 1|от 01.12.22|0|1|0|0|от 0.0 мм\nдо 0.0 мм|Р| -- |--",
                           "Цикл 2|от 01.07.23|0|1|0|0|от 5.0 мм\nдо 5.0 мм|Р| -- |--",
                           "Цикл 3|от 01.01.24|0|0|0|1|от 10.0 мм\nдо 10.0 мм|H| -- |--"}));
    EXPECT_TRUE(textOf(read.documentElement()).startsWith("Позиция 1/Производственные и гражданские одноэтажные"));
    EXPECT_TRUE(QFileInfo::exists(folder / "Общий_паспорт_позиций.docx"));

    PositionAnalyticExportTemplateClass summary;
    load(summary, tagged("s", {"1|2|3|4|5|6|7|8|9", "x|x|x|x|x|x|x|x|x"}), {{"s", "51_analytic_table", ""}});
    EXPECT_EQ(
        made(summary).mid(1),
        (QStringList{"1|Объект|Подобъект|Позиция 1|Да|H|Р|--|--", "2|Объект|Подобъект|Позиция 2|Нет|--|--|--|--"}));
}

TEST_F(Documents, ALostServerLeavesHeadingsAlone)
{
    DeformationExportTemplateClass kind;
    load(kind, tagged("dm", {"№|Имя|База|О|Р", "0|x|x|x|x"}), {{"dm", "32_deformation_table", ""}});
    loseServer();
    EXPECT_EQ(made(kind).size(), 1);
}
