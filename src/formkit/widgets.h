#pragma once
// Makers of widgets. A widget carries its object name, by which tests and
// scripts find it, from the moment it is made; a form assigns it to its member
// where it stands in the layout:
//
//   grid({{"Со слоя", layer_ = combo("BoundLayer")},
//         {"Степень", power_ = numberEdit("MethodParamOne", "2.0")}})
//
// A widget without a parent gets one when its layout is put into the form.

#include "formkit/choices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <QToolButton>
#include <utility>

namespace formkit {

/// Any widget, with its name.
template <class Widget, class... Arguments>
Widget* named(const QString& name, Arguments&&... arguments)
{
    auto* widget = new Widget(std::forward<Arguments>(arguments)...);
    widget->setObjectName(name);
    return widget;
}

/// Gives a form its object name and its title.
void nameForm(QWidget* form, const QString& name, const QString& title);

// --- what is read ---------------------------------------------------------------

QLabel* label(const QString& caption);
/// A value that the form shows; the user may select and copy it.
QLabel* readOut(const QString& name, const QString& text = QString());
/// A sentence that may need several lines.
QLabel* note(const QString& name, const QString& text = QString());
/// A read-only log of at least so many lines.
QPlainTextEdit* logBox(const QString& name, int lines);
/// Adds the text at the log's end as it stands: line breaks are the text's own.
void appendToLog(QPlainTextEdit* log, const QString& text);

// --- what is written ---------------------------------------------------------------

QLineEdit* edit(const QString& name, const QString& text = QString());
QLineEdit* passwordEdit(const QString& name);
/// Takes what the session's number pattern takes: digits, a sign, a point.
QLineEdit* numberEdit(const QString& name, const QString& text = QString());
QPlainTextEdit* linesEdit(const QString& name, int leastLines);
QDateEdit* dateEdit(const QString& name, const QDate& date);
QSpinBox* spin(const QString& name, int least, int most, int value = 0);
QDoubleSpinBox* realSpin(const QString& name, double least, double most, double step = 1.0, int decimals = 2);
QSlider* slider(const QString& name, int least, int most, int value);

// --- what is chosen -----------------------------------------------------------------

QComboBox* combo(const QString& name, const Choices& choices = {});
/// A box that long entries do not widen: room for so many characters.
QComboBox* narrowCombo(const QString& name, int characters, const Choices& choices = {});
QCheckBox* check(const QString& name, const QString& caption, bool on = false);
QRadioButton* radio(const QString& name, const QString& caption, bool on = false);
QListWidget* listBox(const QString& name);
/// A table with the column titles; the user reads it, sorts and copies.
QTableWidget* table(const QString& name, const QStringList& titles = {});

// --- what is pressed ----------------------------------------------------------------

/// Enter elsewhere in the form does not press it.
QPushButton* button(const QString& name, const QString& caption);
/// The same, calling the slot.
template <class Receiver, class Slot>
QPushButton* button(const QString& name, const QString& caption, Receiver* receiver, Slot slot)
{
    QPushButton* made = button(name, caption);
    QObject::connect(made, &QPushButton::clicked, receiver, slot);
    return made;
}
/// Shows the icon of the set (see icons.h); while it is not delivered, the
/// caption. Without a tip of its own it tells its caption.
QToolButton* toolButton(const QString& name, const QString& caption, const QString& iconName,
                        const QString& tip = QString());
/// "...", no wider than it needs.
QPushButton* dotsButton(const QString& name);
/// Makes the button wide enough for the caption, which it may get later.
void keepRoomFor(QPushButton* button, const QString& caption);

// --- said of a widget where it stands ------------------------------------------------

template <class Widget>
Widget* tipped(Widget* widget, const QString& tip)
{
    widget->setToolTip(tip);
    return widget;
}
template <class Widget>
Widget* disabled(Widget* widget)
{
    widget->setEnabled(false);
    return widget;
}
template <class Widget>
Widget* readOnly(Widget* widget)
{
    widget->setReadOnly(true);
    return widget;
}
template <class Widget>
Widget* hidden(Widget* widget)
{
    widget->hide();
    return widget;
}
/// No wider than so many pixels.
template <class Widget>
Widget* within(int width, Widget* widget)
{
    widget->setMaximumWidth(width);
    return widget;
}

} // namespace formkit
