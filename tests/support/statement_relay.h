#pragma once
// Stands between a client and the server, counts the statements that were
// answered and cuts the connection after one of them.

#include <QString>
#include <atomic>
#include <memory>
#include <thread>

class StatementRelay
{
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
    /// Answered since cutAfter().
    int statements() const { return count_; }
    bool hasCut() const { return cut_; }

private:
    void serve();

    int listener_ = -1;
    int port_ = 0;
    std::atomic<int> count_{0};
    std::atomic<int> limit_{-1};
    std::atomic<bool> cut_{false};
    std::atomic<bool> stop_{false};
    std::thread thread_;
};
