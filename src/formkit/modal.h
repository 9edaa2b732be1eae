#pragma once
// The pattern by which every command opens its modal form.

#include <nrx/application.h>
#include <nrx/palettes.h>

#include <QDialog>
#include <optional>
#include <utility>

namespace formkit {

/// The host's main window as the parent of what opens now, centred.
class OverHost {
public:
    OverHost() : window_(ndsw_ncadMainWnd()) { window_.showCentered(); }
    operator QWidget*() { return &window_; }

private:
    QWinWidget window_;
};

} // namespace formkit

/// Builds the form over the host's main window, runs it and deletes it. Returns
/// what exec() returned; `afterwards(form, result)` sees the form before it goes.
template <class Form, class Afterwards, class... Arguments>
int runModalThen(Afterwards afterwards, Arguments&&... arguments)
{
    formkit::OverHost host;
    Form form(std::forward<Arguments>(arguments)..., host);
    const int result = form.exec();
    afterwards(form, result);
    return result;
}

template <class Form, class... Arguments>
int runModal(Arguments&&... arguments)
{
    return runModalThen<Form>([](Form&, int) {}, std::forward<Arguments>(arguments)...);
}

namespace formkit {

template <class Value>
struct Answered {
    using type = std::optional<Value>;
};
template <class Value>
struct Answered<std::optional<Value>> {
    using type = std::optional<Value>;
};

} // namespace formkit

/// Runs the form over the host's main window and asks it: what `answer` says of
/// an accepted form, nothing of a closed one.
///
///   const std::optional<unsigned> mask = askModal(&ElementSyncFilter::mask);
template <class Form, class Value, class... Arguments>
typename formkit::Answered<std::decay_t<Value>>::type askModal(Value (Form::*answer)() const, Arguments&&... arguments)
{
    typename formkit::Answered<std::decay_t<Value>>::type given;
    runModalThen<Form>(
        [&given, answer](const Form& form, int result) {
            if (result == QDialog::Accepted)
                given = (form.*answer)();
        },
        std::forward<Arguments>(arguments)...);
    return given;
}

/// The same over a form that is open.
template <class Form, class Value, class... Arguments>
typename formkit::Answered<std::decay_t<Value>>::type askOver(QWidget* parent, Value (Form::*answer)() const,
                                                              Arguments&&... arguments)
{
    Form form(std::forward<Arguments>(arguments)..., parent);
    if (form.exec() != QDialog::Accepted)
        return {};
    return (form.*answer)();
}
