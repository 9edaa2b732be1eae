#pragma once
// The unit of a number field. Captions are fixed texts, and not all of them tell it;
// the field's tip does, and what is read aloud of it:
//
//   key_ = inUnit("м", realSpin("DeepSpin", -100.0, 100.0)),
//   count_ = withoutUnit(spin("LevelCountSpin", 0, 50)),
//
// Every number field of every form declares its unit or that it has none.

#include <QString>

class QWidget;

namespace formkit {

/// Tells the unit in the tip, the status line and to readers of the screen; an empty one
/// declares that there is none. The tip that the field has stays above it.
void sayUnit(QWidget* field, const QString& unit);

/// The unit behind the last comma of a caption or in brackets at its end; empty for none.
QString unitIn(const QString& caption);
/// Declares the unit that the caption tells, unless the field has declared one.
void takeUnitFrom(const QString& caption, QWidget* field);

template <class Widget>
Widget* inUnit(const QString& unit, Widget* field)
{
    sayUnit(field, unit);
    return field;
}
template <class Widget>
Widget* withoutUnit(Widget* field)
{
    sayUnit(field, QString());
    return field;
}

} // namespace formkit
