#pragma once
// What changing a node of the project tree asks.

#include <QString>
#include <optional>

class QWidget;

std::optional<QString> askNodeName(QWidget* parent, const QString& now);
/// The new parent of a node of the level; `now` is the present one.
std::optional<int> askParent(QWidget* parent, int level, int now);
/// Asks for one position out of all, over the host's window; nothing unless
/// exactly one was chosen.
std::optional<int> askPosition();
