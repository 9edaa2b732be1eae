#include "charts/plotter/value_labels.h"

#include "base/text.h"
#include "charts/plotter/plot_font.h"

#include <QFontMetricsF>
#include <QHash>
#include <cmath>

namespace {

constexpr double gap = 4.0; // between a point's middle and its label

struct Letters {
    double width, height;
};

// Digits all have one width in the fonts that plots use; sign and point are
// counted as digits, too.
Letters lettersOf(double fontSize)
{
    static QHash<double, Letters> known;
    auto found = known.find(fontSize);
    if (found == known.end()) {
        const QFontMetricsF metrics(plotFont(fontSize));
        const Letters letters{metrics.horizontalAdvance(QLatin1Char('0')), metrics.capHeight() + 3.0};
        found = known.insert(fontSize, letters);
    }
    return *found;
}

QRectF boxAt(const ValueLabel& label, const QSizeF& size, bool below, double shift, double distance)
{
    const double middle = below ? label.point.y() + gap + distance + size.height() / 2.0
                                : label.point.y() - gap - distance - size.height() / 2.0;
    return QRectF(label.point.x() + shift - size.width() / 2.0, middle - size.height() / 2.0, size.width(),
                  size.height());
}

QRectF pushedInto(QRectF box, const QRectF& frame)
{
    box.moveLeft(qMax(frame.left(), qMin(box.left(), frame.right() - box.width())));
    box.moveTop(qMax(frame.top(), qMin(box.top(), frame.bottom() - box.height())));
    return box;
}

struct Candidate {
    bool below;
    double shift, distance;
    double cost; ///< of standing there even when it is free
};

// Places about a point, the natural one first.
QVector<Candidate> candidates(const QSizeF& size, bool below)
{
    QVector<Candidate> all;
    const double step = size.height() + 1.0;
    for (int level = 0; level < 9; ++level) {
        for (double part : {0.0, -0.3, 0.3, -0.6, 0.6}) {
            const double shift = part * size.width(), distance = level * step * 0.75;
            const double cost = distance * 0.5 + std::abs(shift) * 0.4;
            all.append({below, shift, distance, cost});
            if (level < 5)
                all.append({!below, shift, distance, cost + 9.0});
        }
    }
    std::stable_sort(all.begin(), all.end(), [](const Candidate& a, const Candidate& b) { return a.cost < b.cost; });
    return all;
}

void search(ValueLabel& label, LabelRoom& room)
{
    label.text = labelText(label.value);
    const QSizeF size = labelSize(label.text, label.fontSize);
    double best = std::numeric_limits<double>::infinity();
    for (const Candidate& candidate : candidates(size, label.below)) {
        if (candidate.cost >= best)
            break;
        const QRectF natural = boxAt(label, size, candidate.below, candidate.shift, candidate.distance);
        const QRectF box = pushedInto(natural, room.frame);
        const double moved = (box.center() - natural.center()).manhattanLength();
        const double cost = candidate.cost + moved + 4.0 * room.labels.taken(box.adjusted(-1.0, 0.0, 1.0, 0.0))
            + 1.0 * room.curves.taken(box);
        if (cost < best) {
            best = cost;
            label.box = box;
            label.leader = candidate.distance > size.height() || moved > size.height();
        }
    }
}

bool isUnreadable(const PixelCover& others, const QRectF& box)
{
    return 2.0 * others.taken(box) > box.width() * box.height();
}

// The label at its own point. False when it could not be read there; first a
// short text stands for all, as making texts is what takes the time.
bool setAtPoint(ValueLabel& label, LabelRoom& room)
{
    static const QString shortText = QStringLiteral("0.00");
    const QSizeF least = labelSize(shortText, label.fontSize);
    if (isUnreadable(room.labels, pushedInto(boxAt(label, least, label.below, 0.0, 0.0), room.frame)))
        return false;
    label.text = labelText(label.value);
    label.box = pushedInto(boxAt(label, labelSize(label.text, label.fontSize), label.below, 0.0, 0.0), room.frame);
    return !isUnreadable(room.labels, label.box);
}

} // namespace

// Four decimals say what a measure says; zeros at their end say nothing. What
// is too large for decimals to matter is shortened.
QString labelText(double value)
{
    if (std::abs(value) >= 1e10)
        return general(value);
    QString text = fixed(value, 4);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

QSizeF labelSize(const QString& text, double fontSize)
{
    const Letters letters = lettersOf(fontSize);
    return QSizeF(text.size() * letters.width + 1.0, letters.height);
}

int placeLabels(QVector<ValueLabel>& labels, LabelRoom& room)
{
    const bool crowded = labels.size() > labelCrowd;
    const QRectF near = room.points.adjusted(-3.0, -3.0, 3.0, 3.0);
    int leftOut = 0;
    for (ValueLabel& label : labels) {
        label.placed = near.contains(label.point);
        if (!label.placed)
            continue;
        if (!crowded)
            search(label, room);
        else
            label.placed = setAtPoint(label, room);
        leftOut += label.placed ? 0 : 1;
        if (label.placed)
            room.labels.add(label.box);
    }
    return leftOut;
}
