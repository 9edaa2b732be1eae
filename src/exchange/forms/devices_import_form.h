// Instruments out of a file: the user says what each column holds.
#pragma once

#include "exchange/device_import.h"
#include "exchange/forms/file_format_controls.h"

#include <QDialog>

class RoleView;

class DevicesImportForm : public QDialog, private FileFormatControls {
    Q_OBJECT

public:
    explicit DevicesImportForm(QWidget* parent = nullptr);

private:
    void chooseFile();
    void readFile();
    void showDevices();
    void runImport();

    QLineEdit* fileName_;
    RoleView* raw_;
    QTableWidget* preview_;
    QStringList lines_;
    QVector<DeviceRecord> devices_;
};
