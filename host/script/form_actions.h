// What a script or a test does to a window that stands open: one table of verbs.
#pragma once

#include <nrx/types.h>

#include <QStringList>
#include <QWidget>
#include <functional>
#include <optional>

// One step: a verb of the table below with its words, or, in C++ only, a call
// (verb "call") that returns what is wrong.
//
//   text TEXT | text contains TEXT      a box's text or any label of a form
//   set NAME VALUE                      see widget_access.h
//   check NAME VALUE, contains NAME TEXT, items NAME TEXT..., rows NAME COUNT
//   state NAME enabled|disabled|visible|hidden|checked|unchecked...
//   cell NAME ROW COLUMN VALUE, check-cell NAME ROW COLUMN VALUE
//   row NAME ROW [add], double NAME ROW [COLUMN], key NAME KEYS
//   press NAME [now]                    by object name or caption; "now" also
//                                       while the form works
//   menu NAME [ROW COLUMN], choose ITEM context menu and what is chosen in it
//   files PATH..., color R,G,B          in a file or colour dialog
//   screenshot PATH, wait SECONDS, close
// "dialog TITLE" (the next modal window has that title, * for any) and "window
// TITLE" (turn to a window that is not modal, by title or object name) are the
// driver's.
struct FormStep {
    QString verb;
    QStringList words;
    std::function<QString(QWidget*)> call;
    int place = -1; // the maker's own: which line of a script
};

// Whether a verb is one for windows, and how many words it takes.
NRX_API bool isFormVerb(const QString& verb);
// What is wrong with the number of words, empty if nothing is.
NRX_API QString checkFormStep(const FormStep& step);
// Does a step to a window, except dialog and window. Returns what is wrong.
NRX_API QString performFormStep(QWidget* window, const FormStep& step);

// The text that a modal box shows: of message, input and progress boxes the
// text, of other forms nothing.
NRX_API std::optional<QString> boxText(const QWidget* window);
// Title and text for messages.
NRX_API QString describeWindow(const QWidget* window);
