// Geological columns of wells as files tell them: one line a well, its layers
// behind one another.
#pragma once

#include <QDate>
#include <QHash>
#include <QSet>
#include <QStringList>
#include <QVector>
#include <optional>

struct WellLayer {
    QString code;      ///< of the engineering-geological element
    int egeId = -1;    ///< -1: the catalogue has no such code
    double from = 0.0; ///< depths, m
    double to = 0.0;
};

struct WellGeology {
    QString name;
    int elementId = -1; ///< -1: the database has no such well
    QDate drilled;      ///< null where the file has none
    std::optional<double> z;
    QVector<WellLayer> layers;

    /// The well and all codes are known.
    bool isValid() const;
};

/// What names and codes of a file are looked up in.
struct GeologyLists {
    QHash<QString, int> wells;
    QHash<QString, int> codes;
    QSet<QString> severalWells; ///< names that more than one well bears
};

/// The wells of a position, of all for -1; the number of names is printed.
GeologyLists loadGeologyLists(int positionId);

/// The records of a file's lines; headers and lines without a layer are none.
/// A well that is not found, and a name of several wells, is printed.
QVector<WellGeology> readGeology(const QStringList& lines, const QString& separator, const GeologyLists& lists);
