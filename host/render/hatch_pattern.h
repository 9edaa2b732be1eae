// Hatch patterns from .pat files, and their lines inside of a shape.
#pragma once

#include <nrx/types.h>

#include <QPolygonF>
#include <QString>
#include <QStringList>
#include <vector>

// A family of parallel lines, in the pattern's own units.
struct PatternLine {
    double angle = 0.0; // radians
    QPointF origin;
    double along = 0.0, across = 0.0; // from one line to the next, in the line's own directions
    std::vector<double> dashes;       // positive drawn, negative left out, 0 a dot; empty: unbroken
};

struct LinePattern {
    QString name;
    std::vector<PatternLine> lines;
};

// Reads the text of a .pat file ("*NAME, text", then a line a family: degrees,
// x, y, along, across, dashes...; ";" begins a comment); lines that make no sense
// are passed over.
NRX_API std::vector<LinePattern> parsePatterns(const QString& text);

// A pattern by name, ignoring case, of the .pat files in the folders; null when
// none has it.
NRX_API const LinePattern* findPattern(const QString& name);
// Folders are read once, when a pattern is first asked for; "pats" beside the
// program is always one of them.
NRX_API void addPatternFolder(const QString& folder);

// The pattern's strokes inside of loops (even-odd). Nothing when they would be
// more than `most`, which stands for a pattern far too fine to be seen.
NRX_API std::vector<QPolygonF> patternStrokes(const LinePattern& pattern, double scale,
                                              const std::vector<QPolygonF>& loops, size_t most = 100000);
