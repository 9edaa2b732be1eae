// A plot that is described and then drawn into a picture: never shown, without
// mouse. The only way of the charts to the plotting library.
#pragma once

#include "charts/plotter/data_store.h"
#include "charts/plotter/plot_items.h"
#include "charts/plotter/plot_record.h"

#include <QPixmap>
#include <QSize>

class QIODevice;

/// All that is to be drawn.
struct PlotContents {
    DataStore store;
    QVector<LineGraph> graphs;
    QVector<GraphLabels> labels;
    QVector<PlotRectangle> rectangles;
    QVector<PlotPicture> pictures;
    QVector<PlotText> texts;
    PlotAxis x, y, secondaryY;
    bool hasSecondaryY = false;
    PlotKey key;

    bool isEmpty() const;
    /// The smallest and largest finite number of the graphs' points on this
    /// axis, x and y; a null rectangle with `any` false when there is none.
    QRectF extents(PlotAxisKey axis, bool* any) const;
};

class Plotter {
public:
    Plotter();

    DataStore* datastore() { return &contents_.store; }

    // --- what stands on the plot; drawn in this order: rectangles, pictures,
    // --- grid, graphs as added, texts, value labels, key -------------------------
    void addGraph(const LineGraph& graph) { contents_.graphs.append(graph); }
    void addLabels(const GraphLabels& labels) { contents_.labels.append(labels); }
    void addRectangle(const PlotRectangle& rectangle) { contents_.rectangles.append(rectangle); }
    void addPicture(const PlotPicture& picture) { contents_.pictures.append(picture); }
    void addText(const PlotText& text) { contents_.texts.append(text); }
    /// Takes all of these away, and their columns.
    void clearGraphs();

    PlotAxis& xAxis() { return contents_.x; }
    PlotAxis& yAxis() { return contents_.y; }
    PlotAxis& addSecondaryYAxis();
    PlotKey& key() { return contents_.key; }
    void setX(double minimum, double maximum) { contents_.x.setRange(minimum, maximum); }
    void setY(double minimum, double maximum) { contents_.y.setRange(minimum, maximum); }
    /// The default axes show all graphs on them, the data's ranges stretched
    /// about their middle by the factors. Without data the ranges stay.
    void zoomToFit(double xFactor, double yFactor);

    // --- drawing -------------------------------------------------------------------
    /// The size that pictures have which are grabbed without one.
    void resize(int width, int height) { size_ = QSize(width, height); }
    QSize size() const { return size_; }
    /// A picture of the size, white where nothing is described or nothing fits.
    /// Sides below 1 are taken as 1, above 8192 as 8192. With a device ratio
    /// the picture has that many pixels more and says so.
    QPixmap grabPixelImage(const QSize& size, double ratio = 1.0);
    QPixmap grabPixelImage(double ratio = 1.0) { return grabPixelImage(size_, ratio); }
    /// The plot as SVG or as a PDF of one page. False when the device refuses.
    bool writeSvg(QIODevice* device, const QSize& size);
    bool writePdf(QIODevice* device, const QSize& size);

    const PlotContents& contents() const { return contents_; }
    /// Of the last drawing.
    const PlotRecord& record() const { return record_; }

private:
    PlotContents contents_;
    QSize size_;
    PlotRecord record_;
};
