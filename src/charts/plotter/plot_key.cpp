#include "charts/plotter/plot_key.h"

#include "charts/plotter/plot_font.h"

#include <QFontMetricsF>
#include <cmath>

namespace {

constexpr double fontPoints = 8.0;
constexpr double sampleWidth = 22.0;
constexpr double sampleGap = 5.0;
constexpr double entryGap = 12.0;
constexpr double padding = 4.0;

MarkupText titleWithin(const QString& markup, double widest)
{
    const QFont font = plotFont(fontPoints);
    MarkupText title(markup, font);
    if (title.size().width() <= widest)
        return title;
    return MarkupText(QFontMetricsF(font).elidedText(title.plainText(), Qt::ElideRight, widest), font);
}

} // namespace

KeyBox::KeyBox(const PlotContents& contents, const QVector<QColor>& colors, const QSizeF& room)
{
    if (!contents.key.shown)
        return;
    collect(contents, colors, room.width() - sampleWidth - sampleGap - 2.0 * padding);
    if (entries_.isEmpty())
        return;
    if (contents.key.layout == KeyLayout::OneColumn)
        layColumns(room.height());
    else
        layRows(room.width());
}

void KeyBox::collect(const PlotContents& contents, const QVector<QColor>& colors, double widest)
{
    for (int i = 0; i < contents.graphs.size(); ++i) {
        const LineGraph& graph = contents.graphs[i];
        if (graph.title.isEmpty())
            continue;
        KeyEntry entry{titleWithin(graph.title, widest), &graph, colors[i], QRectF()};
        entryHeight_ = qMax(entryHeight_, entry.title.size().height() + 1.0);
        entry.box.setWidth(sampleWidth + sampleGap + entry.title.size().width());
        entries_.append(entry);
    }
}

void KeyBox::layColumns(double highest)
{
    const int fitting = qMax(1, int((highest - 2.0 * padding) / entryHeight_));
    const int columns = (entries_.size() + fitting - 1) / fitting;
    const int rows = (entries_.size() + columns - 1) / columns;
    double left = padding, width = 0.0;
    for (int i = 0; i < entries_.size(); ++i) {
        if (i > 0 && i % rows == 0) {
            left += width + entryGap;
            width = 0.0;
        }
        entries_[i].box = QRectF(left, padding + (i % rows) * entryHeight_, entries_[i].box.width(), entryHeight_);
        width = qMax(width, entries_[i].box.width());
    }
    size_ = QSizeF(left + width + padding, rows * entryHeight_ + 2.0 * padding);
}

void KeyBox::layRows(double widest)
{
    double left = padding, top = padding, right = 0.0;
    for (KeyEntry& entry : entries_) {
        const double width = entry.box.width();
        if (left > padding && left + width + padding > widest) {
            left = padding;
            top += entryHeight_;
        }
        entry.box = QRectF(left, top, width, entryHeight_);
        right = qMax(right, left + width);
        left += width + entryGap;
    }
    size_ = QSizeF(right + padding, top + entryHeight_ + padding);
}

PlotRecord::Key KeyBox::recordAt(const QPointF& topLeft) const
{
    PlotRecord::Key key;
    key.box = QRectF(topLeft, size_);
    for (const KeyEntry& entry : entries_) {
        key.titles.append(entry.title.plainText());
        key.entries.append(entry.box.translated(topLeft));
    }
    return key;
}
