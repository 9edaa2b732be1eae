// Elements of every family with inspections in two of three cycles.
#pragma once

#include "base/placeholders.h"
#include "elements/inspections/inspections_by_cycle.h"
#include "session/project_session.h"
#include "support/console_capture.h"
#include "support/position_session.h"

#include <gtest/gtest.h>

struct FamilyFindings {
    FamilyKey family;
    const char* prefix;
    QString columns; ///< in the order of the record
    QString first;   ///< stored values of inspection 1
};

inline const FamilyFindings familyFindings[] = {
    {FamilyKey::Dm, "dm", "marknumber,markmark,constructintegrity,railset,inspectresult,note,state_id,h_railset",
     "1,0,1,0,1,'цела','exist',1"},
    {FamilyKey::Ts, "ts",
     "namemarked,protectcase,casecover,ttcover,insulation,iceinpipe,waterinpipe,inspectresult,note,state_id,depth,h",
     "1,0,1,0,1,0,1,1,'сухо','exist',10.5,0.75"},
    {FamilyKey::Rp, "rp", "fence,protectpit,protectpitcover,protectpipe,mark,inspectresult,note,state_id,sealing",
     "1,0,1,0,1,1,'стоит','exist',1"},
    {FamilyKey::Tss, "tss", "inspectresult,note,state_id", "1,'видна','exist'"},
    {FamilyKey::Ggs, "ggs",
     "inspectresult,note,state_id,namemarked,protectcase,casecover,ttcover,insulation,iceinpipe,waterinpipe,h,meas",
     "1,'вода','exist',1,0,1,0,1,0,1,0.5,3.25"},
    {FamilyKey::Tsg, "tsg", "integrity,inspectresult,note,state_id", "1,0,'цел','exist'"},
};

inline void PrintTo(const FamilyFindings& c, std::ostream* out) { *out << c.prefix; }

/// Position 7 holds the elements 1 "Т-10" and 2 "Т-2", position 8 the element 3
/// "Д-1". Inspection 1 is of element 1 in cycle 1; 2 and 3 of element 2 in the
/// cycles 1 (broken) and 2 (exist).
class InspectedElements : public ::testing::Test {
protected:
    InspectedElements()
    {
        database->exec("insert into cycles (cycle_id, number, date_start, date_end, description) "
                       "overriding system value values (1, 1, '2021-01-01', '2021-01-31', 'зима'), "
                       "(2, 2, '2021-02-01', '2021-02-28', ''), (3, 3, '2021-03-01', '2021-03-31', 'весна');"
                       "insert into states (state_id, note, colorindex) values ('broken', 'Разрушена', 1)");
        session().reloadCycles();
        session().reloadStates();
    }
    ~InspectedElements() override
    {
        session().cycles.clear();
        session().cycleOrder.clear();
        session().states.clear();
        session().baseCycleId = session().currentCycleId = -1;
    }
    void fillFamily(const FamilyFindings& c)
    {
        database->exec(fill("insert into %1_elements (element_id, element_name, state_id, position_id) "
                            "overriding system value values (1, 'Т-10', 'exist', 7), (2, 'Т-2', 'exist', 7), "
                            "(3, 'Д-1', 'broken', 8);"
                            "alter table %1_inspection alter inspect_id restart with 1000;"
                            "insert into %1_inspection (inspect_id,element_id,cycle_id,%2) overriding system value "
                            "values (1,1,1,%3), (2,2,1,%3), (3,2,2,%3);"
                            "update %1_inspection set state_id = 'broken' where inspect_id = 2",
                            c.prefix, c.columns, c.first));
    }
    QVector<QStringList> stored(const FamilyFindings& c)
    {
        return database->rows(fill("select element_id,cycle_id,%1,length(photos) from %2_inspection order by "
                                   "element_id,cycle_id",
                                   c.columns, c.prefix));
    }
    QString state(const FamilyFindings& c, int element)
    {
        return database->value(fill("select state_id from %1_elements where element_id = %2", c.prefix, element));
    }
    static QPixmap picture(int width = 40, int height = 30)
    {
        QPixmap made(width, height);
        made.fill(Qt::darkGreen);
        return made;
    }

    PositionSession database;
    ConsoleCapture console;
};
