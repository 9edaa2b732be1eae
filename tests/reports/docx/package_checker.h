#pragma once
// Judges a Word package by the rules that Word enforces.

#include <QString>
#include <QStringList>

/// Every breach found, empty for a sound package: entries stand once under
/// plain names; every XML part is well formed with its namespaces declared;
/// every part has one content type, no declaration stands twice or names a part
/// that is not there; relationship ids are unique names and lead to parts;
/// every "r:" reference has its relationship, a picture's one of type image;
/// ids of drawings differ from each other in the whole package.
QStringList findFaults(const QString& path);

/// Those of a written file that the file it was made of did not have.
QStringList newFaults(const QString& written, const QString& source);
