// Widgets of a form by name, their values as text: one spelling for scripts,
// tests and the demo.
#pragma once

#include <nrx/types.h>

#include <QAbstractButton>
#include <QString>
#include <QWidget>

// A visible-or-not descendant by object name; "outer/inner" looks inside of
// `outer`. An input dialog's field is "input". Null when there is none.
NRX_API QWidget* findNamedWidget(QWidget* window, const QString& name);
// A button by object name, else by its caption without mnemonics; visible ones
// first. Null when there is none.
NRX_API QAbstractButton* findButton(QWidget* window, const QString& nameOrCaption);

// Sets a widget as a user would, so that its signals are sent:
//   line and text edits: the text; spin boxes and sliders: the number;
//   combo boxes, lists, tabs: the item's text, "index:2", or (combo) "data:7";
//   check boxes, check groups: on, off; radio buttons: on;
//   dates and times: in the widget's display format or as 2021-05-14[T10:30:00].
// Returns what is wrong, empty when the value was set.
NRX_API QString setWidgetValue(QWidget* widget, const QString& value);

// The value in the spelling of setWidgetValue; captions for labels and buttons.
// False when the widget has no value.
NRX_API bool widgetValue(const QWidget* widget, QString& value);
// Texts of all items of a combo box, list or tab bar; false for other widgets.
NRX_API bool widgetItems(const QWidget* widget, QStringList& items);

// Whether a value read from a widget is what was expected: equal as text, or as
// numbers if both are numbers.
NRX_API bool sameValue(const QString& met, const QString& expected);
// Class, name and what may be typed: for messages.
NRX_API QString describeWidget(const QWidget* widget);
