#pragma once
// The catalogue of engineering-geological elements (ИГЭ). What an entry
// consists of is not fixed here: its fields are those columns of the table that
// have a comment in the database, the comment being the field's caption.

#include "base/statement.h"

#include <QMap>
#include <QStringList>
#include <QVector>
#include <optional>

struct EgeColumn {
    QString name;
    QString type; ///< as the database writes it: "double precision", "character varying(20)"
    QString comment;
    bool isRequired = false; ///< may not be null

    bool isText() const;   ///< goes between quotes
    bool isNumber() const; ///< real
    QString caption() const;
};
using EgeColumns = QVector<EgeColumn>;

/// Values by the names of columns.
using EgeValues = QMap<QString, QString>;

/// The columns of the dialog and of the files, without the keys; nothing when
/// the server refused.
std::optional<EgeColumns> loadEgeColumns();
std::optional<EgeColumns> loadEgeFileColumns();

/// What a new entry starts with.
QString startOfEgeColumn(const QString& name);

QVector<int> loadEgeIds();
/// The entry's values; nothing when there is none.
std::optional<EgeValues> loadEge(const EgeColumns& columns, int id);

/// Whether another entry of the session's project has the code; -1 is no entry.
bool isEgeCodeTaken(const QString& code, int id);

/// How many layers are made of the entry; nothing when the server refused.
std::optional<int> countEgeUses(int id);

/// The value as a piece of a statement: a text between quotes, a number as it
/// is; a number left empty is 0 where the type is double precision, else NULL.
Statement egeValue(const EgeColumn& column, const QString& value);

/// Writes the columns that `values` has.
Statement egeUpdate(const EgeColumns& columns, const EgeValues& values, int id);
/// The same as a new entry of the session's project.
enum class Returning { Nothing, Key };
Statement egeInsert(const EgeColumns& columns, const EgeValues& values, Returning returning);
