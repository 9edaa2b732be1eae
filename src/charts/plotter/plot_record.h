// What was drawn when the plotter last drew: for tests, which ask this instead
// of pixels. Boxes are in pixels of the picture, y downward.
#pragma once

#include "charts/plotter/plot_vocabulary.h"

#include <QColor>
#include <QRectF>
#include <QSize>
#include <QStringList>
#include <QVector>

struct PlotRecord {
    struct Axis {
        bool drawn = false;
        double minimum = 0.0, maximum = 0.0; ///< as shown, always finite and apart
        bool inverted = false;
        QString label;
        QRectF labelBox; ///< empty: there was no room
        QStringList tickLabels;
        QVector<QRectF> tickBoxes;
    };
    struct Graph {
        QString title;
        QString xName, yName; ///< of the columns
        int points = 0;       ///< finite ones
        PlotSymbol symbol = PlotSymbol::None;
        double symbolSize = 0.0, lineWidth = 0.0;
        Qt::PenStyle lineStyle = Qt::SolidLine;
        QColor color;
        PlotAxisKey axis = PlotAxisKey::Primary;
    };
    struct Label {
        QString text;
        QPointF point;
        QRectF box;
        PlotAxisKey axis = PlotAxisKey::Primary;
    };
    struct Rectangle {
        QRectF place; ///< in plot coordinates
        QRectF box;
        QColor fill;
    };
    struct Picture {
        QRectF place; ///< in plot coordinates
        QRectF box;
        QSize size; ///< of the image
    };
    struct Text {
        QString text;
        double x = 0.0, y = 0.0; ///< in plot coordinates
        QRectF box;
    };
    struct Key {
        QRectF box; ///< empty: not drawn
        QStringList titles;
        QVector<QRectF> entries;
    };

    bool white = true; ///< nothing was drawn
    QSize size;
    QRectF canvas; ///< the frame
    QRectF data;   ///< where the ranges lie inside the frame
    Axis x, y, secondaryY;
    QVector<Graph> graphs;
    QVector<Label> labels;
    int labelsLeftOut = 0; ///< their place was covered by other labels already
    QVector<Rectangle> rectangles;
    QVector<Picture> pictures;
    QVector<Text> texts;
    Key key;
};
