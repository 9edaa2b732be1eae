// What the management of measures writes, the import reads.
#include "base/placeholders.h"
#include "elements/measures/measure_export.h"
#include "exchange/import_fixture.h"
#include "exchange/measure_import.h"
#include "exchange/measure_table.h"

namespace {

class ExportReadBack : public ImportProject {
protected:
    QVector<QStringList> stored(const QString& statement) { return database()->rows(statement); }

    // Exports all measures of the family, deletes them, imports the file.
    int throughAFile(FamilyKey family)
    {
        const MeasureFamily& measured = *measureFamily(family);
        session().cycleOrder = {1, 2, 3};
        const CycleRows rows = readMeasureRows(measured, {}).value();
        const QString text = exportText(family, loadMeasures(measured, rows, session().cycleOrder).value());
        session().cycleOrder.clear();
        EXPECT_TRUE(deleteMeasures(measured, rows, 1) && deleteMeasures(measured, rows, 2));
        MeasureTable table(*importFamily(family));
        QStringList lines = text.split('\n');
        lines.removeLast();
        read(table, family, lines, true);
        table.givePerformer(1);
        return importMeasures(*importFamily(family), table.candidates(),
                              [](const QString&) { return ImportAnswer::YesToAll; });
    }
};

} // namespace

TEST_F(ExportReadBack, NumbersComeBackToTheWrittenDigits)
{
    const struct {
        FamilyKey family;
        const char* table;
        const char* columns;
        const char* values[3];
    } cases[] = {
        {FamilyKey::Dm, "dm_meas", "meas", {"101.125", "-0.001", "99.5"}},
        {FamilyKey::Rp, "rp_meas", "meas,precis", {"101.1234,0.25", "-0.0001,1.5", "99.5,0.01"}},
        {FamilyKey::Ggs, "ggs_meas", "meas", {"3.25", "-0.75", "12"}},
    };
    for (const auto& c : cases) {
        database()->exec(fill("insert into %1 (element_id,cycle_id,device_id,date,%2,performer_id) values "
                              "(1,1,1,'2021-01-05',%3,1), (2,2,2,'2021-02-28',%4,1), (3,1,1,'2021-01-31',%5,1)",
                              c.table, c.columns, c.values[0], c.values[1], c.values[2]));
        const QString all =
            fill("select element_id,cycle_id,device_id,date,%2,performer_id from %1 order by 1", c.table, c.columns);
        const QVector<QStringList> before = stored(all);
        EXPECT_EQ(throughAFile(c.family), 3) << c.table;
        EXPECT_EQ(stored(all), before) << c.table;
    }
}

TEST_F(ExportReadBack, ProfilesOfOtherDepthsComeBackFromOneFile)
{
    database()->exec("insert into ts_meas (element_id,cycle_id,device_id,date,t_vozd,meas,performer_id) values "
                     "(1,1,1,'2021-01-05',-5.25,'0.00:-1.20|0.50:-1.23|1.00:0.00',1), "
                     "(1,2,2,'2021-02-05',3.5,'0.00:-1.10|0.50:-1.13|1.00:0.10',1), "
                     "(2,1,1,'2021-01-06',0,'2.00:-0.05|10.00:-3.40',1)");
    const QString all = "select element_id,cycle_id,device_id,date,t_vozd,meas,performer_id from ts_meas order by 1,2";
    const QVector<QStringList> before = stored(all);
    EXPECT_EQ(throughAFile(FamilyKey::Ts), 3);
    EXPECT_EQ(stored(all), before);
}
