#include "database/audit/audit_log_proxy.h"

void AuditLogViewerProxyModel::setLog(AuditLogModel* log)
{
    log_ = log;
    // Connected first, so that this comes before the base class asks for the new entries.
    connect(log, &QAbstractItemModel::modelReset, this, &AuditLogViewerProxyModel::forget);
    setSourceModel(log);
}

void AuditLogViewerProxyModel::forget()
{
    tables_.verdicts.clear();
    operations_.verdicts.clear();
}

// The whole mapping is made anew: told of one by one, the rows that come and go
// would take minutes where there are many.
void AuditLogViewerProxyModel::setPattern(Pattern& target, const QString& pattern)
{
    target.expression.setPattern(pattern);
    target.verdicts.clear();
    invalidate();
}

bool AuditLogViewerProxyModel::passes(const Pattern& pattern, int number) const
{
    while (pattern.verdicts.size() <= number)
        pattern.verdicts.append(-1);
    signed char& verdict = pattern.verdicts[number];
    if (verdict < 0)
        verdict = pattern.expression.match(log_->entries().textOfNumber(number)).hasMatch() ? 1 : 0;
    return verdict == 1;
}

bool AuditLogViewerProxyModel::filterAcceptsRow(int row, const QModelIndex&) const
{
    const AuditEntries& entries = log_->entries();
    return passes(tables_, entries.number(row, AuditEntries::Table))
        && passes(operations_, entries.number(row, AuditEntries::Operation));
}

bool AuditLogViewerProxyModel::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    return log_->entries().compare(AuditEntries::Column(left.column()), left.row(), right.row()) < 0;
}
