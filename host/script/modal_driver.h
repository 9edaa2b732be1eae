// Answers modal boxes in tests and in the demo, in the order in which they are
// expected:
//
//   ModalDriver driver;
//   driver.expect("Внимание").text("Удалить элемент?").press("Да");
//   driver.expect("Параметры").set("NameEdit", "ТС.1").press("OkBTN");
//   form.removeElement();
//   EXPECT_TRUE(driver.done()) << driver.report();
//
// A box that is not expected, or that is not as told, is closed (as by Esc) and
// recorded, so that nothing hangs; the further expectations stand.
#pragma once

#include "form_driver.h"

#include <deque>

class ModalDriver;

// Adds steps for one window; each call returns itself.
class NRX_API ExpectedWindow {
public:
    ExpectedWindow& text(const QString& whole) { return step("text", {whole}); }
    ExpectedWindow& textContains(const QString& part) { return step("text", {QStringLiteral("contains"), part}); }
    ExpectedWindow& set(const QString& name, const QString& value) { return step("set", {name, value}); }
    ExpectedWindow& check(const QString& name, const QString& value) { return step("check", {name, value}); }
    ExpectedWindow& contains(const QString& name, const QString& part) { return step("contains", {name, part}); }
    ExpectedWindow& press(const QString& nameOrCaption) { return step("press", {nameOrCaption}); }
    ExpectedWindow& files(const QStringList& paths) { return step("files", paths); }
    ExpectedWindow& color(const QString& value) { return step("color", {value}); }
    ExpectedWindow& screenshot(const QString& path) { return step("screenshot", {path}); }
    ExpectedWindow& close() { return step("close", {}); }
    // Any verb of form_actions.h.
    ExpectedWindow& step(const char* verb, const QStringList& words);
    // Anything else; the function returns what is wrong.
    ExpectedWindow& call(const std::function<QString(QWidget*)>& function);

private:
    friend class ModalDriver;
    explicit ExpectedWindow(ModalDriver& driver) : driver_(driver) { }
    ModalDriver& driver_;
};

class NRX_API ModalDriver : private FormScript {
public:
    ModalDriver();
    ~ModalDriver() override;

    // The next modal window has this title ("*" for any); steps follow it.
    ExpectedWindow expect(const QString& title);
    // Steps for a window that is open and not modal, by title or object name.
    ExpectedWindow window(const QString& name);
    // Seconds without progress after which a step fails.
    void setStepTimeout(double seconds);

    // Runs the event loop until all steps are done or one failed. For windows
    // that no exec() waits for.
    void play();

    // Every step was taken and nothing unexpected was met.
    bool done() const { return steps_.empty() && failures_.isEmpty(); }
    const QStringList& failures() const { return failures_; }
    // What went wrong and what was left over, for a test's message.
    QString report() const;

private:
    friend class ExpectedWindow;
    const FormStep* currentStep() override;
    void advance() override;
    void stepFailed(const QString& what, int place) override;
    void add(const FormStep& step) { steps_.push_back(step); }

    std::deque<FormStep> steps_;
    QStringList failures_;
    FormDriver driver_;
};
