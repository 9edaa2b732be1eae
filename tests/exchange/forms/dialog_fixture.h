// The import dialogs on a project, driven as a user would.
#pragma once

#include "exchange/forms/family_import_dialogs.h"
#include "exchange/forms/ts_import_dialog.h"
#include "session/project_session.h"
#include "support/console_capture.h"
#include "support/position_session.h"

#include <script/modal_driver.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

class ImportDialogs : public ::testing::Test {
protected:
    static constexpr const char* wellsTitle = "Импорт измерений термоскважин";
    static constexpr const char* ownFormat = "Terva CSV(*.csv)";

    void SetUp() override
    {
        for (const char* family : {"ts", "dm", "rp", "ggs", "tsg", "tss"})
            database->exec(QString("insert into %1_elements (element_id, element_name, state_id, position_id) "
                                   "overriding system value values (1, 'Т-1', 'exist', 7), (2, 'Т-2', 'exist', 7), "
                                   "(3, 'Д-1', 'exist', 8)")
                               .arg(family));
        database->exec("insert into cycles (cycle_id, number, date_start, date_end, description) "
                       "overriding system value values (1, 1, '2021-01-01', '2021-01-31', 'зима'), "
                       "(2, 2, '2021-02-01', '2021-02-28', NULL)");
        database->exec("insert into devices (device_id, name, serial, description) overriding system value "
                       "values (1, 'коса', 'SN-1', 'новая')");
        database->exec("insert into performers (performer_id, fullname, name) overriding system value "
                       "values (1, 'Иванов Иван', 'Иванов')");
    }

    QString write(const QByteArray& bytes, const QString& name = "file.csv")
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return file.fileName();
    }

    // The wells' dialog takes a file of the system's own format.
    ExpectedWindow openWells(const QString& path)
    {
        driver.expect(wellsTitle).set("ImportTemplate", ownFormat).press("OpenFileBtn");
        return driver.expect("Открыть файл").files({path});
    }

    PositionSession database;
    QTemporaryDir folder;
    ConsoleCapture console;
    ModalDriver driver;
};

inline const QByteArray wellFile = "Имя;Серийный номер;Дата замера;Время замера;Темп.возд;1;2;3\r\n"
                                   "T.1;SN-1;05.01.2021;12:00:00;-5;-1;-1.1;-1.2\r\n"
                                   "Т-2;SN-1;05.01.2021;12:00:00;;-1;-1.1;-1.2\r\n"
                                   "Т-9;SN-9;05.09.2021;12:00:00;-5;обрыв;;\r\n";
