// The key: a sample and a title for each graph that has one.
#pragma once

#include "charts/plotter/markup_text.h"
#include "charts/plotter/plotter.h"

struct KeyEntry {
    MarkupText title;
    const LineGraph* graph;
    QColor color;
    QRectF box; ///< inside the key
};

class KeyBox {
public:
    KeyBox() = default;
    /// Lays the entries out as the layout says: a column that is too high is
    /// broken into several, a row that is too wide into several, a title that
    /// is wider than the room is cut with an ellipsis.
    KeyBox(const PlotContents& contents, const QVector<QColor>& colors, const QSizeF& room);

    bool isEmpty() const { return entries_.isEmpty(); }
    QSizeF size() const { return size_; }
    const QVector<KeyEntry>& entries() const { return entries_; }
    PlotRecord::Key recordAt(const QPointF& topLeft) const;

private:
    void collect(const PlotContents& contents, const QVector<QColor>& colors, double widest);
    void layColumns(double highest);
    void layRows(double widest);

    QVector<KeyEntry> entries_;
    QSizeF size_;
    double entryHeight_ = 0.0;
};
