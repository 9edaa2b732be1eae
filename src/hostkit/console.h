// The host's command line, for composed texts.
#pragma once

#include <QString>

// Prints the text as it stands; line breaks are the text's own.
void say(const QString& text);
