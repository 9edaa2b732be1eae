// What each kind of entity looks like, in its own coordinates.
#pragma once

#include "figure_frame.h"

#include <nrx/tables.h>

#include <QColor>

struct FigureColor {
    QColor color;
    bool foreground = false; // follows the paper: black on white
};

// The colour of an index or of a true colour; by layer and by block give the
// foreground.
FigureColor figureColor(const NcCmColor& color);

// Makes the figures of an entity that is not a reference, an attribute
// definition or a viewport. False for a class that shows nothing.
bool makeEntityFigures(const NcDbEntity& entity, const FigureFrame& frame);

// Parts of it, each for a family of classes.
bool makeCurveFigures(const NcDbEntity& entity, const FigureFrame& frame);
bool makeTextFigures(const NcDbEntity& entity, const FigureFrame& frame);
bool makeTableFigures(const NcDbEntity& entity, const FigureFrame& frame);
bool makeHatchFigures(const NcDbEntity& entity, const FigureFrame& frame);

// The line through vertices with bulges; closed ones end where they begin.
QPolygonF bulgedLine(const std::vector<QPointF>& points, const std::vector<double>& bulges, bool closed);
// Lines of text held at the frame's origin by `attachment` 1..9; each baseline is
// 5/3 of the capitals' height below the one before.
void makeTextBlock(const QStringList& lines, int attachment, const QTransform& placing, const FigureFrame& frame);
// Width and height of such lines in units of the capitals' height.
QSizeF textBlockSize(const QStringList& lines);
