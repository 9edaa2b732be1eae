#include "long_work.h"

namespace {

LongWork* g_present = nullptr;

WorkBox& workBox()
{
    static WorkBox box;
    return box;
}

} // namespace

LongWork::LongWork(Watcher watcher) : watcher_(std::move(watcher)), before_(g_present) { g_present = this; }

LongWork::~LongWork() { g_present = before_; }

bool LongWork::goOn(double done)
{
    LongWork* work = g_present;
    if (!work || !work->watcher_)
        return true;
    if (!work->stopped_ && !work->watcher_(done))
        work->stopped_ = true;
    return !work->stopped_;
}

bool LongWork::isStopped() { return g_present && g_present->stopped_; }

void setWorkBox(const WorkBox& box) { workBox() = box; }

std::shared_ptr<void> showWork(const QString& title) { return workBox() ? workBox()(title) : nullptr; }
