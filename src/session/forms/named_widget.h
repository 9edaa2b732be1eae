#pragma once
// Widgets carry their given names as object names: tests and scripts find them so.

#include <QLabel>
#include <QString>
#include <utility>

template <class Widget, class... Arguments>
Widget* named(const char* name, Arguments&&... arguments)
{
    auto* widget = new Widget(std::forward<Arguments>(arguments)...);
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

/// A caption beside a field.
inline QLabel* label(const char* text) { return new QLabel(QString::fromUtf8(text)); }
