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
    /// Of a link whose delay is set: loses this share of its packets. What TCP then still carries is
    /// 1.22 MSS / (RTT sqrt(share)) bytes a second (Mathis, Semke, Mahdavi and Ott, 1997).
    void lose(double share);
    QString port() const { return QString::number(port_); }
    qint64 bytesToClient() const { return toClient_; }

private:
    void serve();
    int pass(int from, int to) const;

    int listener_ = -1;
    int port_ = 0;
    std::atomic<bool> stalled_{false};
    std::atomic<bool> stop_{false};
    std::atomic<int> delay_{0};
    std::atomic<int> most_{0}; // bytes a second; 0: no end
    std::atomic<qint64> toClient_{0};
    std::thread thread_;
};
