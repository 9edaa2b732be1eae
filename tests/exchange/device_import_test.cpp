// The catalogue of instruments out of a file.
#include "exchange/device_import.h"

#include "exchange/import_fixture.h"
#include "exchange/standing_answer.h"

namespace {

class Devices : public ImportProject {
protected:
    void SetUp() override
    {
        ImportProject::SetUp();
        database()->exec("select setval(pg_get_serial_sequence('devices', 'device_id'), 100)");
    }
    QVector<DeviceRecord> read(const QStringList& lines)
    {
        ColumnRoles roles(DeviceRole::Count);
        for (int role = 0; role < DeviceRole::Count; ++role)
            roles.give(role, role);
        return readDevices(lines, ";", roles);
    }
    int run(const QVector<DeviceRecord>& devices, QVector<ImportAnswer> answers = {})
    {
        asked.clear();
        const int written = importDevices(devices, [&](const QString& text) {
            asked << text;
            return answers.isEmpty() ? ImportAnswer::No : answers.takeFirst();
        });
        EXPECT_TRUE(answers.isEmpty());
        return written;
    }
    QVector<QStringList> stored()
    {
        return database()->rows("select name, serial, description from devices order by device_id");
    }

    QStringList asked;
    ConsoleCapture console;
};

} // namespace

TEST(ColumnRoles, ARoleHasOneColumnAndAColumnOneRole)
{
    ColumnRoles roles(3);
    EXPECT_EQ(roles.columnOf(1), -1);
    EXPECT_EQ(roles.roleOf(-1), -1) << "roles without a column are of none";
    roles.give(1, 4);
    EXPECT_EQ(roles.roleOf(4), 1);
    roles.give(2, 4);
    EXPECT_FALSE(roles.has(1));
    roles.give(2, 0);
    EXPECT_EQ(roles.roleOf(4), -1);
    roles.clear(0);
    EXPECT_FALSE(roles.has(2));
}

TEST(StandingAnswers, AnswersForAllSilenceTheQuestion)
{
    int questions = 0;
    ImportAnswer next = ImportAnswer::Yes;
    const ImportQuestion ask = [&](const QString&) {
        ++questions;
        return next;
    };
    StandingAnswer answer;
    EXPECT_TRUE(answer.agrees(ask, ""));
    next = ImportAnswer::No;
    EXPECT_FALSE(answer.agrees(ask, ""));
    next = ImportAnswer::NoToAll;
    EXPECT_FALSE(answer.agrees(ask, ""));
    EXPECT_FALSE(answer.agrees(ask, ""));
    EXPECT_EQ(questions, 3);
    StandingAnswer other;
    next = ImportAnswer::YesToAll;
    EXPECT_TRUE(other.agrees(ask, ""));
    next = ImportAnswer::No;
    EXPECT_TRUE(other.agrees(ask, ""));
    EXPECT_EQ(questions, 4);
}

TEST_F(Devices, LinesBecomeRecordsByTheRoles)
{
    const auto devices = read({" коса ; SN-7 ; новая;лишнее", "", ";;", "без номера", ";SN-8"});
    ASSERT_EQ(devices.size(), 3);
    EXPECT_EQ(devices[0].name, "коса");
    EXPECT_EQ(devices[0].serial, "SN-7");
    EXPECT_EQ(devices[0].description, "новая");
    EXPECT_FALSE(devices[1].isValid());
    EXPECT_TRUE(devices[2].isValid()) << "a name may be missing";
    ColumnRoles serialAlone(DeviceRole::Count);
    serialAlone.give(DeviceRole::Serial, 0);
    EXPECT_EQ(readDevices({"SN-1;коса"}, ";", serialAlone)[0].name, "");
}

TEST_F(Devices, NewOnesAreAddedAndThoseWithoutASerialPassedOver)
{
    EXPECT_EQ(run(read({"коса;SN-7;новая", "без номера;;"})), 1);
    EXPECT_EQ(stored().last(), QStringList({"коса", "SN-7", "новая"}));
    const QString id = database()->value("select device_id from devices where serial = 'SN-7'");
    EXPECT_EQ(console.text(), "Добавлено устройство коса-SN-7-новая (ID:" + id + ")");
    EXPECT_TRUE(asked.isEmpty());
}

TEST_F(Devices, OfAKnownSerialTheUserIsAsked)
{
    const auto devices = read({"а;SN-1;б", "в;SN-2;г"});
    EXPECT_EQ(run(devices, {ImportAnswer::Yes, ImportAnswer::No}), 1);
    EXPECT_EQ(asked.first(), "Устройство с SN SN-1 уже есть в базе .                \n Обновить данные замену?");
    EXPECT_EQ(stored(), QVector<QStringList>({{"а", "SN-1", "б"}, {"коса", "SN-2", QString()}}));
    EXPECT_EQ(console.take(), "Обновление устройства  SN: SN-1  (ID: 1)Пропуск устройства  SN: SN-2  (ID: 2)");
    EXPECT_EQ(run(devices, {ImportAnswer::NoToAll}), 0);
    EXPECT_EQ(run(devices, {ImportAnswer::YesToAll}), 2);
    EXPECT_EQ(stored().last(), QStringList({"в", "SN-2", "г"}));
}

TEST_F(Devices, WhatTheServerDoesNotTakeIsToldAndTheRestGoesOn)
{
    EXPECT_EQ(run(read({"О'Нил;SN-7;", "коса;SN'8;", "коса;SN-9;"})), 1);
    EXPECT_TRUE(console.text().contains("\nОшибка: устройство SN-7 не записано: "));
    EXPECT_TRUE(console.text().contains("\nОшибка: устройство SN'8 не записано: "));
    EXPECT_EQ(stored().size(), 3);
}
