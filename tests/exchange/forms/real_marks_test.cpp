// Levellings of years through the dialogs: what is stored equals the file, to its last digit.
#include "exchange/forms/dialog_fixture.h"

#include "base/placeholders.h"
#include "base/text.h"

#include <QComboBox>
#include <QLabel>

namespace {

struct RealMarks {
    FamilyKey family;
    const char* name;
    int rows;
    int stored; // of different elements or dates
};

using Reading = QPair<QString, QDate>;

// The file read by rules of its own: plain cells, a comma for a point.
QMap<Reading, QStringList> expectedOf(const QString& path, bool withPrecision)
{
    QMap<Reading, QStringList> expected;
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    lines.removeFirst();
    for (const QString& line : lines) {
        const QStringList cells = line.trimmed().split(';');
        QStringList values{fixed(QString(cells[2]).replace(',', '.').toDouble(), 4)};
        if (withPrecision)
            values << fixed(QString(cells[3]).replace(',', '.').toDouble(), 6);
        expected[{cells[0], QDate::fromString(cells[1], "dd.MM.yyyy")}] = values;
    }
    return expected;
}

class RealLevellings : public ImportDialogs, public ::testing::WithParamInterface<RealMarks> {
protected:
    // An element a name, a cycle a day: years of the last century among them.
    void makeProject(const QString& table, const QMap<Reading, QStringList>& readings)
    {
        database->exec("delete from " + table + "; delete from cycles; delete from devices");
        database->exec("insert into devices (serial) values ('SN-0001')");
        QSet<QString> names;
        QSet<QDate> days;
        for (auto reading = readings.begin(); reading != readings.end(); ++reading) {
            names << reading.key().first;
            days << reading.key().second;
        }
        QStringList elements, cycles;
        for (const QString& name : names)
            elements << fill("('%1', 'exist', 7)", name);
        for (const QDate& day : days)
            cycles << fill("(%1, '%2', '%2')", cycles.size() + 1, day.toString(Qt::ISODate));
        database->exec("insert into " + table + " (element_name, state_id, position_id) values " + elements.join(", "));
        database->exec("insert into cycles (number, date_start, date_end) values " + cycles.join(", "));
    }
};

} // namespace

TEST_P(RealLevellings, AreStoredAsTheyStandInTheFile)
{
    const RealMarks& file = GetParam();
    const bool benchmarks = file.family == FamilyKey::Rp;
    const QString path = QStringLiteral(TERVA_SOURCE_DIR "/tests/data/settlement/") + file.name;
    const QMap<Reading, QStringList> expected = expectedOf(path, benchmarks);
    ASSERT_EQ(expected.size(), file.stored);
    const Family& family = ::family(file.family);
    makeProject(family.elements, expected);

    ExpectedWindow form = driver.expect(importFamily(file.family)->title);
    form.press("OpenFileBtn");
    driver.expect("Открыть файл").files({path});
    form.step("rows", {"measuresView", QString::number(file.rows)})
        .set("OperatorCombo", "data:1")
        .press("BTNOperatorToAll")
        .press("ImportBtn");
    if (!benchmarks) // no norm, no mark before
        driver.expect("Внимание").textContains("содержит невалидные данные").press("Да для всех");
    if (file.stored < file.rows)
        driver.expect("Внимание").textContains("уже содержит измерения").press("Да для всех");
    form.press("CloseBtn");
    MeasureImportDialog(*importFamily(file.family)).exec();
    ASSERT_TRUE(driver.done()) << driver.report();

    QMap<Reading, QStringList> stored;
    for (const QStringList& row :
         database->rows(fill("select element_name, date, meas::numeric(12,4)%1 from %2 join %3 using (element_id)",
                             benchmarks ? ", precis::numeric(12,6)" : "", family.measures, family.elements)))
        stored[{row[0], QDate::fromString(row[1], Qt::ISODate)}] = row.mid(2);
    EXPECT_EQ(stored, expected);
    EXPECT_EQ(database->value("select count(*) from " + family.measures).toInt(), file.stored);
}

INSTANTIATE_TEST_SUITE_P(Settlement, RealLevellings,
                         ::testing::Values(RealMarks{FamilyKey::Dm, "amsterdam-readings.csv", 314, 314},
                                           RealMarks{FamilyKey::Dm, "gnss-vertical.csv", 171, 171},
                                           RealMarks{FamilyKey::Rp, "amsterdam-benchmarks.csv", 330, 330}));
