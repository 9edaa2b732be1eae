#pragma once
// What a fuzzer does with the Word engine, shared with the tests.

#include <QByteArray>
#include <QString>

/// The package that an input stands for. Bytes that begin like a container are
/// one; anything else is a text of parts, each behind a line "@@name", which
/// reaches deeper than bytes whose checksums never fit. Parts that a package
/// needs and the text lacks are added.
QByteArray fuzzPackage(const QByteArray& input);

/// Opens, fills, extends and saves. Gives what is wrong: a saved file that does
/// not open again. Empty when all is well.
QString fuzzOpen(const QByteArray& input);

/// Merges the package as the first and as a later file.
QString fuzzMerge(const QByteArray& input);
