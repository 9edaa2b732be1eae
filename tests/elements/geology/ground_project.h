#pragma once
// A position with a thermal well, three geological wells and a catalogue of grounds.

#include "elements/geology/ground_layers.h"
#include "support/console_capture.h"
#include "support/position_session.h"

#include <gtest/gtest.h>

class GroundProject : public ::testing::Test {
protected:
    static constexpr int well = 1; ///< a thermal one
    static constexpr int near = 11, far = 12, bare = 13;
    static constexpr int sand = 101, loam = 102;

    void SetUp() override
    {
        forget();
        database->exec(
            "insert into ts_elements (element_id, element_name, state_id, position_id, x, y, z) overriding system "
            "value values (1, 'Т-1', 'exist', 7, 100, 200, 50);"
            "insert into igs_elements (element_id, element_name, state_id, position_id, x, y, z) overriding system "
            "value values (11, 'С-1', 'exist', 7, 103, 204, 51.5), (12, 'С-2', 'exist', 8, 100, 230, 48.25), "
            "(13, 'С-3', 'exist', 7, 100, 200, 50);"
            "insert into geology_ege_catalog (ege_id, project_id, code, name, hatch_pattern_name, hatch_scale, "
            "color_hex) overriding system value values (101, 1, '2', 'Песок', 'sand', 0.5, '#FFEEAA'), "
            "(102, 1, '1а', 'Суглинок', 'loam.pat', null, null);"
            "insert into igs_geology_layers (element_id, ege_id, depth_from, depth_to, description) values "
            "(11, 102, 1.5, 4.25, 'мёрзлый'), (11, 101, 0, 1.5, null), (12, null, 0, 3, 'нет данных');"
            "insert into ts_geology_layers (element_id, ege_id, depth_from, depth_to, description) values "
            "(1, 101, 0, 9, 'прежний')");
        database->exec("alter table geology_ege_catalog alter ege_id restart with 200");
    }
    void TearDown() override { forget(); }

    QVector<QStringList> stored(const QString& table = "ts_geology_layers")
    {
        return database->rows("select element_id, ege_id, depth_from, depth_to, description from " + table
                              + " order by element_id, depth_from, layer_id");
    }

    PositionSession database;
    ConsoleCapture console;

private:
    void forget()
    {
        database->exec("delete from igs_geology_layers; delete from ts_geology_layers; delete from "
                       "geology_ege_catalog");
    }
};
