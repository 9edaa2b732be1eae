#pragma once
// The entries of the audit log as a table that is read only.

#include "database/audit/audit_entries.h"

#include <QAbstractTableModel>
#include <memory>

class AuditLogModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit AuditLogModel(QObject* parent = nullptr);

    /// Shows these entries instead of those before.
    void show(std::unique_ptr<AuditEntries> entries);
    const AuditEntries& entries() const { return *entries_; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    std::unique_ptr<AuditEntries> entries_;
};
