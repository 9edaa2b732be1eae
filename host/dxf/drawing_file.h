// The stand-in's file format: DXF as text, R2007 or later, in UTF-8.
//
// Files are told by what they hold, not by their name: the module names its
// drawings and blocks "*.dwg", and here such a file holds DXF text. Files of
// older versions are read (in their code page) and written as R2007.
//
// Where the format has no word for what a drawing holds, extension data under
// the application name "TERVA" says it; other programs keep it and show what
// stands beside it:
//   - a reference whose dynamic properties differ from their defaults points to
//     an anonymous block with the evaluated entities; its extension data name
//     the definition and the values. References with equal values share one.
//   - a definition's parameters and rules stand at its block record.
//   - a table is a reference to an anonymous block of lines and texts; its cells
//     stand in the extension data.
// On reading, all three become again what they were.
//
// What is read and not understood is kept and written back: header variables,
// records of tables, classes, entities, objects, sections and single groups,
// with their handles.
#pragma once

#include <nrx/database.h>

// Fill a drawing that holds its empty tables only and is being loaded; the way
// in is NcDbDatabase::readDwgFile. FileAccess: the file is missing or cannot be
// read. FileFormat: it is no such text, was cut short, or its blocks hold
// themselves or nest beyond measure. Either leaves the drawing as it was; so does
// work that was stopped (drawing/long_work.h), which is told as FileAccess.
NRX_API NcStatus readDrawing(NcDbDatabase& database, const QString& path);
NRX_API NcStatus readDrawingBytes(NcDbDatabase& database, const QByteArray& bytes);

// Why the last drawing was not read, for the user; empty when it was.
NRX_API QString drawingFault();

// Empty when the work was stopped.
NRX_API QByteArray drawingBytes(const NcDbDatabase& database);
// Written beside the path and moved over it; FileAccess when that fails, and
// what was there stays and the reason is given.
NRX_API NcStatus writeDrawing(const NcDbDatabase& database, const QString& path, QString* problem = nullptr);
