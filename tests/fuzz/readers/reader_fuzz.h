#pragma once
// What a fuzzer does with the readers of drawings, project files and survey
// files, shared with the tests. Each step gives what is wrong; empty when all
// is well.

#include <QByteArray>
#include <QString>

/// Reads a drawing, walks it, saves it and reads that again: what was taken in
/// once is taken again and says the same when saved.
QString fuzzDrawing(const QByteArray& input);

/// Reads a project file, saves a session of its values and reads that again.
QString fuzzProject(const QByteArray& input);

/// The first byte chooses encoding and separator. The rest goes through all
/// readers of delimited files: measures of every family and format, elements,
/// devices, geology.
QString fuzzTable(const QByteArray& input);
