#pragma once
// Devices and performers: the lists and the dialogs that edit an entry.

#include "database/catalogues/forms/catalogue_rows.h"

/// Brings devices out of a file. Those who read files say at start how.
using DevicesImport = std::function<void(QWidget* parent)>;
void setDevicesImport(DevicesImport import);

class DevicesListForm : public formkit::CatalogueList {
    Q_OBJECT

public:
    explicit DevicesListForm(QWidget* parent = nullptr);

private:
    void importDevices();
};

class PerformersListForm : public formkit::CatalogueList {
    Q_OBJECT

public:
    explicit PerformersListForm(QWidget* parent = nullptr) : CatalogueList(performersCatalogue(), parent) { }
};

class DeviceForm : public formkit::RecordDialog {
    Q_OBJECT

public:
    explicit DeviceForm(QWidget* parent = nullptr) : RecordDialog(deviceRecord(), parent) { }
};

class PerformerForm : public formkit::RecordDialog {
    Q_OBJECT

public:
    explicit PerformerForm(QWidget* parent = nullptr) : RecordDialog(performerRecord(), parent) { }
};
