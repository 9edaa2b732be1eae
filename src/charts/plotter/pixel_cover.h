// Which pixels are taken: a grid of bits, 64 a word. By it labels and the key
// find a free place.
#pragma once

#include <QRectF>
#include <QVector>

class PixelCover {
public:
    explicit PixelCover(const QSize& size);
    /// Of a picture of the size only what lies in the region.
    PixelCover(const QSize& size, const QRectF& region);

    void add(const QRectF& box);
    /// All pixels that a line of this width touches, near enough.
    void addLine(const QPointF& from, const QPointF& to, double width);

    /// Taken pixels inside the box.
    int taken(const QRectF& box) const;
    /// Whether no pixel of the box is free. Outside the grid nothing is free.
    bool isFull(const QRectF& box) const;

private:
    QRect pixelsOf(const QRectF& box) const;
    template <class Visit>
    void visit(const QRect& pixels, Visit visitWord) const;

    QRect grid_;
    int wordsInRow_;
    QVector<quint64> words_;
};
