#include "busy_box.h"

#include <QApplication>
#include <QProgressDialog>

#include <algorithm>

namespace {

constexpr int kSteps = 1000, kBetweenLooks = 40; // ms
int g_quietTime = 500;

} // namespace

BusyBox::BusyBox(QWidget* parent, const QString& title)
    : parent_(parent), title_(title), work_([this](double done) { return look(done); })
{
    since_.start();
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

BusyBox::~BusyBox()
{
    if (!box_)
        QApplication::restoreOverrideCursor();
}

int BusyBox::setQuietTime(int milliseconds) { return std::exchange(g_quietTime, milliseconds); }

void BusyBox::show()
{
    QApplication::restoreOverrideCursor();
    box_ =
        std::make_unique<QProgressDialog>(title_ + QStringLiteral("…"), QStringLiteral("Отмена"), 0, kSteps, parent_);
    box_->setObjectName(QStringLiteral("busyBox"));
    box_->setWindowTitle(title_);
    box_->setWindowModality(Qt::ApplicationModal);
    box_->setMinimumWidth(360);
    box_->setMinimumDuration(0);
    box_->setAutoReset(false);
    box_->setAutoClose(false);
    box_->show();
}

// While events are worked off, a timer may do work of its own, such as the copies
// of what is not saved: nobody stops that.
bool BusyBox::look(double done)
{
    if (looking_ || since_.elapsed() < g_quietTime || (looked_.isValid() && looked_.elapsed() < kBetweenLooks))
        return true;
    if (!box_)
        show();
    looking_ = true;
    shown_ = std::max(shown_, int(kSteps * done)); // work of several parts does not run back
    box_->setValue(shown_);
    QCoreApplication::processEvents();
    looking_ = false;
    looked_.start();
    return !box_->wasCanceled();
}

std::pair<QString, bool> busyWriting(QWidget* parent, const QString& title, const std::function<QString()>& work)
{
    const BusyBox busy(parent, title);
    const QString wrong = work();
    return {wrong, busy.cancelled()};
}
