#pragma once
// What an XML file may hold.

#include <QString>

/// The text without the characters that XML has no word for: control signs (a
/// soft line break pasted from a word processor is one), halves of surrogate
/// pairs, U+FFFE and U+FFFF. A file that holds them cannot be read again.
QString storableInXml(const QString& text);

/// Whether the elements of a file stand in each other deeper than `most`. A tree
/// of such a file is built and cleared by recursion and would end the program.
/// Reads no further than to the first fault of the file.
bool isNestedDeeper(const QByteArray& xml, int most = 256);
