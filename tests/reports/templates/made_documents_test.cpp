// The delivered templates filled, one document of each of the nine kinds: python-docx
// reads what was written, statements of the test's own say what should stand there.
#include "reports/templates/position_state_template.h"
#include "reports/templates/table_documents.h"
#include "reports/templates/ts_passport_template.h"
#include "support/session_database.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

namespace {

// Two positions with marks, benchmarks and wells by turns; two cycles, of which the
// last mark and the last well lack the second. Wells have one temperature from top to
// bottom: -2, 0.25 and 1; the first is the only one of the position with norms.
const char* const content =
    "insert into devices (device_id, serial) overriding system value values (1, 'SN-7');"
    "insert into dm_elements (element_name, type_id, state_id, position_id, x, y, z, h, geom) select 'ДМ-' || n, 'dm', "
    "'exist', 1 + n % 2, 100.5 * n, 20.25 * n, n, 0.5, ST_SetSRID(ST_MakePoint(90.5 + n * 0.25, 45.125), 4326) from "
    "generate_series(1, 6) n;"
    "insert into dm_meas (element_id, cycle_id, meas) select element_id, c, z + (c - 1) * 0.001 * (element_id % 5 - 2) "
    "from dm_elements, generate_series(1, 2) c where element_name <> 'ДМ-6' or c = 1;"
    "insert into rp_elements (element_name, type_id, state_id, position_id, x, y, z, h, geom) select 'РП-' || n, "
    "'rp_gl', 'exist', n, n, n, n, 0, ST_SetSRID(ST_MakePoint(90.5, 45.125), 4326) from generate_series(1, 2) n;"
    "insert into rp_meas (element_id, cycle_id, meas) select element_id, c, z + (c - 1) * 0.002 from rp_elements, "
    "generate_series(1, 2) c;"
    "insert into ts_elements (element_name, type_id, state_id, position_id, x, y, z, h, depth, depth_proj, geom) "
    "select 'ТС-' || n, 'ts', 'exist', case n when 1 then 1 else 2 end, 10 * n, 20 * n, 100 + n, 0.5, 9.5, 10, "
    "ST_SetSRID(ST_MakePoint(90.5, 45.125), 4326) from generate_series(1, 3) n;"
    "insert into ts_meas (element_id, cycle_id, device_id, date, meas) select element_id, c, 1, case c when 1 then "
    "date '2022-12-05' else date '2023-07-06' end, (select string_agg(d || ':' || t + (c - 2) * 0.5, '|' order by d) "
    "from generate_series(1, case element_name when 'ТС-1' then 4 else 3 end) d) from ts_elements, (values ('ТС-1', "
    "-2.0), ('ТС-2', 0.3), ('ТС-3', 1)) w (name, t), generate_series(1, 2) c where name = element_name and "
    "(element_name <> 'ТС-3' or c = 1);"
    "insert into tss_elements (element_name, type_id, state_id, position_id, x, y, z, h, geom) values ('С-1', 'tss_h', "
    "'exist', 1, 1, 2, 3, 4, ST_SetSRID(ST_MakePoint(90.5, 45.125), 4326));"
    "insert into rp_inspection (element_id, cycle_id, fence, protectpit, protectpitcover, protectpipe, mark, "
    "inspectresult, note, state_id, sealing) select element_id, 2, 1, 0, 1, 0, 1, element_id % 2, 'текст <&>', "
    "'exist', "
    "1 from rp_elements;"
    "insert into positions_attributes (position_id, temperature_deep_min, temperature_deep_max, temperature_h, "
    "temperature_bf, base_depth, averagediff, relativediff, norm_id) values (1, 1, 3, -1, -0.5, 2, 0.1, 0.004, 1);"
    "insert into deformation_profiles (profile_id, position_id, profile_name) overriding system value values (1, 1, "
    "'I-I');"
    "insert into deformation_profiles_points (profile_id, element_id, param) select 1, element_id, element_id from "
    "dm_elements where position_id = 1";

const char* const cold = "0000FF";
const char* const warm = "FF0000";

class MadeDocuments : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        ASSERT_TRUE(database.exec(content));
        ProjectSession& s = session();
        s.projectId = 1;
        s.projectName = database.value("select name from projects");
        s.projectCode = database.value("select code from projects");
        s.projectOwner = database.value("select owner from projects");
        s.projectLocation = database.value("select location from projects");
        s.currentObjectName = database.value("select object from objects");
        s.currentSubobjectName = database.value("select subobject from subobjects");
        s.currentPositionName = database.value("select position from positions where position_id = 1");
        s.templateDir = QCoreApplication::applicationDirPath() + "/templates";
        s.reloadCycles();
        addPhoto();
        parameters.cycles = {1, 2};
        parameters.baseCycleId = 1;
        parameters.currentCycleId = parameters.cycleId = 2;
        parameters.part = {"projects", 1};
        parameters.folder = folder.path();
        parameters.colorMap.ranges = {{-100, 0, NcCmColor::fromRGB(0, 0, 255)},
                                      {0, 100, NcCmColor::fromRGB(255, 0, 0)}};
    }
    void addPhoto()
    {
        QImage photo(40, 30, QImage::Format_RGB32);
        photo.fill(Qt::darkGreen);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        ASSERT_TRUE(buffer.open(QIODevice::WriteOnly) && photo.save(&buffer, "PNG"));
        session().run("update rp_inspection set photos = $1::bytea where inspect_id = (select min(inspect_id) from "
                      "rp_inspection)",
                      {sql::binary(bytes)});
        session().run("insert into ts_files (element_id, file_type, content) select min(element_id), 'photo', "
                      "$1::bytea from ts_elements",
                      {sql::binary(bytes)});
    }

    void load(ExportTemplateClass& kind, const QString& name)
    {
        kind.loadTemplateList();
        ASSERT_TRUE(kind.selectTemplate(kind.templateNames().key(name, -1))) << name;
        kind.parameters = parameters;
    }
    QJsonObject made(ExportTemplateClass& kind, const QString& name)
    {
        load(kind, name);
        const QString path = folder.filePath("made.docx");
        EXPECT_EQ(int(kind.exportFile(path)), int(ReportOutcome::Made));
        return read(path);
    }
    static QJsonObject read(const QString& path)
    {
        QProcess reader;
        reader.start("/usr/bin/python3", {TERVA_SOURCE_DIR "/tests/reports/templates/read_document.py", path});
        EXPECT_TRUE(reader.waitForFinished(120000));
        EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().constData();
        return QJsonDocument::fromJson(reader.readAllStandardOutput()).object().value(path).toObject();
    }

    static QStringList lines(const QJsonObject& document) { return document["lines"].toVariant().toStringList(); }
    // A line a row, behind the heading: the texts of its cells, or what else is asked of them.
    static QStringList rows(const QJsonObject& document, int table, int headings, const char* what = "text")
    {
        QStringList found;
        const QJsonArray all = document["tables"].toArray().at(table).toArray();
        for (int row = headings; row < all.size(); ++row) {
            QStringList cells;
            for (const QJsonValue& cell : all[row].toArray())
                cells << cell.toObject()[what].toVariant().toString();
            found << cells.join('|');
        }
        return found;
    }
    QStringList expected(const char* query)
    {
        QStringList found;
        for (const QStringList& row : database.rows(query))
            found << row.join('|');
        EXPECT_FALSE(found.isEmpty()) << query;
        return found;
    }

    QTemporaryDir folder;
    ReportParameters parameters;
};

// A section row a position before its elements, which come as (position, line).
QStringList underPositions(const QStringList& lines)
{
    QStringList all;
    QString last;
    for (const QString& line : lines) {
        const QString position = line.section('|', 0, 0);
        if (position != last)
            all << position;
        last = position;
        all << line.section('|', 1);
    }
    return all;
}

// A mark's row and, in "?" cells, the shade of its difference.
const char* const movements =
    "select position, row_number() over (order by appearence, element_name), element_name, round(b.meas::numeric, 4), "
    "coalesce(round(c.meas::numeric, 4)::text, '-'), coalesce(case when c.meas > b.meas then '+' else '' end || "
    "round(((c.meas - b.meas) * 1000)::numeric, 1), '-'), case when c.meas is null then '' when round((c.meas - "
    "b.meas)::numeric, 6) < 0 then '0000FF' else 'FF0000' end from %1_elements join positions using (position_id) join "
    "%1_meas b on b.element_id = %1_elements.element_id and b.cycle_id = 1 left join %1_meas c on c.element_id = "
    "%1_elements.element_id and c.cycle_id = 2 order by appearence, element_name";

} // namespace

TEST_F(MadeDocuments, TitlePage)
{
    ExportTemplateClass kind;
    const QJsonObject document = made(kind, "Титульный лист");
    EXPECT_EQ(
        lines(document),
        expected("select name from projects union all select 'Шифр проекта: ' || code from projects union all "
                 "select 'Владелец: ' || owner from projects union all select 'Местоположение: ' || location from "
                 "projects union all select 'Позиция' union all select 'Объект: ' || object from objects union all "
                 "select 'Подобъект: ' || subobject from subobjects union all select 'Позиция: ' || position from "
                 "positions where position_id = 1"));
}

TEST_F(MadeDocuments, VerticalMovements)
{
    DeformationExportTemplateClass kind;
    const QJsonObject document = made(kind, "Ведомость вертикальных перемещений");
    int table = 0;
    for (const char* prefix : {"dm", "rp"}) {
        QStringList texts, shades;
        for (QStringList row : database.rows(QString(movements).replace("%1", prefix))) {
            shades << row.takeLast();
            row.last().replace("+0.0", "0.0");
            texts << row.join('|');
        }
        EXPECT_EQ(rows(document, table, 3), underPositions(texts)) << prefix;
        QStringList met;
        for (const QString& row : rows(document, table, 3, "shade")) {
            if (row.contains('|'))
                met << row.section('|', 4, 4);
        }
        EXPECT_EQ(met, shades) << prefix;
        ++table;
    }
    EXPECT_EQ(rows(document, 0, 0).mid(1, 2), (QStringList{"||1-цикл|2-цикл|2-1", "||Дек. 2022|Июл. 2023|"}));
    EXPECT_EQ(rows(document, 2, 0).first(), "-100.0|0.0");
    EXPECT_EQ(rows(document, 2, 0, "shade").last(), QString("%1|%2").arg(cold, warm));
}

TEST_F(MadeDocuments, Temperatures)
{
    TemperaturesExportTemplateClass kind;
    const QJsonObject document = made(kind, "Ведомость измерения температур");
    const char* const query =
        "select position, row_number() over (order by appearence, element_name), element_name, coalesce(to_char(date, "
        "'DD.MM.YYYY'), '----'), coalesce(serial, '-'), (select string_agg(coalesce((select case when v > 0 then '+' "
        "else '' end || round(v, 1) from (select split_part(p, ':', 2)::numeric as v from unnest(string_to_array(meas, "
        "'|')) p where split_part(p, ':', 1)::int = d) t), '--'), '|' order by d) from generate_series(1, 4) d) from "
        "ts_elements join positions using (position_id) left join (select * from ts_meas where cycle_id = 2) m using "
        "(element_id) left join devices using (device_id) order by appearence, element_name";
    EXPECT_EQ(rows(document, 0, 2), underPositions(expected(query)));
    EXPECT_EQ(rows(document, 0, 0).value(1).section('|', -4), "1.0|2.0|3.0|4.0");
    EXPECT_EQ(rows(document, 0, 2, "shade"),
              (QStringList{"", "||||0000FF|0000FF|0000FF|0000FF", "", "||||FF0000|FF0000|FF0000|", "|||||||"}));
    EXPECT_TRUE(lines(document).contains("Цикл измерений: "
                                         + database.value("select 'Цикл ' || number || ' (' || to_char(date_start, "
                                                          "'DD.MM.YY') || ' - ' || to_char(date_end, 'DD.MM.YY') "
                                                          "|| ')' from cycles where cycle_id = 2")))
        << lines(document).join('\n');
}

TEST_F(MadeDocuments, TemperatureDifferences)
{
    TempDiffExportTemplateClass kind;
    const QJsonObject document = made(kind, "Ведомость изменения температур");
    // Each well is warmer by half a degree in the second cycle.
    EXPECT_EQ(rows(document, 0, 2),
              (QStringList{"Позиция 1", "1|ТС-1|05.12.2022|06.07.2023|+0.5|+0.5|+0.5|+0.5", "Позиция 2",
                           "2|ТС-2|05.12.2022|06.07.2023|+0.5|+0.5|+0.5|--", "3|ТС-3|05.12.2022|----|--|--|--|--"}));
    EXPECT_EQ(rows(document, 0, 2, "shade").value(3), "||||FF0000|FF0000|FF0000|");
}

TEST_F(MadeDocuments, Inspections)
{
    InspectionsExportTemplateClass kind;
    const QJsonObject document = made(kind, "Ведомость обследования");
    const char* const query =
        "select position, row_number() over (order by appearence, element_name), element_name, case fence when 1 then "
        "'+' else '-' end, case protectpit when 1 then '+' else '-' end, case protectpitcover when 1 then '+' else '-' "
        "end, case protectpipe when 1 then '+' else '-' end, case mark when 1 then '+' else '-' end, case "
        "inspectresult "
        "when 1 then 'удовл.' else 'неудовл.' end, rp_inspection.note, states.note, case sealing when 1 then 'да' else "
        "'нет' end, '' from rp_elements join positions using (position_id) join rp_inspection using (element_id) join "
        "states on states.state_id = rp_inspection.state_id order by appearence, element_name";
    EXPECT_EQ(rows(document, 0, 1), underPositions(expected(query)));
    EXPECT_EQ(rows(document, 0, 1, "pictures"),
              (QStringList{"0", "0|0|0|0|0|0|0|0|0|0|0|1", "0", "0|0|0|0|0|0|0|0|0|0|0|0"}));
    EXPECT_EQ(rows(document, 2, 1).size(), database.value("select count(*) + 2 from dm_elements").toInt());
    EXPECT_EQ(rows(document, 1, 1).value(1), "1|ТС-1" + QString("|--").repeated(12) + "|");
}

TEST_F(MadeDocuments, ListsOfElements)
{
    ElementListExportTemplateClass kind;
    const QJsonObject document = made(kind, "Ведомость элементов");
    const QString query =
        "select row_number() over (order by appearence, element_name), position, element_name, %1_types.name, "
        "states.note, round(y::numeric, 2), round(x::numeric, 2), 'E' || trunc(ST_X(geom)) || '°' || "
        "lpad(trunc(60 * (ST_X(geom) - trunc(ST_X(geom))))::text, 2, '0') || '''0.00\"', 'N45°07''30.00\"', "
        "round(z::numeric, 2), round(h::numeric, 2) from %1_elements join positions using (position_id) join %1_types "
        "using (type_id) join states using (state_id) order by appearence, element_name";
    int table = 0;
    for (const char* prefix : {"rp", "ts", "dm", "tss"}) {
        QStringList wanted;
        for (QStringList row : database.rows(QString(query).replace("%1", prefix))) {
            row.removeAt(4); // the state has no cell
            wanted << row.join('|');
        }
        EXPECT_EQ(rows(document, table++, 1), wanted) << prefix;
    }
    EXPECT_EQ(rows(document, 4, 1), QStringList()) << "no wells of the groundwater";
}

TEST_F(MadeDocuments, StateOfAPosition)
{
    PositionStateExportTemplate kind;
    load(kind, "Техническое состояние сооружения");
    kind.parameters.positions = {1};
    ASSERT_EQ(int(kind.generateAll()), int(ReportOutcome::Made)) << console.text();
    const QJsonObject document = read(folder.filePath("Позиция 1.docx"));
    EXPECT_EQ(lines(document).first(), "Техническое состояние сооружения Позиция 1");
    EXPECT_TRUE(lines(document).contains(
        "Тип сооружения: " + database.value("select description from norm_sp22_13330 where norm_id = 1")));
    EXPECT_EQ(
        rows(document, 0, 1),
        (QStringList{"Интервал от 1м. до 3м.|Менее -1 |От -1 |От -0.5 | -- ",
                     "Глубина 2 м.| -- | -- |Менее -0.5 |От -0.5 ",
                     "Осадка|менее 0.1 см|от 0.1 см до 0.11 см| -- |более 0.11 см",
                     "Относительная осадка|менее 0.001 |от 0.001  до 0.0032 |от 0.0032  до 0.004 |более 0.004 "}));
    EXPECT_EQ(rows(document, 1, 2),
              (QStringList{"Цикл 1|от 01.12.22|0|1|0|0|0|от -2.50\nдо -2.50 |Р",
                           "Цикл 2|от 01.07.23|0|1|0|0|0|от -2.00\nдо -2.00 |Р"}));
    const QStringList marks = rows(document, 2, 2);
    ASSERT_EQ(marks.size(), 2);
    // A is a millimetre: how many marks moved by more, and how far the farthest.
    const QStringList wanted =
        database
            .rows(
                "select count(*) filter (where d is null), count(*) filter (where d <= 0.001), count(*) filter (where "
                "d > 0.001 and d <= 0.0011), count(*) filter (where d > 0.0011), 'от ' || round(min(d) * 1000, 1) || "
                "' мм' || chr(10) || 'до ' || round(max(d) * 1000, 1) || ' мм' from (select round(abs(c.meas - "
                "b.meas)::numeric, 6) as d from dm_elements e left join dm_meas b on b.element_id = e.element_id and "
                "b.cycle_id = 1 left join dm_meas c on c.element_id = e.element_id and c.cycle_id = 2 where "
                "position_id = 1) t")
            .value(0);
    EXPECT_EQ(marks[1].section('|', 2, 6), wanted.join('|'));
}

TEST_F(MadeDocuments, SummaryOfPositions)
{
    PositionAnalyticExportTemplateClass kind;
    const QJsonObject document = made(kind, "Сводная ведомость состояния");
    const QStringList met = rows(document, 0, 1);
    ASSERT_EQ(met.size(), 2);
    EXPECT_TRUE(met[0].startsWith("1|Объект|Подобъект|Позиция 1|Да|Р|")) << met[0];
    EXPECT_EQ(met[1], "2|Объект|Подобъект|Позиция 2|Нет|--|--|--|--");
    EXPECT_TRUE(lines(document).contains("Исходный цикл: Цикл 1 (01.12.22 - 31.12.22)"));
    EXPECT_TRUE(lines(document).contains("Текущий цикл: Цикл 2 (01.07.23 - 31.07.23)"));
}

TEST_F(MadeDocuments, PassportsOfWells)
{
    TSPassportExportTemplate kind;
    load(kind, "Паспорт термоскважины");
    for (const QStringList& row : database.rows("select element_id from ts_elements order by element_id"))
        kind.parameters.elements << row[0].toInt();
    kind.parameters.merge = true;
    ASSERT_EQ(int(kind.generateAll()), int(ReportOutcome::Made)) << console.text();
    const QJsonObject first = read(folder.filePath("ТС-1.docx"));
    const QStringList texts = lines(first);
    EXPECT_EQ(texts.first(), "Паспорт термометрической скважины ТС-1");
    EXPECT_TRUE(texts.contains("Координаты: X = 10.00 м, Y = 20.00 м"));
    EXPECT_TRUE(texts.contains("Абсолютная отметка оголовка: 101.00 м; высота над поверхностью земли: 0.50 м"));
    EXPECT_TRUE(texts.contains("Глубина по датчикам: 4.00 м; общая глубина (d + h): 4.50 м"));
    EXPECT_TRUE(texts.contains("Глубина по замеру: 9.50 м; проектная глубина: 10.00 м"));
    EXPECT_EQ(rows(first, 0, 0).mid(1),
              (QStringList{"|||99.50|98.50|97.50|96.50", "1|05.12.2022|SN-7|-2.5|-2.5|-2.5|-2.5",
                           "2|06.07.2023|SN-7|-2.0|-2.0|-2.0|-2.0"}));
    EXPECT_EQ(rows(first, 1, 3).value(0), "1.0|99.50|-2.5|-2.0");
    const QJsonObject merged = read(folder.filePath("Общий_паспорт_термоскважин.docx"));
    EXPECT_EQ(lines(merged).filter("Паспорт термометрической скважины").size(), 3);
    EXPECT_EQ(merged["tables"].toArray().size(), 6);
    EXPECT_GE(first["images"].toInt(), 3) << "two charts and the photo";
}
