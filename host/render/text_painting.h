// Texts as outlines with a rim, as bars where they are too small to be read, and as
// texts that stay texts in the file that is painted into.
#pragma once

#include "display_list.h"

#include <QLineF>
#include <functional>

class QPainter;

// The box of the text's outline in the world.
QRectF textBox(const FigureText& text);
// What keeps a text readable over lines and hatches: its outline, thicker.
QPainterPath textRim(const FigureText& text);
// From the text's left to its right at half of the height of its capitals.
QLineF textBar(const FigureText& text);
// In the same place as the outline of the text.
void paintTextLine(QPainter& painter, const FigureText& text, const QTransform& toDevice, const QColor& color);

// What a text is put together of: a character, or the whole of a text that cannot be taken apart. Its outline and
// its rim have capitals 1 high; `placing` takes them to where the text stands.
struct TextPiece {
    quint64 id; // of the shape, in this run of the program
    std::function<const QPainterPath&(bool rim)> path;
    QTransform placing;
};
std::vector<TextPiece> textPieces(const FigureText& text);

class QRawFont;
// The font of these texts, and the name by which files call it.
QRawFont textFont();
QString textFontName();
