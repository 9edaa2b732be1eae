// The letters of plots: the same on every machine and under every LANG.
#pragma once

#include <QFont>

/// Pixels of a size in points at 96 pixels an inch.
constexpr double pixelsOfPoints(double points) { return points * 96.0 / 72.0; }

/// DejaVu Sans where it is installed, otherwise the application's font if it
/// has Cyrillic letters, otherwise the first family that has them. The size is
/// counted in whole pixels, so that it does not hang on a screen's resolution.
QFont plotFont(double points);
