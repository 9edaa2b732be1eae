#pragma once
// What a text may hold to stand in an XML file.

#include <QString>

/// The text without the characters that XML has no word for: control signs (a
/// soft line break pasted from a word processor is one), halves of surrogate
/// pairs, U+FFFE and U+FFFF. A file that holds them cannot be read again.
QString storableInXml(const QString& text);
