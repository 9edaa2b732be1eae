#pragma once
// A scenario: a folder that says what a user does, and what must hold after it.

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

using Variables = QMap<QString, QString>;

/// The folders of tests/scenario that hold a script, sorted by name.
QStringList scenarioNames();
/// The folder of a scenario, or of what they share ("common").
QString scenarioFolder(const QString& name);

/// What the file `settings` says.
struct ScenarioSettings {
    enum class Database { WithProject, Empty, None };
    Database database = Database::WithProject;
    int exitCode = 0;
    QStringList onStderr;
    QStringList unchanged;
    QStringList missing;
    QStringList lacking; ///< a path and a text each
    QStringList modes;   ///< octal rights and a path each
    /// Lines that say nothing known.
    QStringList unknown;
};
ScenarioSettings readSettings(const QString& name);

/// Whether the script asks for the verbs of this test's own.
bool wantsPlayer(const QString& name);

/// ${NAME} filled in; unknown names stay.
QString expand(QString text, const Variables& variables);
/// The whole of a text file, expanded; empty when there is none.
QString readText(const QString& path, const Variables& variables);
/// The same of a file of statements, in which a line "-- include wells.sql"
/// stands for a file of common/.
QString readStatements(const QString& path, const Variables& variables);

/// Lays the files of the scenario, and of what all share, into the user's folder.
bool layFiles(const QString& name, const QString& folder, const Variables& variables);
