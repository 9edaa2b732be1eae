#pragma once
// A database that was made by another version or changed by hand lacks tables
// or columns; commands would then fail one by one and each in its own words.

#include <QStringList>
#include <QVector>

class ProjectSession;

struct SchemaTable {
    QString name; ///< of a table or a view
    QStringList columns;
};

/// What the statements count on.
QVector<SchemaTable> expectedSchema();

/// "таблица devices", "столбец positions.appearence"; empty when all is there,
/// and when the server does not say. One statement.
QStringList missingInSchema(const ProjectSession& session);

/// One line on the command line, where something is missing.
void tellMissingInSchema(const ProjectSession& session);
