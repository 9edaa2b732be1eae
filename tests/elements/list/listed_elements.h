// Elements of all seven families for the list of elements.
#pragma once

#include "base/placeholders.h"
#include "elements/list/element_changes.h"
#include "session/project_session.h"
#include "support/console_capture.h"
#include "support/position_session.h"

#include <gtest/gtest.h>

/// Each family has the elements 1 "XX-1" and 2 "XX-10" in position 7 and 3
/// "XX-2" in position 8, XX being its key. Element 1 of each family with
/// measures has them in the cycles 2 and 1, by date, and a photo and two sketches.
class ListedElementsTest : public ::testing::Test {
protected:
    ListedElementsTest()
    {
        database->exec("insert into cycles (cycle_id, number, date_start, date_end, description) "
                       "overriding system value values (1, 11, '2021-01-01', '2021-01-31', 'зима'), "
                       "(2, 12, '2020-02-01', '2020-02-28', '');"
                       "insert into states (state_id, note, colorindex) values ('broken', 'Разрушена', 1)");
        session().reloadCycles();
        for (const Family& family : families())
            fillFamily(family);
    }
    ~ListedElementsTest() override
    {
        session().cycles.clear();
        session().cycleOrder.clear();
    }
    void fillFamily(const Family& family)
    {
        const QString type = database->value(fill("select min(type_id) from %1", family.types));
        database->exec(fill("insert into %1 (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
                            "overriding system value values (1, '%3', '%2-1', 'exist', 7, 1.5, 2.25, 10, 0), "
                            "(2, '%3', '%2-10', 'exist', 7, 3, 4, 5, 6), (3, '%3', '%2-2', 'broken', 8, 0, 0, 0, 0)",
                            family.elements, family.shortKey, type));
        if (family.measures.isEmpty())
            return;
        database->exec(fill("insert into %1 (element_id, cycle_id, date) values (1, 1, '2021-01-05'), "
                            "(1, 2, '2020-02-05');"
                            "insert into %2 (element_id, file_type) values (1, 'photo'), (1, 'abris'), (1, 'abris');"
                            "insert into %3 (element_id, props) values (1, '')",
                            family.measures, family.files, family.dynprops));
    }
    QString stored(const Family& family, const QString& column, int element)
    {
        return database->value(fill("select %1 from %2 where element_id = %3", column, family.elements, element));
    }

    PositionSession database;
    ConsoleCapture console;
};
