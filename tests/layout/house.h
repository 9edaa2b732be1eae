// The house as its build files and includes draw it.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

struct Folder {
    QString path; // below src/, e.g. "analysis/contour"
    QString target;
    int level = -1;
    QStringList links; // targets, as its CMakeLists names them
};

struct SourceFile {
    QString path;         // below the repository
    QStringList included; // as written between quotes or angle brackets
    int lines = 0;
    QString text;
};

// Folders of src/ that declare a library.
QVector<Folder> foldersOfHouse();

// All .h and .cpp files below a folder of the repository.
QVector<SourceFile> sourcesBelow(const QString& folder);

// The text of a file, by its path below the repository.
QString sourceText(const QString& path);

// The folder of src/ that a path below src/ belongs to: the longest that fits.
const Folder* folderOf(const QVector<Folder>& folders, const QString& pathBelowSrc);
