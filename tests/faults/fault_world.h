#pragma once
// One scenario's database and folder, in which a command is played again and
// again, each time from the same beginning.

#include "kept_tables.h"
#include "scenario.h"
#include "support/statement_relay.h"
#include "support/test_database.h"

#include <QTemporaryDir>
#include <memory>

constexpr int mostStatements = 400; ///< of a run that ends

/// What befalls a run: at its n-th statement, counted from 1.
struct Fault {
    enum Kind { None, Refused, Cut }; ///< Cut: the link, behind the answer
    Kind kind = None;
    int statement = -1;
};

/// What a run has left, and what the user was told.
struct Outcome {
    QStringList rows;       ///< of all tables; keys that the server gave are left out
    QStringList blocks;     ///< what the drawing holds
    QStringList files;      ///< beside those of the project
    QString said;           ///< console, boxes, labels and sizes of lists
    QString stopped;        ///< why the script did not go on; empty for a whole run
    bool met = false;       ///< whether there was such a statement
    QStringList statements; ///< that were asked

    bool isSame(const Outcome& other) const
    {
        return rows == other.rows && blocks == other.blocks && files == other.files;
    }
};

class FaultWorld {
public:
    explicit FaultWorld(const QString& scenario);
    ~FaultWorld();
    FaultWorld(const FaultWorld&) = delete;
    FaultWorld& operator=(const FaultWorld&) = delete;

    /// Lays the beginning anew, loads the project, and plays the script.
    Outcome play(const QString& script, Fault fault = {});
    /// The tables before any run.
    const QStringList& beginning() const { return tables_->beginning(); }

private:
    void arm(Fault fault);
    void reset();
    QStringList filesMade(bool withDrawings) const;

    TestDatabase database_;
    StatementRelay relay_;
    QTemporaryDir folder_;
    QString scenario_;
    Variables variables_;
    std::unique_ptr<KeptTables> tables_;
    QStringList found_; // by the last run
};
