#pragma once

#include "exchange/inspections/forms/bulk_exchange_dialog.h"

class QCheckBox;

/// Asks which cycle's inspections are written, and where to.
class InspectionsBulkExportDialog : public BulkExchangeDialog {
    Q_OBJECT

public:
    explicit InspectionsBulkExportDialog(QWidget* parent = nullptr);

    bool analyticOnly() const;

protected:
    QString askPath() override;

private:
    InspectionsBulkExportDialog(QCheckBox* analytic, QWidget* parent);

    QCheckBox* analytic_;
};
