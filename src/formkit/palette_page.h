#pragma once
// A page of a palette set as one line: palettePage<SQLForm>("SQL").

#include <QWidget>
#include <functional>

struct PalettePage {
    const char* title;
    std::function<QWidget*(QWidget* parent)> make;
    std::function<void(QWidget* form)> refresh; ///< passes over another form
};

/// A page that holds the form and calls its refresh() when the palette is shown.
template <class Form>
PalettePage palettePage(const char* title)
{
    return {title, [](QWidget* parent) -> QWidget* { return new Form(parent); },
            [](QWidget* widget) {
                if (auto* form = qobject_cast<Form*>(widget))
                    form->refresh();
            }};
}
