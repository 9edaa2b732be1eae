// The catalogue of instruments out of a file.
#pragma once

#include "exchange/column_roles.h"
#include "exchange/measure_import.h"

#include <QStringList>

namespace DeviceRole {
enum { Name, Serial, Description, Count };
}

struct DeviceRecord {
    QString name;
    QString serial;
    QString description;

    bool isValid() const { return !serial.isEmpty(); }
};

/// A record a line that holds anything; a role without a column is empty.
QVector<DeviceRecord> readDevices(const QStringList& lines, const QString& separator, const ColumnRoles& roles);

/// Writes the valid records; of a serial that is known the user is asked. Prints
/// what became of each, and what the server refused. Returns how many were written.
int importDevices(const QVector<DeviceRecord>& devices, const ImportQuestion& ask);
