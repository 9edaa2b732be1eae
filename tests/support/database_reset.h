#pragma once
// A project database made as new, in place of a new one: emptied, what the schema
// itself brings put back, all numbers counted from the start.

#include "database/sql/connection.h"

#include <QString>

class DatabaseReset {
public:
    /// Takes down what a fresh database holds.
    explicit DatabaseReset(const sql::Connection& fresh);

    /// False when tables, rules, rights or settings are no longer those of a fresh
    /// database, or when it has grown; it is then left as it is.
    bool operator()(const sql::Connection& used) const;

private:
    QString shape_;
    QString script_;
    qint64 most_ = 0; ///< bytes of a database that is worth using again
};
