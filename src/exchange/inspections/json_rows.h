// Rows of a result as JSON, and values of JSON as pieces of statements: the two
// directions in which field inspections travel.
#pragma once

#include "base/statement.h"
#include "database/sql/result.h"

#include <QJsonArray>
#include <QJsonObject>

/// A field by its column's name and the text that the server gave:
/// - a name with "photo" or "content" in it: the bytes in base64, `unescaped`
///   or, when that failed, the text's own;
/// - a name that is "id" or ends in "_id": the text;
/// - a text of digits, points and minus signs that reads as a number: a number;
/// - t, true, f, false in any case: a bool; anything else: the text.
QJsonValue fieldValue(const QString& column, const QByteArray& text, const QByteArray& unescaped);

/// The same for a cell; null where it is absent.
QJsonValue fieldValue(const sql::Result& rows, int row, int column);

/// One object a row, its keys the names of the columns.
QJsonObject rowObject(const sql::Result& rows, int row);
QJsonArray rowObjects(const sql::Result& rows);

/// A value for the place behind "column =": texts, arrays and objects between
/// quotes with theirs doubled, numbers by their shortest text, bools as 1 and 0.
Statement valueStatement(const QJsonValue& value);

/// The bytes of a base64 text; false when it is none or empty. The alphabet is
/// the plain one, blanks and line breaks are no part of it, the padding stands.
bool decodeBase64(const QString& text, QByteArray& bytes);
