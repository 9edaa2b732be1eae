#pragma once
// How far a piece of work has come. Whoever works tells every step; what is
// shown is thinned here, since painting each step would cost more than the work.

#include "formkit/modal.h"

#include <QElapsedTimer>
#include <QString>
#include <memory>

class QProgressBar;
class QProgressDialog;

namespace formkit {

/// Says when it is time to show a step.
class Pace {
public:
    /// True at the first step, at every 40 ms and at the last step.
    bool isDue(int done, int total);
    void start() { sinceShown_.invalidate(); }

private:
    QElapsedTimer sinceShown_;
};

/// A box with a bar and a button that stops the work. It opens once the work
/// has taken a second, or the milliseconds told, and closes with this object.
class ProgressBox {
public:
    /// Without a parent over the host's main window. Without a text the box
    /// shows that of the step.
    ProgressBox(QWidget* parent, const QString& title, const QString& text,
                const QString& stop = QStringLiteral("Отмена"), int quietTime = 1000);
    ~ProgressBox();

    /// False once the user has stopped the work.
    bool step(int done, int total, const QString& text = QString());

private:
    std::unique_ptr<OverHost> host_;
    std::unique_ptr<QProgressDialog> box_;
    Pace pace_;
};

/// A box for a wait whose length nobody knows; it stands at once. Nothing else of
/// the program may be touched meanwhile.
class WaitBox {
public:
    WaitBox(const QString& name, const QString& title, const QString& text, const QString& stop);
    ~WaitBox();

    /// False once the user has given the wait up.
    bool goOn();

private:
    std::unique_ptr<QProgressDialog> box_;
};

/// A bar that stands in a form. Clicks wait until the work has ended.
class BarProgress {
public:
    void start(QProgressBar* bar, int steps);
    void step(int done);

private:
    QProgressBar* bar_ = nullptr;
    Pace pace_;
};

} // namespace formkit
