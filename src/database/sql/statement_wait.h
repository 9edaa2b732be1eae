#pragma once
// Sees a statement that was sent through to its last result.

#include "database/sql/result.h"

struct pg_conn;

namespace sql {

class StatementWait {
public:
    explicit StatementWait(pg_conn* connection);
    ~StatementWait();
    StatementWait(const StatementWait&) = delete;
    StatementWait& operator=(const StatementWait&) = delete;

    /// Ends what an earlier statement left behind: results nobody took, a copy
    /// that nobody fed. To be called before the statement is sent.
    bool clearTheWay();
    /// The last result, as a blocking call would give it.
    Result finish();
    /// The user gave up and the server did not take note: nothing more can be
    /// asked on this connection.
    bool isLost() const { return lost_; }

private:
    bool keepWaiting();
    void requestCancel();

    pg_conn* connection_;
    bool lost_ = false;
    struct Patience;
    std::unique_ptr<Patience> patience_;
};

} // namespace sql
