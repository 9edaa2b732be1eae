#pragma once
// What writes files, and the folder and database in which the program itself does it again and again.

#include "scenario.h"
#include "support/test_database.h"

#include <QTemporaryDir>
#include <ostream>
#include <vector>

struct Writer {
    const char* name;
    const char* scenario; ///< whose database it writes from
    const char* file;     ///< in the folder of results
    const char* script;   ///< behind the loading of the project; it ends where the writing is told to be done
};

void PrintTo(const Writer& writer, std::ostream* stream);

/// One of each kind of file.
const std::vector<Writer>& writers();

class WriterWorld {
public:
    /// The script is played behind the loading of the project, and behind `start()`.
    WriterWorld(const QString& scenario, const QString& script);

    /// The folders as they are before a run: the scenario's files, and nothing in that of results.
    void layOld();
    /// Lays a file that says "old" into the folder of results.
    void layOld(const QString& file);
    QByteArray content(const QString& file) const;
    /// What lies in the folder of results.
    QStringList results() const;

    QString work() const { return folder_.filePath("work"); }
    QString out() const { return folder_.filePath("out"); }
    /// An empty script that is read when the script proper begins.
    QString start() const { return folder_.filePath("start"); }

    static QString program();
    QStringList arguments() const;
    TestDatabase& database() { return database_; }

private:
    TestDatabase database_;
    QTemporaryDir folder_;
    QString scenario_;
    Variables variables_;
};
