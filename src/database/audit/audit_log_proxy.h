#pragma once
// Narrows and sorts the audit log. A million entries are narrowed at once: a
// pattern is asked once for every text that occurs, not for every entry.

#include "database/audit/audit_log_model.h"

#include <QRegularExpression>
#include <QSortFilterProxyModel>

class AuditLogViewerProxyModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit AuditLogViewerProxyModel(QObject* parent = nullptr) : QSortFilterProxyModel(parent) { }

    /// The log that is shown; not owned.
    void setLog(AuditLogModel* log);

    /// An entry is shown when both patterns match somewhere in its table and in
    /// its operation; an empty one lets everything pass.
    void setTablePattern(const QString& pattern) { setPattern(tables_, pattern); }
    void setOperationPattern(const QString& pattern) { setPattern(operations_, pattern); }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    struct Pattern {
        QRegularExpression expression;
        mutable QVector<signed char> verdicts; ///< by a text's number; -1 is not known yet
    };
    void setPattern(Pattern& target, const QString& pattern);
    bool passes(const Pattern& pattern, int number) const;
    void forget();

    AuditLogModel* log_ = nullptr;
    Pattern tables_;
    Pattern operations_;
};
