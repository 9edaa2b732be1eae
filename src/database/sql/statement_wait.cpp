#include "database/sql/statement_wait.h"

#include "database/sql/busy.h"
#include "database/sql/socket_wait.h"

#include <QElapsedTimer>
#include <libpq-fe.h>
#include <thread>

namespace sql {

namespace {

// A statement shorter than this passes without a word.
constexpr int quietMilliseconds = 1000;
// How often the window is let work.
constexpr int sliceMilliseconds = 50;
// How long the server may take to give up what it was asked to.
constexpr int cancelMilliseconds = 3000;

BusyHook& busyHook()
{
    static BusyHook hook;
    return hook;
}

int statementsUnderWay = 0;

} // namespace

BusyHook setBusyHook(BusyHook hook)
{
    std::swap(busyHook(), hook);
    return hook;
}

bool isStatementUnderWay() { return statementsUnderWay > 0; }

struct StatementWait::Patience {
    Patience() { clock.start(); }

    QElapsedTimer clock;
    std::unique_ptr<Busy> busy;
    QElapsedTimer sinceCancel;
};

StatementWait::StatementWait(pg_conn* connection) : connection_(connection), patience_(std::make_unique<Patience>())
{
    ++statementsUnderWay;
}

StatementWait::~StatementWait() { --statementsUnderWay; }

bool StatementWait::clearTheWay()
{
    while (pg_result* left = PQgetResult(connection_)) {
        const ExecStatusType status = PQresultStatus(left);
        PQclear(left);
        if (status == PGRES_COPY_IN && PQputCopyEnd(connection_, "the next statement came") < 0)
            return false;
        if (status == PGRES_COPY_BOTH)
            return false;
        char* row = nullptr;
        while (status == PGRES_COPY_OUT && PQgetCopyData(connection_, &row, 0) > 0)
            PQfreemem(row);
        if (PQstatus(connection_) == CONNECTION_BAD)
            break;
    }
    return true;
}

Result StatementWait::finish()
{
    Result last;
    for (;;) {
        const int unsent = PQflush(connection_);
        if (unsent <= 0 && !PQisBusy(connection_)) {
            pg_result* next = PQgetResult(connection_);
            if (!next)
                return last;
            last = Result(next);
            const ExecStatusType status = PQresultStatus(next);
            const bool copies = status == PGRES_COPY_IN || status == PGRES_COPY_OUT || status == PGRES_COPY_BOTH;
            if (copies || PQstatus(connection_) == CONNECTION_BAD)
                return last;
            continue;
        }
        const bool ready = waitForSocket(PQsocket(connection_), unsent > 0, sliceMilliseconds);
        // A read that fails leaves its message for the result to come.
        if (ready && !PQconsumeInput(connection_)) {
            pg_result* failed = PQgetResult(connection_);
            return failed ? Result(failed) : std::move(last);
        }
        if (!keepWaiting()) {
            lost_ = true;
            return last;
        }
    }
}

bool StatementWait::keepWaiting()
{
    Patience& patience = *patience_;
    if (patience.sinceCancel.isValid())
        return patience.sinceCancel.elapsed() < cancelMilliseconds;
    if (patience.clock.elapsed() < quietMilliseconds)
        return true;
    if (!patience.busy && busyHook())
        patience.busy = busyHook()();
    if (patience.busy && !patience.busy->goOn()) {
        requestCancel();
        patience.sinceCancel.start();
    }
    return true;
}

// The request goes over a connection of its own and waits for it to end, which
// a silent server never lets happen. It alone leaves the main thread, and it
// touches nothing of ours.
void StatementWait::requestCancel()
{
    PGcancel* request = PQgetCancel(connection_);
    if (!request)
        return;
    std::thread([request] {
        char message[256];
        PQcancel(request, message, int(sizeof message));
        PQfreeCancel(request);
    }).detach();
}

} // namespace sql
