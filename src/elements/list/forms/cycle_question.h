#pragma once
// Asks for a measurement cycle.

#include <QString>
#include <optional>

class QWidget;

/// The id of the chosen cycle; nothing when the user leaves the question.
std::optional<int> askCycle(QWidget* parent, const QString& title, int preset);
