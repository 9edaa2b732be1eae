// Text of printf-like formats made of wide strings, for the command console.
#pragma once

#include <QString>

#include <cstdarg>

// Conversions: %d %i (with l, ll, z), %u, %x %X, %f %e %g, %s %ls (wide),
// %hs (UTF-8), %c, %%; flags '-', '0', '+', ' '; width and precision, also
// '*'. Reals are rounded as everywhere in this system, ties away from zero. An
// unknown conversion is printed as it stands.
QString composeConsoleText(const wchar_t* format, va_list arguments);
