#pragma once
// Stands between clients and the server, keeps the statements that were asked,
// counts those that were answered, and cuts the connection after one of them or
// has the server refuse one. What pg_dump asks passes uncounted.

#include <QStringList>
#include <atomic>
#include <memory>
#include <mutex>
#include <thread>

class StatementRelay {
public:
    /// Listens on a free port of this machine and passes on to the test server.
    StatementRelay();
    ~StatementRelay();
    StatementRelay(const StatementRelay&) = delete;
    StatementRelay& operator=(const StatementRelay&) = delete;

    static QString host();
    QString port() const;

    /// Starts counting from 0. After the answer to the n-th statement both
    /// sides are closed, once; a later connection works again. -1: never.
    void cutAfter(int statements);
    bool hasCut() const { return cut_; }
    /// Starts counting from 0. The n-th statement reaches the server spoiled and
    /// is refused; the connection stands. -1: never.
    void refuse(int statement);
    bool hasRefused() const;
    /// Answered since counting began.
    int statements() const { return count_; }
    /// Asked since counting began, as the client sent them.
    QStringList texts() const;

private:
    void startAnew();
    void passOn(QByteArray& statement);
    void serve();

    int listener_ = -1;
    int port_ = 0;
    std::atomic<int> count_{0};
    std::atomic<int> limit_{-1};
    std::atomic<bool> cut_{false};
    std::atomic<bool> stop_{false};
    std::atomic<int> refused_{-1};
    mutable std::mutex textsGuard_;
    QStringList texts_;
    std::thread thread_;
};
