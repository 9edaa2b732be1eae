// Reading the key of a row from an attribute.
#pragma once

#include <QString>
#include <optional>

/// The whole number that the text begins with, behind any white space; what
/// follows it is passed over. Nothing when there is no digit or the number
/// does not fit 32 bits.
std::optional<int> leadingInteger(const QString& text);
