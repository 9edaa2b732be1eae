#include "charts/plotter/pixel_cover.h"

#include <QtAlgorithms>
#include <cmath>

PixelCover::PixelCover(const QSize& size) : PixelCover(size, QRectF(QPointF(), QSizeF(size))) { }

PixelCover::PixelCover(const QSize& size, const QRectF& region)
    : grid_(QRect(QPoint(), size) & region.toAlignedRect()),
      wordsInRow_((size.width() + 63) / 64),
      words_(wordsInRow_ * size.height(), 0)
{ }

// The pixels whose middles lie in the box.
QRect PixelCover::pixelsOf(const QRectF& box) const
{
    if (!(box.width() >= 0.0 && box.height() >= 0.0))
        return QRect();
    const auto bounded = [](double value) { return int(std::lround(qBound(-1e6, value, 1e6))); };
    const QPoint from(bounded(box.left()), bounded(box.top()));
    const QPoint to(qMax(from.x(), bounded(box.right()) - 1), qMax(from.y(), bounded(box.bottom()) - 1));
    return QRect(from, to) & grid_;
}

template <class Visit>
void PixelCover::visit(const QRect& pixels, Visit visitWord) const
{
    if (pixels.isEmpty())
        return;
    const int firstWord = pixels.left() / 64, lastWord = pixels.right() / 64;
    for (int row = pixels.top(); row <= pixels.bottom(); ++row) {
        for (int word = firstWord; word <= lastWord; ++word) {
            quint64 mask = ~quint64(0);
            if (word == firstWord)
                mask &= ~quint64(0) << (pixels.left() % 64);
            if (word == lastWord)
                mask &= ~quint64(0) >> (63 - pixels.right() % 64);
            if (!visitWord(row * wordsInRow_ + word, mask))
                return;
        }
    }
}

void PixelCover::add(const QRectF& box)
{
    quint64* words = words_.data();
    visit(pixelsOf(box), [words](int word, quint64 mask) {
        words[word] |= mask;
        return true;
    });
}

void PixelCover::addLine(const QPointF& from, const QPointF& to, double width)
{
    const double half = qMax(0.5, width / 2.0);
    const QRectF grid = QRectF(grid_).adjusted(-half, -half, half, half);
    const QPointF step = to - from;
    // The part of the line over the grid, so that a line of any length ends.
    double begin = 0.0, end = 1.0;
    const auto narrow = [&](double start, double delta, double low, double high) {
        if (delta == 0.0) {
            if (start < low || start > high)
                end = -1.0;
            return;
        }
        const double a = (low - start) / delta, b = (high - start) / delta;
        begin = qMax(begin, qMin(a, b));
        end = qMin(end, qMax(a, b));
    };
    narrow(from.x(), step.x(), grid.left(), grid.right());
    narrow(from.y(), step.y(), grid.top(), grid.bottom());
    if (!(end >= begin))
        return;
    const double length = qMax(std::abs(step.x()), std::abs(step.y())) * (end - begin);
    const int pieces = qMax(1, int(std::ceil(length)));
    for (int i = 0; i <= pieces; ++i) {
        const QPointF at = from + step * (begin + (end - begin) * i / pieces);
        add(QRectF(at.x() - half, at.y() - half, 2.0 * half, 2.0 * half));
    }
}

int PixelCover::taken(const QRectF& box) const
{
    int count = 0;
    visit(pixelsOf(box), [&](int word, quint64 mask) {
        count += int(qPopulationCount(words_[word] & mask));
        return true;
    });
    return count;
}

bool PixelCover::isFull(const QRectF& box) const
{
    bool full = true;
    visit(pixelsOf(box), [&](int word, quint64 mask) {
        full = (words_[word] & mask) == mask;
        return full;
    });
    return full;
}
