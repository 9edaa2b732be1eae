#include "charts/plotter/markup_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace {

constexpr int deepest = 3;

// The place of the brace that closes the one at `open`; -1 when there is none.
int closing(const QString& text, int open)
{
    int depth = 0;
    for (int i = open; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('{'))
            ++depth;
        else if (text[i] == QLatin1Char('}') && --depth == 0)
            return i;
    }
    return -1;
}

bool isEscape(const QString& text, int at)
{
    return text[at] == QLatin1Char('\\') && at + 1 < text.size()
        && (text[at + 1] == QLatin1Char('_') || text[at + 1] == QLatin1Char('^'));
}

} // namespace

MarkupText::MarkupText(const QString& markup, const QFont& font) : font_(font)
{
    split(markup, 0);
    double width = 0.0, above = QFontMetricsF(font_).ascent(), below = QFontMetricsF(font_).descent();
    for (const Run& run : runs_) {
        const QFontMetricsF metrics(fontOf(run.level));
        width += metrics.horizontalAdvance(run.text);
        above = qMax(above, metrics.ascent() - dropOf(run.level));
        below = qMax(below, metrics.descent() + dropOf(run.level));
    }
    ascent_ = above;
    size_ = QSizeF(width, above + below);
}

void MarkupText::split(const QString& markup, int level)
{
    int i = 0;
    while (i < markup.size()) {
        if (isEscape(markup, i)) {
            append(markup.mid(i + 1, 1), level);
            i += 2;
            continue;
        }
        const bool below = markup[i] == QLatin1Char('_'), above = markup[i] == QLatin1Char('^');
        const bool sign = (below || above) && i + 1 < markup.size() && std::abs(level) < deepest;
        const bool braced = sign && markup[i + 1] == QLatin1Char('{');
        const int end = braced ? closing(markup, i + 1) : i + 1;
        if (!sign || end < 0) {
            append(markup.mid(i, 1), level);
            ++i;
            continue;
        }
        split(braced ? markup.mid(i + 2, end - i - 2) : markup.mid(i + 1, 1), level + (above ? 1 : -1));
        i = end + 1;
    }
}

void MarkupText::append(const QString& text, int level)
{
    if (!runs_.isEmpty() && runs_.last().level == level)
        runs_.last().text += text;
    else
        runs_.append({text, level});
}

QString MarkupText::plainText() const
{
    QString text;
    for (const Run& run : runs_)
        text += run.text;
    return text;
}

QFont MarkupText::fontOf(int level) const
{
    QFont font = font_;
    if (level != 0)
        font.setPixelSize(qMax(5, int(std::lround(font_.pixelSize() * 0.75))));
    return font;
}

// How far below the line a level stands, in pixels.
double MarkupText::dropOf(int level) const
{
    return level < 0 ? -level * 0.25 * font_.pixelSize() : -level * 0.4 * font_.pixelSize();
}

void MarkupText::draw(QPainter& painter, const QPointF& topLeft) const
{
    QPointF at = topLeft + QPointF(0.0, ascent_);
    for (const Run& run : runs_) {
        const QFont font = fontOf(run.level);
        painter.setFont(font);
        painter.drawText(at + QPointF(0.0, dropOf(run.level)), run.text);
        at.rx() += QFontMetricsF(font).horizontalAdvance(run.text);
    }
}
