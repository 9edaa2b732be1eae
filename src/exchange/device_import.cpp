#include "exchange/device_import.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "exchange/standing_answer.h"
#include "exchange/text_file.h"
#include "hostkit/console.h"
#include "session/project_session.h"

namespace {

bool refuse(const DeviceRecord& device, const sql::Result& result)
{
    say(fill("\nОшибка: устройство %1 не записано: %2", device.serial, result.errorMessage().trimmed()));
    return false;
}

bool insertDevice(const DeviceRecord& device)
{
    const sql::Result row = session().run(
        compose("insert into devices (name, serial, description) values ('%1','%2','%3') returning device_id",
                device.name, device.serial, device.description));
    if (!row.hasRow())
        return refuse(device, row);
    say(fill("Добавлено устройство %1-%2-%3 (ID:%4)", device.name, device.serial, device.description,
             row.getvalue(0, 0)));
    return true;
}

bool updateDevice(const DeviceRecord& device, int id)
{
    const sql::Result row =
        session().run(compose("update devices set (name, serial, description) = ('%1','%2','%3') where device_id=%4",
                              device.name, device.serial, device.description, id));
    if (!row.isCommand())
        return refuse(device, row);
    say(fill("Обновление устройства  SN: %1  (ID: %2)", device.serial, id));
    return true;
}

bool importDevice(const DeviceRecord& device, StandingAnswer& update, const ImportQuestion& ask)
{
    const sql::Result found = session().run(compose("select device_id from devices where serial='%1'", device.serial));
    if (!found.isTuples())
        return refuse(device, found);
    if (!found.hasRow())
        return insertDevice(device);
    const int id = found.toInt(0, 0);
    // The blanks keep the box from being narrow.
    if (update.agrees(
            ask, fill("Устройство с SN %1 уже есть в базе .                \n Обновить данные замену?", device.serial)))
        return updateDevice(device, id);
    say(fill("Пропуск устройства  SN: %1  (ID: %2)", device.serial, id));
    return false;
}

} // namespace

QVector<DeviceRecord> readDevices(const QStringList& lines, const QString& separator, const ColumnRoles& roles)
{
    QVector<DeviceRecord> devices;
    for (const QString& line : lines) {
        const QStringList cells = splitCells(line, separator);
        const auto cell = [&](int role) { return cells.value(roles.columnOf(role)).trimmed(); };
        const DeviceRecord device{cell(DeviceRole::Name), cell(DeviceRole::Serial), cell(DeviceRole::Description)};
        if (!(device.name + device.serial + device.description).isEmpty())
            devices.append(device);
    }
    return devices;
}

int importDevices(const QVector<DeviceRecord>& devices, const ImportQuestion& ask)
{
    StandingAnswer update;
    int written = 0;
    for (const DeviceRecord& device : devices) {
        if (device.isValid())
            written += importDevice(device, update, ask) ? 1 : 0;
    }
    return written;
}
