// Readable texts on a screen. Filling an outline and the rim about it costs many times
// what copying dots does, so each character is painted once for its size, its colour and
// its place between the dots, and copied from then on.
#pragma once

#include "display_list.h"

class QPainter;

// Paints the text with a rim, none where its colour is not valid. False when the painter's
// device is not one of plain dots or the characters are so large that they are painted as
// quickly as copied: then nothing was painted.
bool stampText(QPainter& painter, const FigureText& text, const QTransform& toDevice, const QColor& color,
               const QColor& rim);
