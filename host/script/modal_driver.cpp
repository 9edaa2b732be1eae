#include "modal_driver.h"

#include <QCoreApplication>
#include <QEventLoop>

ExpectedWindow& ExpectedWindow::step(const char* verb, const QStringList& words)
{
    driver_.add({QString::fromLatin1(verb), words, {}});
    return *this;
}

ExpectedWindow& ExpectedWindow::call(const std::function<QString(QWidget*)>& function)
{
    driver_.add({QStringLiteral("call"), {}, function});
    return *this;
}

ModalDriver::ModalDriver() : driver_(*this) { driver_.start(); }

ModalDriver::~ModalDriver() = default;

ExpectedWindow ModalDriver::expect(const QString& title)
{
    add({QStringLiteral("dialog"), {title}, {}});
    return ExpectedWindow(*this);
}

ExpectedWindow ModalDriver::window(const QString& name)
{
    add({QStringLiteral("window"), {name}, {}});
    return ExpectedWindow(*this);
}

void ModalDriver::setStepTimeout(double seconds) { driver_.setStepTimeout(int(seconds * 1000.0)); }

void ModalDriver::play()
{
    driver_.touch();
    const int failed = failures_.size();
    while ((!steps_.empty() || !driver_.isIdle()) && failures_.size() == failed)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

QString ModalDriver::report() const
{
    QStringList lines = failures_;
    for (const FormStep& step : steps_)
        lines << QStringLiteral("не сделано: ") + step.verb + QLatin1Char(' ') + step.words.join(QLatin1Char(' '));
    return lines.join(QLatin1Char('\n'));
}

const FormStep* ModalDriver::currentStep() { return steps_.empty() ? nullptr : &steps_.front(); }

void ModalDriver::advance() { steps_.pop_front(); }

// Steps of the window that went wrong are dropped with it: the next one is
// judged by its own expectation.
void ModalDriver::stepFailed(const QString& what, int)
{
    failures_ << what;
    while (!steps_.empty() && steps_.front().verb != QLatin1String("dialog")
           && steps_.front().verb != QLatin1String("window"))
        steps_.pop_front();
}
