#pragma once
// Whether a form can be worked with as it stands on the screen: what is shown is
// shown whole, it fits on the screens that people have, and Tab goes through it as one
// reads. Every form whose picture is taken is looked at so, at each scale.

#include <QStringList>

class QRect;
class QWidget;

/// Shown buttons, fields and captions whose text or place is cut off.
QStringList cutOff(const QWidget& form);

/// Why the form does not fit on the smallest usual screen of its scale; empty when it does.
QString tooLarge(const QWidget& form);

/// Where Tab leaves the reading order: top to bottom and left to right, part by part,
/// a part being what a straight line through the form parts from the rest.
QStringList tabFaults(const QWidget& form);

/// Fields for numbers that declare neither their unit nor that they have none.
QStringList unitFaults(const QWidget& form);

/// The widgets that Tab reaches, in its order.
QList<QWidget*> tabStops(const QWidget& form);
