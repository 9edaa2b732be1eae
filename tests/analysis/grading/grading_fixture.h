// Two positions in a fresh database: the first one has norms, two marks, three
// wells and a profile, the second one nothing.
#pragma once

#include "support/form_texts.h"
#include "support/session_database.h"

#include <script/modal_driver.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

class GradingFixture : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        database.exec(
            "insert into positions_attributes (position_id, temperature_deep_min, temperature_deep_max, "
            "temperature_h, temperature_bf, base_depth, averagediff, relativediff) "
            "values (1, 1, 3, -1, -0.5, 2, 10, 0.004);"
            "insert into dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
            "overriding system value values (1, 'dm', 'М1', 'exist', 1, 0, 0, 0, 0), "
            "(2, 'dm', 'М2', 'exist', 1, 10, 0, 0, 0);"
            "insert into dm_meas (element_id, cycle_id, date, meas) values (1, 1, '2022-12-10', 10), "
            "(2, 1, '2022-12-10', 20), (1, 2, '2023-07-10', 9.98), (2, 2, '2023-07-10', 20);"
            "insert into ts_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
            "overriding system value values (1, 'ts', 'Т1', 'exist', 1, 0, 0, 0, 0), "
            "(2, 'ts', 'Т2', 'exist', 1, 0, 0, 0, 0), (3, 'ts', 'Т3', 'exist', 1, 0, 0, 0, 0);"
            "insert into ts_meas (element_id, cycle_id, date, meas) values "
            "(1, 2, '2023-07-15', '1:-1|2:-1.5|3:-2|4:-2'), (2, 2, '2023-07-15', '1:-0.7|3:-0.7|4:-0.7'), "
            "(1, 1, '2022-12-15', '1:-2|3:-2|4:-2');"
            "insert into deformation_profiles (profile_id, position_id, profile_name) overriding system value "
            "values (1, 1, 'Ось А');"
            "insert into deformation_profiles_points (profile_id, element_id, param, dist) values "
            "(1, 1, 0, 0), (1, 2, 1, 10)");
        session().baseCycleId = 1;
    }
    void TearDown() override
    {
        session().baseCycleId = -1;
        SessionDatabase::TearDown();
    }
    static QStringList row(const QTableWidget& table, int row)
    {
        QStringList texts;
        for (int column = 0; column < table.columnCount(); ++column)
            texts << table.item(row, column)->text();
        return texts;
    }
    ModalDriver driver;
};
