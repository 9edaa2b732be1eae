#pragma once
// The module's session on a fresh database with a small project, and what is
// printed meanwhile. For tests of whatever works on session().

#include "support/console_capture.h"
#include "support/session_wiring.h"

#include <gtest/gtest.h>

class SessionDatabase : public ::testing::Test {
protected:
    void SetUp() override
    {
        connectSession(database);
        session().connected = true;
        database.exec("insert into projects (project_id, name, owner, location, code) overriding system value "
                      "values (1, 'Город', 'Владелец', 'Место', 'Ш-1');"
                      "insert into objects (object_id, project_id, object, appearence) overriding system value "
                      "values (1, 1, 'Объект', 1);"
                      "insert into subobjects (subobject_id, object_id, subobject, appearence) "
                      "overriding system value values (1, 1, 'Подобъект', 1);"
                      "insert into positions (position_id, subobject_id, position, appearence) "
                      "overriding system value values (1, 1, 'Позиция 1', 1), (2, 1, 'Позиция 2', 2);"
                      "insert into cycles (cycle_id, number, date_start, date_end, description) "
                      "overriding system value values (1, 1, '2022-12-01', '2022-12-31', 'Зима'), "
                      "(2, 2, '2023-07-01', '2023-07-31', 'Лето');");
        ProjectSession& s = session();
        s.reloadCycles();
        s.reloadStates();
        s.stateFilter = s.states;
        s.currentPositionId = 1;
        s.currentCycleId = 2;
    }

    void TearDown() override
    {
        disconnectSession();
        ProjectSession& s = session();
        s.connected = false;
        s.sqlPort = QString();
        s.currentPositionId = s.currentCycleId = s.projectId = -1;
        s.deformationColormapId = -2;
        s.temperatureColormapId = s.dynamicTemperatureColormapId = -3;
        s.stateFilter.clear();
    }

    /// The session's connection ends, and no new one can be made.
    void loseServer()
    {
        session().connection.finish();
        session().sqlPort = QStringLiteral("1");
    }

    TestDatabase database;
    ConsoleCapture console;
};
