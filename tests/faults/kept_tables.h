#pragma once
// What all tables of a test's database hold, and the way back to it.

#include "support/test_database.h"

#include <QMap>
#include <QSet>
#include <QStringList>

/// Without what differs from run to run: keys of new rows, numbers of groups and the moment.
QString withoutKeys(QString text);

inline QSet<QString> setOf(const QStringList& lines) { return QSet<QString>(lines.begin(), lines.end()); }

class KeptTables {
public:
    /// Keeps what stands now, beside; new keys of every table are far from those that stand.
    explicit KeptTables(TestDatabase& database);

    /// Every row of every table, without keys, sorted.
    QStringList rows() const;
    const QStringList& beginning() const { return beginning_; }
    /// Lays back the tables in which `found` differs from the beginning.
    void layBack(const QStringList& found) const;

private:
    TestDatabase& database_;
    QMap<QString, QString> scripts_; // that lay a table anew
    QString look_;                   // at every row
    QStringList beginning_;
};
