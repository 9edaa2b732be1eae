#pragma once
// What happens while a statement takes long. The program waits for every
// answer; whoever has a window keeps it alive meanwhile.

#include <functional>
#include <memory>

namespace sql {

/// Lives from the first second of a statement to its answer. What is shown is
/// the business of who makes it: a box with a cancel button.
class Busy {
public:
    virtual ~Busy() = default;
    /// Asked some twenty times a second: lets the window work. False: the
    /// statement is to be given up.
    virtual bool goOn() = 0;
};

using BusyHook = std::function<std::unique_ptr<Busy>()>;

/// Without a hook a statement is waited for in silence. Returns the one before.
BusyHook setBusyHook(BusyHook hook);

/// Whether a statement is being waited for now. Until it has ended no other is
/// sent, and no command should begin.
bool isStatementUnderWay();

} // namespace sql
