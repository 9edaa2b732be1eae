#include "watchdog.h"

#include <chrono>

Watchdog::Watchdog(std::function<void()> onHang) : onHang_(std::move(onHang)), thread_([this] { watch(); }) { }

Watchdog::~Watchdog()
{
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        over_ = true;
    }
    wake_.notify_all();
    thread_.join();
}

void Watchdog::watch()
{
    using Clock = std::chrono::steady_clock;
    quint64 seen = beats_;
    Clock::time_point since = Clock::now();
    std::unique_lock<std::mutex> lock(mutex_);
    while (!wake_.wait_for(lock, std::chrono::milliseconds(100), [this] { return over_; })) {
        if (const quint64 now = beats_; now != seen) {
            seen = now;
            since = Clock::now();
        } else if (Clock::now() - since > std::chrono::milliseconds(limit_)) {
            onHang_();
            return;
        }
    }
}
