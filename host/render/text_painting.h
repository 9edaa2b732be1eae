// Texts that stay texts in the file that is painted into.
#pragma once

#include "display_list.h"

class QPainter;

// In the same place as the outline of the text.
void paintTextLine(QPainter& painter, const FigureText& text, const QTransform& toDevice, const QColor& color);
