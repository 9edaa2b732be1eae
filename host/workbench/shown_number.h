// Numbers as the screen shows them: in the user's own manner, without marks
// between thousands. What is typed is taken with a point or a comma.
#pragma once

#include <QString>

QString shownNumber(double value, int decimals = 3);
// As many digits as the number has, up to six behind the comma.
QString shownExact(double value);
// False for a text that is no number.
bool readNumber(const QString& text, double& value);
