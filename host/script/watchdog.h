// Ends the program when its main thread stands still: the last resort of
// unattended work.
#pragma once

#include <QtGlobal>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

class Watchdog {
public:
    // `onHang` is called from the watching thread, once, and must not return to
    // waiting: it ends the program.
    explicit Watchdog(std::function<void()> onHang);
    ~Watchdog();

    void setLimit(int milliseconds) { limit_ = milliseconds; }
    // The main thread is alive.
    void beat() { beats_.fetch_add(1, std::memory_order_relaxed); }

private:
    void watch();

    std::function<void()> onHang_;
    std::atomic<quint64> beats_{0};
    std::atomic<int> limit_{60000};
    bool over_ = false;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::thread thread_;
};
