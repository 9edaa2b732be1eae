// The codes inside of drawing texts.
#pragma once

#include <QStringList>

// %%d degree, %%p plus-minus, %%c diameter, %%% percent, %%nnn a character;
// %%u and %%o (lines over and under) are dropped.
QString plainLine(const QString& text);

// The lines of a multi-line text without its formatting: \P and ^J break, \~ is
// a blank that does not, \U+0414 a character, \S1/2; a fraction in one line; what
// changes font, height, colour or lines is dropped.
QStringList plainParagraphs(const QString& contents);

// Breaks lines at blanks so that none is wider than `width`, in units of the
// height of capitals; 0 breaks nothing.
QStringList wrapLines(const QStringList& lines, double width);
