#include "form_driver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QProgressBar>
#include <QProgressDialog>
#include <algorithm>

namespace {

constexpr int kTickMilliseconds = 2;
// A form that stands idle for so many looks while the script goes on elsewhere
// was forgotten by the script.
constexpr int kIdleTicks = 100;

QString windowStepText(const FormStep& step)
{
    return step.verb + QStringLiteral(" «") + step.words.value(0) + QStringLiteral("»");
}

bool titleFits(const QWidget* window, const QString& title)
{
    return title == QLatin1String("*") || window->windowTitle() == title;
}

QWidget* findFreeWindow(const QString& name)
{
    for (QWidget* widget : QApplication::allWidgets())
        if (widget->isVisible() && (widget->windowTitle() == name || widget->objectName() == name)
            && (widget->isWindow() || widget->inherits("QDockWidget")))
            return widget;
    return nullptr;
}

} // namespace

QWidget* activeModalWindow(bool progress)
{
    QWidget* top = QApplication::activeModalWidget();
    if (!top || progress || !qobject_cast<QProgressDialog*>(top))
        return top;
    // Below a progress box: the form that shows it stays at work.
    return nullptr;
}

FormDriver::FormDriver(FormScript& script, QObject* parent) : QObject(parent), script_(script)
{
    timer_.setInterval(kTickMilliseconds);
    connect(&timer_, &QTimer::timeout, this, &FormDriver::tick);
}

FormDriver::~FormDriver() = default;

void FormDriver::start()
{
    touch();
    closing_ = false;
    posted_ = false;
    waitFor_ = 0;
    idleTicks_ = 0;
    timer_.start();
}

void FormDriver::stop()
{
    timer_.stop();
    entered_.clear();
    base_.clear();
}

void FormDriver::closeEverything() { closing_ = true; }

bool FormDriver::hasWindow() const { return target() || activeModalWindow(true); }

bool FormDriver::isAtWork(QWidget* window) const
{
    return std::find(atWork_.begin(), atWork_.end(), window) != atWork_.end();
}

bool FormDriver::isKnown(QWidget* window) const
{
    return std::find(entered_.begin(), entered_.end(), window) != entered_.end();
}

QWidget* FormDriver::target() const
{
    for (auto window = entered_.rbegin(); window != entered_.rend(); ++window)
        if (*window && (*window)->isVisible())
            return *window;
    return script_.commandRuns() ? nullptr : base_.data();
}

void FormDriver::tick()
{
    if (posted_)
        return;
    if (waitFor_ > 0) {
        if (waiting_.elapsed() < waitFor_)
            return;
        waitFor_ = 0;
        touch();
    }
    if (closing_) {
        closeOne(activeModalWindow(true));
        return;
    }
    while (!entered_.empty() && (!entered_.back() || !entered_.back()->isVisible()))
        entered_.pop_back();
    noteProgressBars();

    look();
}

// The window on top, a step for it, and whether they fit.
void FormDriver::look()
{
    const FormStep* step = script_.currentStep();
    if (QWidget* popup = QApplication::activePopupWidget()) {
        if (step && step->verb == QLatin1String("choose"))
            return doStep(popup, *step);
        return checkTimeout(step, nullptr);
    }
    const bool wanted = step && step->verb == QLatin1String("dialog");
    const QString title = wanted ? step->words.value(0) : QString();
    QWidget* modal = activeModalWindow(wanted);
    if (modal && !isKnown(modal)) {
        const bool progress = qobject_cast<QProgressDialog*>(modal) && !(wanted && modal->windowTitle() == title);
        return progress ? checkTimeout(step, modal) : takeNewWindow(modal);
    }
    QWidget* window = target();
    const bool now = step && step->verb == QLatin1String("press") && step->words.value(1) == QLatin1String("now");
    if (window && isAtWork(window) && !now)
        return checkTimeout(step, modal);
    if (step && step->verb == QLatin1String("window") && !modal && turnToWindow(*step))
        return;
    if (!window)
        return checkTimeout(step, modal);
    script_.settle();
    workOn(window);
}

void FormDriver::workOn(QWidget* window)
{
    const FormStep* step = script_.currentStep();
    if (!step) {
        // The script goes on elsewhere; a moment's grace, for the form may be
        // about to close.
        if (window != base_ && ++idleTicks_ > kIdleTicks)
            fail(QStringLiteral("окно ") + describeWindow(window) + QStringLiteral(" ждёт, а сценарий о нём молчит"),
                 -1, window);
        return;
    }
    idleTicks_ = 0;
    const bool opensDialog = step->verb == QLatin1String("dialog");
    if (opensDialog && window != base_ && titleFits(window, step->words.value(0))) {
        touch();
        script_.advance();
    } else if (opensDialog || step->verb == QLatin1String("window")) {
        waitAtRest(step, window == base_ ? nullptr : window);
    } else {
        doStep(window, *step);
    }
}

void FormDriver::takeNewWindow(QWidget* window)
{
    if (!window->isVisible())
        return;
    touch();
    script_.settle();
    const FormStep* step = script_.currentStep();
    if (!step || step->verb != QLatin1String("dialog"))
        return fail(QStringLiteral("открылось окно ") + describeWindow(window)
                        + QStringLiteral(", о котором в сценарии нет речи"),
                    -1, window);
    if (!titleFits(window, step->words.value(0)))
        return fail(QStringLiteral("ожидалось окно «") + step->words.value(0) + QStringLiteral("», открылось ")
                        + describeWindow(window),
                    -1, window);
    entered_.emplace_back(window);
    script_.advance();
}

bool FormDriver::turnToWindow(const FormStep& step)
{
    QWidget* found = findFreeWindow(step.words.value(0));
    if (!found)
        return false;
    base_ = found;
    touch();
    script_.advance();
    return true;
}

void FormDriver::doStep(QWidget* target, const FormStep& step)
{
    touch();
    // A copy: the step's place in the script is left before it is done, since
    // what it starts may look at the next one.
    const FormStep copy = step;
    const QPointer<QWidget> window(target);
    script_.advance();
    if (copy.verb == QLatin1String("wait")) {
        waitFor_ = int(copy.words.value(0).toDouble() * 1000.0);
        waiting_.restart();
        return;
    }
    // Not from here: a timer does not fire again while its slot runs, and the
    // step may open a box that waits for this very timer.
    posted_ = true;
    QMetaObject::invokeMethod(
        this, [this, window, copy] { perform(window, copy); }, Qt::QueuedConnection);
}

// The pointer is a copy: the step may close what the caller looks at.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void FormDriver::perform(QPointer<QWidget> target, const FormStep& step)
{
    posted_ = false;
    if (!target)
        return fail(windowStepText(step) + QStringLiteral(": окно уже закрыто"), step.place, nullptr);
    const QPointer<FormDriver> self(this);
    atWork_.push_back(target);
    const QString wrong = performFormStep(target, step);
    if (!self)
        return;
    atWork_.pop_back();
    touch();
    if (!wrong.isEmpty())
        fail(QStringLiteral("окно «") + (target ? target->windowTitle() : QString()) + QStringLiteral("»: ") + wrong,
             step.place, target && target != base_ ? target.data() : nullptr);
}

void FormDriver::closeOne(QWidget* active)
{
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
        return;
    }
    if (!active)
        return;
    // Posted for the reason given in doStep: closing may ask a question.
    posted_ = true;
    const QPointer<QWidget> window(active);
    QMetaObject::invokeMethod(
        this,
        [this, window] {
            posted_ = false;
            if (auto* dialog = qobject_cast<QDialog*>(window.data())) {
                dialog->reject();
                if (window && window->isVisible())
                    dialog->done(QDialog::Rejected);
            } else if (window) {
                window->close();
            }
        },
        Qt::QueuedConnection);
}

// The window that went wrong is closed, so that nothing waits for it.
void FormDriver::fail(const QString& what, int place, QWidget* window)
{
    idleTicks_ = 0;
    script_.stepFailed(what, place);
    if (window)
        closeOne(window);
}

// Work that moves a progress bar goes on, however long it takes.
void FormDriver::noteProgressBars()
{
    qint64 sum = 0;
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top->isVisible())
            for (const QProgressBar* bar : top->findChildren<QProgressBar*>())
                sum += bar->value();
    if (sum != progressSum_)
        touch();
    progressSum_ = sum;
}

void FormDriver::checkTimeout(const FormStep* step, QWidget* window)
{
    if (sinceProgress_.elapsed() > timeout_)
        giveUp(step, window);
}

// Nothing is at work here: another window comes at once or not at all.
void FormDriver::waitAtRest(const FormStep* step, QWidget* window)
{
    if (patience_ > 0 && ++looksAtRest_ > patience_)
        giveUp(step, window);
    else
        checkTimeout(step, window);
}

void FormDriver::giveUp(const FormStep* step, QWidget* window)
{
    touch();
    const QString what =
        step ? QStringLiteral("не дождались: ") + windowStepText(*step) : QStringLiteral("окно не отвечает");
    fail(what + QStringLiteral(" (") + QString::number(timeout_ / 1000.0) + QStringLiteral(" с)"), -1, window);
}
