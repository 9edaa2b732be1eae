#include "elements/geology/quoted_text.h"

QString doubled(const QString& text) { return QString(text).replace(QLatin1Char('\''), QLatin1String("''")); }

Statement quotedText(const QString& text) { return compose("'%1'", doubled(text)); }
