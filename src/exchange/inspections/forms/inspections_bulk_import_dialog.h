#pragma once

#include "exchange/inspections/forms/bulk_exchange_dialog.h"

/// Asks into which cycle inspections are read, and where from.
class InspectionsBulkImportDialog : public BulkExchangeDialog {
    Q_OBJECT

public:
    explicit InspectionsBulkImportDialog(QWidget* parent = nullptr);

protected:
    QString askPath() override;
};
