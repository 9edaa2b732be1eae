#include "formkit/progress_box.h"

#include "formkit/widgets.h"

#include <QApplication>
#include <QProgressBar>
#include <QProgressDialog>

namespace formkit {

namespace {

constexpr int kPause = 40; // ms between two looks

} // namespace

bool Pace::isDue(int done, int total)
{
    const bool due = !sinceShown_.isValid() || done >= total || sinceShown_.elapsed() >= kPause;
    if (due)
        sinceShown_.restart();
    return due;
}

ProgressBox::ProgressBox(QWidget* parent, const QString& title, const QString& text, const QString& stop, int quietTime)
    : host_(parent ? nullptr : std::make_unique<OverHost>()),
      box_(std::make_unique<QProgressDialog>(text, stop, 0, 1, host_ ? static_cast<QWidget*>(*host_) : parent))
{
    box_->setWindowTitle(title);
    box_->setWindowModality(Qt::WindowModal);
    box_->setMinimumDuration(quietTime);
    box_->setAutoReset(false);
}

ProgressBox::~ProgressBox() = default;

bool ProgressBox::step(int done, int total, const QString& text)
{
    const bool another = !text.isEmpty() && text != box_->labelText();
    if (another)
        box_->setLabelText(text);
    if (pace_.isDue(done, total) || another) {
        box_->setMaximum(total);
        box_->setValue(done);
        // Until the box stands before the form, clicks in the form wait.
        QCoreApplication::processEvents(box_->isVisible() ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    }
    return !box_->wasCanceled();
}

WaitBox::WaitBox(const QString& name, const QString& title, const QString& text, const QString& stop)
{
    QWidget* above = QApplication::activeModalWidget();
    box_ = std::make_unique<QProgressDialog>(text, stop, 0, 0, above ? above : ndsw_ncadMainWnd());
    nameForm(box_.get(), name, title);
    box_->setWindowModality(Qt::ApplicationModal);
    box_->setMinimumDuration(0);
    box_->show();
}

WaitBox::~WaitBox() = default;

bool WaitBox::goOn()
{
    QCoreApplication::processEvents();
    return !box_->wasCanceled();
}

void BarProgress::start(QProgressBar* bar, int steps)
{
    bar_ = bar;
    bar_->setUpdatesEnabled(true);
    bar_->setMaximum(qMax(1, steps));
    bar_->setValue(0);
    pace_.isDue(0, steps);
}

// The bar follows every step, whoever asks for its value; painting is thinned.
void BarProgress::step(int done)
{
    const bool due = pace_.isDue(done, bar_->maximum());
    bar_->setUpdatesEnabled(due);
    bar_->setValue(done);
    if (due)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace formkit
