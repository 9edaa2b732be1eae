#include "exchange/inspections/json_rows.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <QVariant>

namespace {

bool holdsBytes(const QString& column)
{
    return column.contains(QLatin1String("photo")) || column.contains(QLatin1String("content"));
}

bool isId(const QString& column) { return column.endsWith(QLatin1String("_id")) || column == QLatin1String("id"); }

QJsonValue plainValue(const QString& text)
{
    static const QRegularExpression foreign(QStringLiteral("[^0-9.-]"));
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (isNumber && !text.contains(foreign))
        return number;
    const QString lower = text.toLower();
    if (lower == QLatin1String("t") || lower == QLatin1String("true"))
        return true;
    if (lower == QLatin1String("f") || lower == QLatin1String("false"))
        return false;
    return text;
}

Statement quoted(QString text) { return compose("'%1'", text.replace(QLatin1Char('\''), QStringLiteral("''"))); }

} // namespace

QJsonValue fieldValue(const QString& column, const QByteArray& text, const QByteArray& unescaped)
{
    if (holdsBytes(column))
        return QString::fromLatin1((unescaped.isNull() ? text : unescaped).toBase64());
    if (isId(column))
        return QString::fromUtf8(text);
    return plainValue(QString::fromUtf8(text));
}

QJsonValue fieldValue(const sql::Result& rows, int row, int column)
{
    if (rows.isNull(row, column))
        return QJsonValue(QJsonValue::Null);
    const QString name = rows.fname(column);
    return fieldValue(name, rows.bytes(row, column),
                      holdsBytes(name) ? rows.unescapedBytes(row, column) : QByteArray());
}

QJsonObject rowObject(const sql::Result& rows, int row)
{
    QJsonObject object;
    for (int column = 0; column < rows.nfields(); ++column)
        object.insert(rows.fname(column), fieldValue(rows, row, column));
    return object;
}

QJsonArray rowObjects(const sql::Result& rows)
{
    QJsonArray objects;
    for (int row = 0; row < rows.ntuples(); ++row)
        objects.append(rowObject(rows, row));
    return objects;
}

Statement valueStatement(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::String: return quoted(value.toString());
    case QJsonValue::Double: return compose("%1", Numeral(value.toVariant().toString()));
    case QJsonValue::Bool: return value.toBool() ? "1" : "0";
    case QJsonValue::Array:
        return quoted(QString::fromUtf8(QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact)));
    case QJsonValue::Object:
        return quoted(QString::fromUtf8(QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact)));
    case QJsonValue::Null:
    case QJsonValue::Undefined: break;
    }
    return "NULL";
}

bool decodeBase64(const QString& text, QByteArray& bytes)
{
    const QByteArray encoded = text.toLatin1(); // a letter beyond Latin becomes "?", which is none of the alphabet
    bytes.clear();
    if (encoded.isEmpty() || encoded.size() % 4 != 0)
        return false;
    const auto decoded =
        QByteArray::fromBase64Encoding(encoded, QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return false;
    bytes = decoded.decoded;
    return !bytes.isEmpty();
}
