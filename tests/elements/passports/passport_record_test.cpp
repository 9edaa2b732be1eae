// Measures, inspections and pictures of an element.
#include "elements/passports/passport_record.h"

#include "elements/passports/element_files.h"
#include "elements/passports/igs_geology.h"
#include "elements/passports/inspection_table.h"
#include "elements/passports/measure_pictures.h"
#include "elements/passports/measure_tables.h"
#include "elements/passports/passport_elements.h"
#include "support/statement_relay.h"

namespace {

class PassportRecords : public PassportElements { };

struct MeasureCase {
    FamilyKey family;
    QStringList titles;
    QVector<QStringList> cells; // of element 2
};

const QString man = "Петров Пётр (Петров)";
const QString device = "коса (SN-1)";

const MeasureCase measureCases[] = {
    {FamilyKey::Dm,
     {"Цикл", "Абсолютная \n отметка", "Дата", "Прибор", "Исполнитель"},
     {{"Цикл 1", "12.3456", "06.01.2021", device, man}, {"Цикл 2", "13.5000", "07.02.2021", device, man}}},
    {FamilyKey::Rp,
     {"Цикл", "Абсолютная \n отметка", "Точность", "Дата", "Прибор", "Исполнитель"},
     {{"Цикл 1", "12.3456", "0.250000", "06.01.2021", device, man},
      {"Цикл 2", "13.5000", "0.500000", "07.02.2021", device, man}}},
    {FamilyKey::Ggs,
     {"Цикл", "Уровень ГВ", "Дата", "Прибор", "Исполнитель"},
     {{"Цикл 1", "3.2500", "06.01.2021", device, man}, {"Цикл 2", "4.5000", "07.02.2021", device, man}}},
    {FamilyKey::Tsg,
     {"Цикл", "Температура воздуха", "Температура обменника", "Дата", "Прибор", "Исполнитель"},
     {{"Цикл 1", "20.5000", "18.2500", "06.01.2021", device, man},
      {"Цикл 2", "10.5000", "8.2500", "07.02.2021", device, man}}},
    {FamilyKey::Tss,
     {"Цикл", "Плотность СП", "Высота СП", "Дата", "Прибор", "Исполнитель"},
     {{"Цикл 1", "0.2500", "40.5000", "06.01.2021", device, man},
      {"Цикл 2", "0.5000", "50.0000", "07.02.2021", device, man}}},
};

void PrintTo(const MeasureCase& c, std::ostream* out) { *out << passportFamily(c.family).passportName.toStdString(); }

class MeasuresByRow : public PassportElements, public ::testing::WithParamInterface<MeasureCase> { };

} // namespace

TEST_P(MeasuresByRow, ShowWhatTheFamilyMeasures)
{
    fillElements(GetParam().family);
    const PassportRecord record = recordOf(GetParam().family, 2);
    MeasureRows table(record);
    table.showMeasures();
    EXPECT_EQ(headersOf(table, Qt::Horizontal), GetParam().titles);
    EXPECT_EQ(cellsOf(table), GetParam().cells);
    EXPECT_EQ(table.measureAt(table.index(1, 0))->measureId, 3);
    EXPECT_EQ(table.measureAt({}), nullptr);
    EXPECT_FALSE(measurePicture(GetParam().family, record.measures, {400, 300}).isNull());
    EXPECT_TRUE(measurePicture(GetParam().family, {}, {400, 300}).isNull());
}

INSTANTIATE_TEST_SUITE_P(Families, MeasuresByRow, ::testing::ValuesIn(measureCases));

TEST_F(PassportRecords, AMissingSecondValueIsTold)
{
    fillElements(FamilyKey::Rp);
    database->exec("update rp_meas set precis = null, device_id = null, performer_id = null where meas_rp_id = 2");
    const PassportRecord record = recordOf(FamilyKey::Rp, 2);
    MeasureRows table(record);
    table.showMeasures();
    EXPECT_EQ(cellsOf(table)[0], (QStringList{"Цикл 1", "12.3456", "--", "06.01.2021", "", ""}));
}

TEST_F(PassportRecords, ProfilesStandSideBySide)
{
    fillElements(FamilyKey::Ts);
    database->exec("update ts_meas set meas = '0.50:-1.00|2.00:inf|3.00:-2.00' where meas_ts_id = 3");
    const PassportRecord record = recordOf(FamilyKey::Ts, 2);
    EXPECT_EQ(record.ground(), 48.5);
    ProfileTable table(record);
    table.showMeasures();
    EXPECT_EQ(ProfileTable::rowHeader(), "Абс.Отметка\n (Глубина), м.");
    EXPECT_EQ(headersOf(table, Qt::Horizontal), (QStringList{"Цикл 1", "Цикл 2"}));
    EXPECT_EQ(headersOf(table, Qt::Vertical),
              (QStringList{"Т. возд", "Дата", "Исполнитель", "Прибор", "49.50 (0.50)", "49.00 (1.00)", "48.00 (2.00)",
                           "47.00 (3.00)"}));
    EXPECT_EQ(cellsOf(table),
              (QVector<QStringList>{{"-5.25", "1.00"},
                                    {"06.01.2021", "07.02.2021"},
                                    {man, man},
                                    {device, device},
                                    {"-1.23", "-1.00"},
                                    {"-1.80", "--"},
                                    {"--", "--"},
                                    {"--", "-2.00"}}));
    EXPECT_EQ(table.measureAt(table.index(6, 1))->measureId, 3);
    EXPECT_TRUE(measurePicture(FamilyKey::Ts, record.measures, {400, 300}).isNull()) << "no series over time";
}

TEST_F(PassportRecords, AWellWithoutMeasuresHasAnEmptyTable)
{
    fillElements(FamilyKey::Ts);
    const PassportRecord record = recordOf(FamilyKey::Ts, 3);
    ProfileTable table(record);
    table.showMeasures();
    EXPECT_EQ(table.rowCount(), 0);
    EXPECT_EQ(table.columnCount(), 0);
}

TEST_F(PassportRecords, ManyMeasuresAreReadAsOneByOneInTwoStatements)
{
    for (const FamilyValues& values : familyValues)
        fillElements(values.family);
    database->exec("insert into ts_meas (element_id, cycle_id, date, t_vozd, meas) select 1, 3, date '2021-03-01' - n, "
                   "n, '0.5:' || n from generate_series(1, 60) n");
    for (const FamilyValues& values : familyValues) {
        const MeasureFamily& measured = *measureFamily(values.family);
        const Statement ids = compose(passportFamily(values.family).measures, 1);
        StatementRelay relay;
        session().sqlPort = relay.port();
        ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
        relay.refuse(-1);
        const Measures many = loadMeasuresOf(measured, ids);
        EXPECT_EQ(relay.statements(), 2);
        session().connection.finish();
        database.connect();
        const sql::Result rows = session().run(ids);
        ASSERT_EQ(int(many.size()), rows.ntuples());
        ASSERT_GT(rows.ntuples(), 0);
        for (int i = 0; i < rows.ntuples(); ++i) {
            const std::unique_ptr<BaseMeasure> one = makeMeasure(values.family);
            ASSERT_EQ(one->load(rows.toInt(i, 0)), measureOk);
            EXPECT_EQ(many[size_t(i)]->measureId, one->measureId);
            EXPECT_EQ(many[size_t(i)]->elementId, one->elementId);
            EXPECT_EQ(many[size_t(i)]->cycleId, one->cycleId);
            EXPECT_EQ(many[size_t(i)]->deviceId, one->deviceId);
            EXPECT_EQ(many[size_t(i)]->performerId, one->performerId);
            EXPECT_EQ(many[size_t(i)]->date, one->date);
            EXPECT_EQ(many[size_t(i)]->values, one->values);
            if (values.family == FamilyKey::Ts) {
                EXPECT_EQ(static_cast<TSMeasure&>(*many[size_t(i)]).profile, static_cast<TSMeasure&>(*one).profile);
            }
        }
    }
}

TEST_F(PassportRecords, MeasuresAreDeletedByTheirKey)
{
    for (const FamilyValues& values : familyValues) {
        fillElements(values.family);
        PassportRecord record = recordOf(values.family, 2);
        ASSERT_EQ(record.measures.size(), 2u);
        EXPECT_TRUE(record.deleteMeasure(2));
        record.readMeasures();
        ASSERT_EQ(record.measures.size(), 1u);
        EXPECT_EQ(record.measures[0]->measureId, 3);
    }
    PassportRecord geological(passportFamily(FamilyKey::Igs));
    EXPECT_FALSE(geological.deleteMeasure(1));
    EXPECT_FALSE(geological.deleteInspection(1));
}

TEST_F(PassportRecords, InspectionsStandByCycleInTheFamilysOrder)
{
    const QMap<FamilyKey, QStringList> rows = {
        {FamilyKey::Dm,
         {"Маркировка имени", "Маркировка марки", "Целостность конструкции ДМ", "Установка рейки", "Высокая рейка",
          "Удовлетворительное состояние ДМ", "Примечание", "Состояние"}},
        {FamilyKey::Ts,
         {"Маркировка имени", "Защитный кожух", "Крышка защитного кожуха", "Крышка термотрубки", "Утеплитель",
          "Наличие ледяной пробки в ТТ", "Наличие воды в ТТ", "Удовлетворительное состояние ТС", "Глубина, м",
          "Высота над землей(h), м", "Примечание", "Состояние"}},
        {FamilyKey::Rp,
         {"Ограждение", "Защитный колодец", "Крышка защитного колодца", "Обсадная труба", "Сальник", "Марка",
          "Удовлетворительное состояние RP", "Примечание", "Состояние"}},
        {FamilyKey::Ggs,
         {"Маркировка имени", "Защитный кожух", "Крышка защитного кожуха", "Крышка ствола", "Утеплитель",
          "Наличие ледяной пробки ", "Наличие воды в стволе", "Удовлетворительное состояние ГГС",
          "Уровень грунтовых вод, м", "Высота над землей(h), м", "Примечание", "Состояние"}},
        {FamilyKey::Tsg,
         {"Целостность конструкции ТСГ", "Удовлетворительное состояние ТСГ", "Примечание", "Состояние"}},
        {FamilyKey::Tss, {"Удовлетворительное состояние ТСC", "Примечание", "Состояние"}},
    };
    for (const FamilyFindings& c : familyFindings) {
        fillElements(c.family);
        const PassportRecord record = recordOf(c.family, 2);
        InspectionColumns table(record);
        table.showInspections();
        EXPECT_EQ(headersOf(table, Qt::Vertical), rows[c.family]) << c.prefix;
        EXPECT_EQ(headersOf(table, Qt::Horizontal), (QStringList{"Цикл 1", "Цикл 2", "Цикл 3"}));
        EXPECT_EQ(table.inspectionAt(0), 2);
        EXPECT_EQ(table.inspectionAt(2), -1);
        EXPECT_EQ(table.cycleAt(2), 3);
        const QVector<QStringList> cells = cellsOf(table);
        EXPECT_EQ(cells.last(), (QStringList{"Разрушена", "Существующий", "--"}));
        for (const QStringList& row : cells)
            EXPECT_EQ(row[2], "--");
    }
    const PassportRecord record = recordOf(FamilyKey::Rp, 1);
    InspectionColumns table(record);
    table.showInspections();
    QStringList first;
    for (const QStringList& row : cellsOf(table))
        first << row[0];
    EXPECT_EQ(first, (QStringList{"Да", "Нет", "Да", "Нет", "Да", "Да", "Да", "стоит", "Существующий"}));
}

TEST_F(PassportRecords, ManyInspectionsAreReadAsOneByOne)
{
    for (const FamilyFindings& c : familyFindings) {
        fillElements(c.family);
        const std::vector<InspectionRecord> many = loadInspectionsOf(*inspectionFamily(c.family), 2);
        ASSERT_EQ(many.size(), 2u) << c.prefix;
        for (const InspectionRecord& read : many) {
            InspectionRecord one(*inspectionFamily(c.family));
            ASSERT_TRUE(one.load(read.inspectId));
            EXPECT_EQ(read.values, one.values);
            EXPECT_EQ(read.cycleId, one.cycleId);
            EXPECT_EQ(read.elementId, one.elementId);
        }
        EXPECT_TRUE(loadInspectionsOf(*inspectionFamily(c.family), 3).empty());
    }
}

TEST_F(PassportRecords, TheLatestInspectionGivesTheState)
{
    fillElements(FamilyKey::Dm);
    PassportRecord record = recordOf(FamilyKey::Dm, 2);
    ASSERT_TRUE(record.deleteInspection(3));
    record.recomputeState();
    EXPECT_EQ(record.row.value(StateId), "broken");
    EXPECT_EQ(cell("state_id", family(FamilyKey::Dm), 2), "broken");
    ASSERT_TRUE(record.deleteInspection(2));
    record.recomputeState();
    EXPECT_EQ(record.row.value(StateId), "broken") << "without one the present state stays";
}

TEST_F(PassportRecords, TheLastInspectionOfAThermalWellTakesDepthAndHeightWithIt)
{
    fillElements(FamilyKey::Ts);
    database->exec("update ts_elements set state_id = 'broken' where element_id = 1");
    PassportRecord record = recordOf(FamilyKey::Ts, 1);
    record.recomputeState();
    EXPECT_EQ(record.row.value(StateId), "exist");
    EXPECT_EQ(record.row.value(Height), "0.75") << "as it was inspected";
    database->exec("update ts_elements set state_id = 'broken' where element_id = 1");
    record = recordOf(FamilyKey::Ts, 1);
    ASSERT_TRUE(record.deleteInspection(1));
    record.recomputeState();
    EXPECT_EQ(record.row.value(Height), "0");
    EXPECT_EQ(record.row.value(FirstExtra + 1), "0");
    EXPECT_EQ(record.row.value(FirstExtra), "12") << "the projected depth is no matter of inspections";
    EXPECT_EQ(record.row.value(StateId), "broken");
}

TEST_F(PassportRecords, PicturesAreStoredOnceASlot)
{
    for (const FamilyValues& values : familyValues) {
        fillElements(values.family);
        const Family& tables = family(values.family);
        QPixmap red(30, 20), blue(40, 10);
        red.fill(Qt::red);
        blue.fill(Qt::blue);
        for (const PictureSlot slot : pictureSlots)
            EXPECT_TRUE(loadPicture(tables, 1, slot).isNull());
        EXPECT_TRUE(storePicture(tables, 1, PictureSlot::Sketch, red));
        EXPECT_TRUE(storePicture(tables, 1, PictureSlot::Column, red));
        EXPECT_TRUE(storePicture(tables, 1, PictureSlot::Sketch, blue));
        EXPECT_EQ(database->rows(fill("select element_id, file_type from %1 order by file_type", tables.files)),
                  (QVector<QStringList>{{"1", "abris"}, {"1", "geocol"}}));
        EXPECT_EQ(loadPicture(tables, 1, PictureSlot::Sketch).size(), QSize(40, 10));
        EXPECT_EQ(loadPicture(tables, 1, PictureSlot::Sketch).toImage().pixelColor(3, 3), QColor(Qt::blue));
        EXPECT_TRUE(loadPicture(tables, 1, PictureSlot::Photo).isNull());
        EXPECT_TRUE(loadPicture(tables, 2, PictureSlot::Sketch).isNull());
    }
    database->exec("insert into dm_files (element_id, file_type, content) values (2, 'photo', 'no picture')");
    EXPECT_TRUE(loadPicture(family(FamilyKey::Dm), 2, PictureSlot::Photo).isNull());
    QPixmap any(3, 3);
    any.fill(Qt::green);
    EXPECT_FALSE(storePicture(family(FamilyKey::Dm), 99, PictureSlot::Photo, any));
    EXPECT_NE(console.take(), "") << "the server's words";
}

TEST_F(PassportRecords, TheDrillingOfAGeologicalWellIsInsertedOnceAndUpdated)
{
    fillElements(FamilyKey::Igs);
    IgsGeologyRow row;
    IgsGeology geology = row.read(1);
    EXPECT_FALSE(geology.drilled.isValid());
    EXPECT_TRUE(row.write(1, geology, IgsGeologyRow::Writer::Passport));
    const QString stored =
        "select element_id, description, drilling_date, ground_water_level from igs_geology_elements";
    EXPECT_EQ(database->rows(stored), (QVector<QStringList>{{"1", "", QString(), QString()}}));
    geology = {"сухая", QDate(2021, 3, 12), "4.5"};
    for (const auto writer : {IgsGeologyRow::Writer::Passport, IgsGeologyRow::Writer::Inspector}) {
        EXPECT_TRUE(row.write(1, geology, writer));
        EXPECT_EQ(database->rows(stored), (QVector<QStringList>{{"1", "сухая", "2021-03-12", "4.5"}}));
    }
    const IgsGeology again = IgsGeologyRow().read(1);
    EXPECT_EQ(again.drilled, QDate(2021, 3, 12));
    EXPECT_EQ(again.waterLevel, "4.5");
    geology.description = "д'Арк";
    EXPECT_FALSE(row.write(1, geology, IgsGeologyRow::Writer::Passport));
    EXPECT_EQ(database->rows(stored), (QVector<QStringList>{{"1", "сухая", "2021-03-12", "4.5"}}));
}

TEST_F(PassportRecords, DatesOfTheDrillingAreWrittenInTwoWays)
{
    fillElements(FamilyKey::Igs);
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    relay.refuse(-1);
    IgsGeologyRow row;
    const IgsGeology geology = {"", QDate(2021, 3, 12), ""};
    row.write(1, geology, IgsGeologyRow::Writer::Passport);
    row.write(1, geology, IgsGeologyRow::Writer::Inspector);
    const QStringList texts = relay.texts();
    session().connection.finish();
    database.connect();
    EXPECT_TRUE(texts.value(0).contains("(1,'','12-03-2021',null)")) << texts.value(0);
    const QString key = database->value("select geology_id from igs_geology_elements");
    EXPECT_EQ(texts.value(1),
              "update igs_geology_elements set (element_id,description, drilling_date, "
              "ground_water_level) = (1,'','2021-03-12',null) where geology_id="
                  + key + ";");
}

TEST_F(PassportRecords, DatesOfTheDrillingAreReadAsTyped)
{
    QDate date;
    EXPECT_TRUE(readDrillingDate("", date));
    EXPECT_FALSE(date.isValid());
    EXPECT_TRUE(readDrillingDate(" 29.02.2020 ", date));
    EXPECT_EQ(date, QDate(2020, 2, 29));
    for (const char* wrong : {"29.02.2021", "2021", "31.12", "12.3.2021x"})
        EXPECT_FALSE(readDrillingDate(wrong, date)) << wrong;
}

TEST(PassportFamilies, MessagesNameTheFamily)
{
    const PassportFamily& marks = passportFamily(FamilyKey::Dm);
    EXPECT_EQ(inspectionMessage(marks, InspectionChange::Created, "М-1"),
              "Для деформационной марки М-1 успешно создана ведомость обследования");
    EXPECT_EQ(inspectionMessage(marks, InspectionChange::Edited, "М-1"),
              "Для деформационной марки М-1 обновлена ведомость обследования");
    EXPECT_EQ(inspectionMessage(marks, InspectionChange::Copied, "М-1"),
              "Для деформационной марки М-1 создана ведомость обследования");
    EXPECT_EQ(inspectionMessage(marks, InspectionChange::Deleted, "М-1"),
              "Для деформационной марки М-1 удалена ведомость обследования");
    EXPECT_EQ(inspectionMessage(passportFamily(FamilyKey::Rp), InspectionChange::Deleted, "Р-1"),
              "Для репера Р-1 удалена ведомость обследования");
}
