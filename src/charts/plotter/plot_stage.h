// Everything that is known before the first stroke is drawn: ranges, layout,
// graphs in pixels, the places of value labels and of the key.
#pragma once

#include "charts/plotter/plot_layout.h"
#include "charts/plotter/plot_strokes.h"
#include "charts/plotter/value_labels.h"

class PlotStage {
public:
    PlotStage(const PlotContents& contents, const QSize& size);

    /// False when the picture is too small for anything.
    bool lay();

    const PlotLayout& layout() const { return layout_; }
    const PlotRanges& ranges() const { return ranges_; }
    const QVector<QColor>& colors() const { return colors_; }         ///< of the graphs
    const QVector<GraphStrokes>& strokes() const { return strokes_; } ///< of the graphs
    const QVector<ValueLabel>& labels() const { return labels_; }
    int labelsLeftOut() const { return labelsLeftOut_; }
    bool hasKey() const { return hasKey_; }
    const KeyBox& key() const { return key_; }
    QPointF keyCorner() const { return keyCorner_; }

    /// Places in pixels.
    QRectF pixelBox(const QRectF& place) const;
    QRectF textBox(const PlotText& text) const;

private:
    void chooseColors();
    void collectLabels();
    void collectStrokes();
    void layWith(const InnerMargins& margins);
    InnerMargins layFirst();
    QPointF layAbove();
    QPointF layInside();
    InnerMargins marginsForSymbols() const;
    InnerMargins marginsForLabels() const;
    PixelCover coverOfGraphs(const QRectF& region) const;
    void coverPictures(PixelCover& cover) const;
    void place(const QRectF& free);
    bool isFree(const QRectF& box) const;

    const PlotContents& contents_;
    QSize size_;
    PlotRanges ranges_;
    PlotLayout layout_;
    QVector<QColor> colors_;
    QVector<GraphStrokes> strokes_;
    QVector<ValueLabel> labels_;
    int labelsLeftOut_ = 0;
    KeyBox key_;
    QPointF keyCorner_;
    bool hasKey_ = false;
};
