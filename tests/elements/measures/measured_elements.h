// Elements of every family with measures in two of three cycles.
#pragma once

#include "base/placeholders.h"
#include "elements/measures/family_measures.h"
#include "support/console_capture.h"
#include "support/position_session.h"

#include <gtest/gtest.h>

struct FamilyValues {
    FamilyKey family;
    const char* prefix;
    const char* columns;
    const char* first;  ///< of element 1 in cycle 1, and of element 2 in cycle 1
    const char* second; ///< of element 2 in cycle 2
};

const FamilyValues familyValues[] = {
    {FamilyKey::Dm, "dm", "meas", "12.3456", "13.5"},
    {FamilyKey::Ts, "ts", "t_vozd,meas", "-5.25,'0.50:-1.23|1.00:-1.80'", "1.00,'0.50:-1.00|2.00:-2.00'"},
    {FamilyKey::Rp, "rp", "meas,precis", "12.3456,0.25", "13.5,0.5"},
    {FamilyKey::Tss, "tss", "meas_density,meas_heigth", "0.25,40.5", "0.5,50.0"},
    {FamilyKey::Ggs, "ggs", "meas", "3.25", "4.5"},
    {FamilyKey::Tsg, "tsg", "env_temp,exchanger_temp", "20.5,18.25", "10.5,8.25"},
};

inline void PrintTo(const FamilyValues& c, std::ostream* out) { *out << c.prefix; }

/// Position 7 holds the elements 1 "Т-10" and 2 "Т-2", position 8 the element 3
/// "Д-1". Measure 1 is of element 1 in cycle 1; 2 and 3 of element 2 in the
/// cycles 1 and 2; cycle 3 is empty.
class MeasuredElements : public ::testing::Test {
protected:
    MeasuredElements()
    {
        database->exec("insert into cycles (cycle_id, number, date_start, date_end, description) "
                       "overriding system value values (1, 1, '2021-01-01', '2021-01-31', 'зима'), "
                       "(2, 2, '2021-02-01', '2021-02-28', ''), (3, 3, '2021-03-01', '2021-03-31', 'весна');"
                       "insert into devices (device_id, name, serial, description) overriding system value "
                       "values (1, 'коса', 'SN-1', 'новая'), (2, 'коса', 'SN-2', null);"
                       "insert into performers (performer_id, fullname, name) overriding system value "
                       "values (1, 'Иванов Иван', 'Иванов'), (2, 'Петров Пётр', 'Петров')");
        session().reloadCycles();
    }
    ~MeasuredElements() override
    {
        session().cycles.clear();
        session().cycleOrder.clear();
        session().baseCycleId = session().currentCycleId = -1;
    }
    void fillFamily(const FamilyValues& c)
    {
        database->exec(fill("insert into %1_elements (element_id, element_name, state_id, position_id) "
                            "overriding system value values (1, 'Т-10', 'exist', 7), (2, 'Т-2', 'exist', 7), "
                            "(3, 'Д-1', 'exist', 8)",
                            c.prefix));
        // Measures that are made later get other ids than those below.
        database->exec(fill("alter table %1 alter %2 restart with 1000", measureFamily(c.family)->measureTable,
                            measureFamily(c.family)->idColumn));
        insertMeasure(c, 1, 1, 1, "'2021-01-05'", c.first);
        insertMeasure(c, 2, 2, 1, "'2021-01-06'", c.first);
        insertMeasure(c, 3, 2, 2, "'2021-02-07'", c.second);
    }
    void insertMeasure(const FamilyValues& c, int id, int element, int cycle, const QString& date,
                       const QString& values, const QString& device = "1")
    {
        const MeasureFamily& f = *measureFamily(c.family);
        database->exec(fill("insert into %1 (%2,element_id,cycle_id,device_id,date,%3,performer_id) overriding system "
                            "value values (%4,%5,%6,%7,%8,%9,2)",
                            f.measureTable, f.idColumn, c.columns, id, element, cycle, device, date, values));
    }
    QVector<QStringList> stored(const FamilyValues& c)
    {
        return database->rows(fill("select element_id,cycle_id,device_id,date,%1,performer_id from %2_meas order by "
                                   "element_id,cycle_id",
                                   c.columns, c.prefix));
    }

    PositionSession database;
    ConsoleCapture console;
};
