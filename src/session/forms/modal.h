// The pattern by which every command opens its modal form.
#pragma once

#include <nrx/application.h>
#include <nrx/palettes.h>

#include <QDialog>
#include <utility>

// Builds the form over the host's main window, centred, runs it and deletes it.
// Returns what exec() returned; `afterwards(form, result)` sees the form before
// it goes.
template <class Form, class Afterwards, class... Arguments>
int runModalThen(Afterwards afterwards, Arguments&&... arguments)
{
    QWinWidget owner(ndsw_ncadMainWnd());
    owner.showCentered();
    Form form(std::forward<Arguments>(arguments)..., &owner);
    const int result = form.exec();
    afterwards(form, result);
    return result;
}

template <class Form, class... Arguments>
int runModal(Arguments&&... arguments)
{
    return runModalThen<Form>([](Form&, int) {}, std::forward<Arguments>(arguments)...);
}
