// A project with three wells and a catalogue of soils.
#pragma once

#include "exchange/geology/geology_import.h"
#include "support/console_capture.h"
#include "support/position_session.h"

#include <gtest/gtest.h>

class GeologyProject : public ::testing::Test {
protected:
    void SetUp() override
    {
        database->exec(
            "insert into igs_elements (element_id, element_name, state_id, position_id, z) overriding system "
            "value values (1, 'С-1', 'exist', 7, 10), (2, 'С-2', 'exist', 7, 20), (3, 'Д-1', 'exist', 8, 30);"
            "delete from igs_geology_layers; delete from geology_ege_catalog;"
            "insert into geology_ege_catalog (ege_id, project_id, code, name) overriding system value "
            "values (101, 1, '1а', 'Песок'), (102, 1, '2', 'Суглинок')");
    }
    void TearDown() override { database->exec("delete from igs_geology_layers; delete from geology_ege_catalog"); }

    QVector<QStringList> layers()
    {
        return database->rows("select element_id, ege_id, depth_from, depth_to from igs_geology_layers order by 1, 3");
    }
    QVector<QStringList> records()
    {
        return database->rows("select element_id, drilling_date from igs_geology_elements order by 1");
    }

    PositionSession database;
    ConsoleCapture console;
};
