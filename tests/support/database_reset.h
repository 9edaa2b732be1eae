#pragma once
// A project database made as new, in place of a new one: emptied, what the schema
// itself brings put back, all numbers counted from the start.

#include "database/sql/connection.h"

#include <QHash>
#include <QString>
#include <QVector>

class DatabaseReset {
public:
    /// Takes down what a fresh database holds.
    explicit DatabaseReset(const sql::Connection& fresh);

    /// False when tables, rules, rights or settings are no longer those of a fresh
    /// database, or when it has grown; it is then left as it is. Nobody else may
    /// be connected to the database afterwards but through `used`.
    bool operator()(const sql::Connection& used, const QString& database);

private:
    /// Rows that came, changed or went, as the server counts them.
    struct Counts {
        qint64 catalogue = 0;
        QHash<QString, qint64> tables;
        QString settings; ///< what the server keeps of the database beside it
    };
    struct Table {
        QString name;   ///< quoted
        QString script; ///< makes it as new
    };

    static Counts countsOf(const sql::Connection& used);
    QString scriptFor(const Counts& now, const Counts* before) const;

    QString shape_, systems_;
    QVector<Table> tables_;
    QString numbers_;             ///< script that sets the sequences
    qint64 most_ = 0;             ///< bytes of a database that is worth using again
    QHash<QString, Counts> left_; ///< by database, as it was made new the last time
};
