// The part of a font that some texts need, as a file inside of a picture.
#pragma once

#include <QByteArray>
#include <QRawFont>

// The font with the glyphs of these characters alone, as WOFF; its names and its
// copyright stay. Null when it is no TrueType font, or when it says of itself that
// it is not to be embedded or not to be taken in parts.
QByteArray webFont(const QRawFont& font, const QString& characters);
