#pragma once
// Devices and performers: the lists and the dialogs that edit an entry.

#include "database/catalogues/forms/catalogue_rows.h"

class DevicesListForm : public formkit::CatalogueList {
    Q_OBJECT

public:
    explicit DevicesListForm(QWidget* parent = nullptr) : CatalogueList(devicesCatalogue(), parent) { }
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
