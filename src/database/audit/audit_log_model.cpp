#include "database/audit/audit_log_model.h"

AuditLogModel::AuditLogModel(QObject* parent) : QAbstractTableModel(parent), entries_(std::make_unique<AuditEntries>())
{ }

void AuditLogModel::show(std::unique_ptr<AuditEntries> entries)
{
    beginResetModel();
    entries_ = std::move(entries);
    endResetModel();
}

int AuditLogModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : entries_->count(); }

int AuditLogModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(AuditEntries::ColumnCount);
}

QVariant AuditLogModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    return entries_->text(index.row(), AuditEntries::Column(index.column()));
}

QVariant AuditLogModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const char* const titles[] = {"Таблица", "Операция",      "Пользователь",
                                         "Время",   "Старые данные", "Новые данные"};
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < columnCount())
        return QString::fromUtf8(titles[section]);
    return QAbstractTableModel::headerData(section, orientation, role);
}
