// Work on a whole drawing that may take long: reading, writing, painting it.
// Who works tells how far the work is; who waits for it may watch and stop it.
// Nobody watches batch runs, and telling costs them next to nothing.
#pragma once

#include <nrx/types.h>

#include <QString>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>

// What is done while one of these lives is watched by it; a later one stands
// before an earlier one.
class NRX_API LongWork {
public:
    // Gets how much is done, of 1; its false stops the work. Without one nothing
    // stops: for what follows on the work and is no part of it.
    using Watcher = std::function<bool(double)>;

    explicit LongWork(Watcher watcher = {});
    ~LongWork();
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;

    bool stopped() const { return stopped_; }

    // For who works: false once the work is stopped; it leaves nothing half done.
    static bool goOn(double done);
    static bool isStopped();

private:
    Watcher watcher_;
    bool stopped_ = false;
    LongWork* before_;
};

// Pieces of equal worth between two shares of the work; their number may be a guess.
class WorkPart {
public:
    WorkPart(size_t pieces, double from, double to) : from_(from), to_(to), step_((to - from) / double(pieces + 1)) { }

    // To be called before each piece.
    bool next() { return (++done_ & 63) != 0 || LongWork::goOn(std::min(to_, from_ + step_ * double(done_))); }

private:
    double from_, to_, step_;
    size_t done_ = 0;
};

// What shows the work of a command and lets it be stopped; the window sets it.
using WorkBox = std::function<std::shared_ptr<void>(const QString& title)>;
NRX_API void setWorkBox(const WorkBox& box);
// For the life of what is returned; null, and nothing is shown, without a window.
NRX_API std::shared_ptr<void> showWork(const QString& title);
