// What the synchronisation of a drawing asks before it begins and while it goes on.
#pragma once

#include <QString>
#include <functional>
#include <optional>

/// What the synchronisation is asked to do.
enum class SyncMode {
    Drawing,  ///< writes any row of the project that a block names
    Position, ///< writes rows of the current position only, and asks about rows without a block
    File,     ///< writes no row; stores the drawing itself
};

/// What is asked in a box with Yes and No, No being the default. An empty function
/// stands for No.
struct SyncQuestions {
    std::function<bool(const QString&)> warn; ///< going on may do harm
    std::function<bool(const QString&)> ask;
};

/// The question with which it begins. Only a typed keyword is an answer: Enter and Esc give nothing.
std::optional<SyncMode> askSyncMode();

/// Whose drawing the active one is: compares the project and the position that the drawing names with the
/// current ones; where they differ the user decides. False: do not go on.
bool drawingIsAccepted(const SyncQuestions& questions);

/// The same of the position alone, for rows that are to be brought into the
/// active drawing: where the position's own could not be opened, another is
/// active. Without an open document there is none to be harmed.
bool documentIsAccepted(const SyncQuestions& questions);
