// Numbers as they stand in survey files: with a point or a comma, with words
// around them, without the leading zero.
#pragma once

#include "exchange/reading_loss.h"

#include <QString>

enum class SignOf {
    Number, ///< a sign before the digits belongs to the number
    Text,   ///< a sign is part of the text around it: depths
};

/// The first number of the text, what "([+-]?(\d*[\.\,])?\d+)" finds there (for
/// SignOf::Text without the sign), a comma standing for a point: "-1,234 м" is
/// -1.234, ",5" is 0.5, "5." is 5. False without a digit; a number too great for
/// a double is infinite. `losses`, if wanted, tells what of the number stands
/// around what was found (NumberLoss), "−5" for one.
bool findNumber(const QString& text, SignOf sign, double& number, int* losses = nullptr);
