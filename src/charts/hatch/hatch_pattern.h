// Hatch patterns as they stand in .pat files: "*NAME, text", then a line for
// each family of parallel lines: degrees, x, y, along, across, dashes...; ";"
// begins a comment. Lengths are millimetres.
#pragma once

#include <QPointF>
#include <QString>
#include <QVector>

struct HatchLines {
    double angle = 0.0; ///< degrees
    QPointF origin;
    double along = 0.0, across = 0.0; ///< from one line to the next, in the line's own directions
    QVector<double> dashes;           ///< positive drawn, negative left out, 0 a dot; empty: unbroken
};

struct HatchPattern {
    QString name;
    QVector<HatchLines> lines;

    bool isEmpty() const { return lines.isEmpty(); }
};

/// All patterns of a text. False when a line makes no sense, with what is wrong
/// with the first such line in `problem`; the good patterns are there all the
/// same, the one with the bad line is empty.
bool parseHatchPatterns(const QString& text, QVector<HatchPattern>& patterns, QString& problem);

/// The pattern `name` of the folder: the file of this name, with or without
/// ".pat", and in it the pattern of this name or else the first one; or else the
/// pattern of this name in any file of the folder. Letters' case does not
/// matter, the folder may be written with either slash. Nothing outside the
/// folder is read. False, with the reason in `problem` and an empty pattern,
/// when there is none or it is bad.
bool readHatchPattern(const QString& folder, const QString& name, HatchPattern& pattern, QString& problem);
