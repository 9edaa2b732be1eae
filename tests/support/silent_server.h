#pragma once
// Servers and links that do not answer.

#include <QString>
#include <atomic>
#include <thread>

/// Takes connections and says nothing.
class SilentServer {
public:
    SilentServer();
    ~SilentServer();
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    QString conninfo() const;

private:
    int listener_ = -1;
    int port_ = 0;
};

/// Passes one connection on to the test server until it stalls; further ones
/// are taken and not answered.
class StallingLink {
public:
    StallingLink();
    ~StallingLink();
    StallingLink(const StallingLink&) = delete;
    StallingLink& operator=(const StallingLink&) = delete;

    QString conninfo(const QString& database) const;
    void stall() { stalled_ = true; }
    /// Waits so long before each piece that it passes on.
    void delay(int milliseconds) { delay_ = milliseconds; }

private:
    void serve();

    int listener_ = -1;
    int port_ = 0;
    std::atomic<bool> stalled_{false};
    std::atomic<bool> stop_{false};
    std::atomic<int> delay_{0};
    std::thread thread_;
};
