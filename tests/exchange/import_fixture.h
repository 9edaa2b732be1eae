// A project with wells, marks, cycles, devices and performers to import into.
#pragma once

#include "exchange/measure_reading.h"
#include "session/project_session.h"
#include "support/console_capture.h"
#include "support/position_session.h"

#include <gtest/gtest.h>
#include <memory>

// Position 7 (the current one) has the elements 1 and 2, position 8 the element
// 3. Three cycles of a month each, 2021.
class ImportProject : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (const char* family : {"ts", "dm", "rp", "ggs", "tsg", "tss"})
            database()->exec(QString("insert into %1_elements (element_id, element_name, state_id, position_id) "
                                     "overriding system value values (1, 'Т-1', 'exist', 7), (2, 'Т-2', 'exist', 7), "
                                     "(3, 'Д-1', 'exist', 8)")
                                 .arg(family));
        database()->exec("insert into cycles (cycle_id, number, date_start, date_end, description) "
                         "overriding system value values (1, 1, '2021-01-01', '2021-01-31', 'зима'), "
                         "(2, 2, '2021-02-01', '2021-02-28', ''), (3, 3, '2021-03-01', '2021-03-31', 'весна')");
        database()->exec("insert into devices (device_id, name, serial, description) overriding system value "
                         "values (1, 'коса', 'SN-1', 'новая'), (2, 'коса', 'SN-2', NULL)");
        database()->exec("insert into performers (performer_id, fullname, name) overriding system value "
                         "values (1, 'Иванов Иван', 'Иванов'), (2, 'Петров Пётр', 'Петров')");
        loadCycles(lists);
        loadDevices(lists);
        loadPerformers(lists);
    }

    PositionSession& database() { return database_; }

    // Position 7's criteria; "null" for a missing one.
    void setNorms(const QString& averageDiff, const QString& from = "null", const QString& to = "null")
    {
        database()->exec("insert into positions_attributes (position_id, averagediff, temperature_deep_min, "
                         "temperature_deep_max) values (7, "
                         + averageDiff + ", " + from + ", " + to + ")");
    }

    ReadingTask task(FamilyKey family, const QStringList& lines, bool allBase = false)
    {
        ReadingTask reading;
        reading.lines = lines;
        reading.separator = ";";
        reading.format = &importFamily(family)->templates.last();
        reading.lists = lists;
        reading.positionId = PositionSession::position;
        EXPECT_TRUE(loadScope(measureFamily(family)->elementTable, reading.positionId, allBase, reading.scope));
        return reading;
    }
    void read(MeasureTable& table, FamilyKey family, const QStringList& lines, bool allBase = false)
    {
        const ReadingTask reading = task(family, lines, allBase);
        table.setMeasures(readMeasures(*importFamily(family), reading), reading.scope);
    }
    static QString cell(const MeasureTable& table, int row, int column)
    {
        return table.index(row, column).data().toString();
    }
    static bool isChecked(const MeasureTable& table, int row)
    {
        return table.index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    }
    static bool isEnabled(const MeasureTable& table, int row)
    {
        return table.flags(table.index(row, 0)) & Qt::ItemIsEnabled;
    }

    MeasureLists lists;

private:
    PositionSession database_;
};

inline const QString markHeader = QStringLiteral("Имя;Дата;Отметка;SN прибора");
inline const QString wellHeader = QStringLiteral("Имя;Серийный номер;Дата замера;Время замера;Темп.возд;1;2;3;4");
