// Plays steps on the windows that open, from the event loop of whatever shows
// them. Scripts and tests feed it; see modal_driver.h for tests.
#pragma once

#include "form_actions.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <vector>

// Where the steps come from, in order.
class NRX_API FormScript {
public:
    virtual ~FormScript() = default;
    // The step that comes next; null when what comes next is not for a window,
    // or nothing is left.
    virtual const FormStep* currentStep() = 0;
    // The current step was taken.
    virtual void advance() = 0;
    // A step that bears `place` went wrong, or, -1, the waiting for the current one.
    virtual void stepFailed(const QString& what, int place) = 0;
    // No window is at work: what needs no window may be done now.
    virtual void settle() { }
    // A command runs, so that only its own windows are worked on.
    virtual bool commandRuns() const { return false; }
};

// Looks every few milliseconds at the topmost modal window. A window that no
// "dialog" step announced is a failure and is closed. Steps are done one after
// another on the window entered last that is still open; a window whose button
// is still at work is left alone until it is done or shows another window.
// Progress boxes are passed over unless a step announces them.
class NRX_API FormDriver : public QObject {
    Q_OBJECT
public:
    explicit FormDriver(FormScript& script, QObject* parent = nullptr);
    ~FormDriver() override;

    void start();
    void stop();
    // Milliseconds without progress after which a step fails.
    void setStepTimeout(int milliseconds) { timeout_ = milliseconds; }
    // How often a window at rest, or none, is looked at before what the script waits for there is
    // held for missing; 0: the time alone counts.
    void setPatience(int looks) { patience_ = looks; }
    // From now on every modal window is closed, so that what runs can end.
    void closeEverything();
    // Something went on: the time limit starts anew.
    void touch()
    {
        sinceProgress_.restart();
        looksAtRest_ = 0;
    }
    // No step is under way.
    bool isIdle() const { return !posted_ && atWork_.empty(); }
    // A window to work on stands open.
    bool hasWindow() const;

private:
    void tick();
    void closeOne(QWidget* active);
    void look();
    void workOn(QWidget* window);
    void takeNewWindow(QWidget* window);
    bool turnToWindow(const FormStep& step);
    void doStep(QWidget* target, const FormStep& step);
    void perform(QPointer<QWidget> target, const FormStep& step);
    void fail(const QString& what, int place, QWidget* window);
    void noteProgressBars();
    void checkTimeout(const FormStep* step, QWidget* window);
    void waitAtRest(const FormStep* step, QWidget* window);
    void giveUp(const FormStep* step, QWidget* window);
    bool isAtWork(QWidget* window) const;
    bool isKnown(QWidget* window) const;
    QWidget* target() const;

    FormScript& script_;
    QTimer timer_;
    QElapsedTimer sinceProgress_, waiting_;
    int timeout_ = 60000;
    int patience_ = 0;
    int looksAtRest_ = 0;
    int waitFor_ = 0;
    int idleTicks_ = 0;
    bool posted_ = false;
    bool closing_ = false;
    qint64 progressSum_ = 0;
    std::vector<QPointer<QWidget>> entered_; // modal windows that were announced, outermost first
    QPointer<QWidget> base_;                 // the window turned to that is not modal
    std::vector<QPointer<QWidget>> atWork_;  // windows whose step is not done yet
};

// The topmost modal window that is not a progress box; with `progress` also one.
NRX_API QWidget* activeModalWindow(bool progress = false);
