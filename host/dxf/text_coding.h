// How texts stand in drawing files: code pages of old versions, escapes.
#pragma once

#include <QByteArray>
#include <QString>

class QTextCodec;

// Name of a drawing's code page ("ANSI_1251", "dos866") to its codec; null for
// a name that is unknown here.
QTextCodec* codecOfCodePage(const QByteArray& name);

// Whether the bytes are well-formed UTF-8.
bool isUtf8(const QByteArray& bytes);

// Replaces the escapes of characters outside a file's code page: \U+XXXX, four
// hexadecimal digits of a UTF-16 unit, and \M+NXXXX, a code page number 1..5 and
// four digits of its two bytes.
QString withoutUnicodeEscapes(const QString& text);

// A control character stands in a file as a circumflex and a character ("^J" is
// a line feed), the circumflex itself as "^ " where it could be taken for the
// begin of such a pair. Both directions.
QString fromCaretCoding(const QString& text);
QString toCaretCoding(const QString& text);
