// Rows of elements: the statement that reads them below a node of the project, and
// those that the server did not take.
#pragma once

#include "base/statement.h"
#include "drawing/sync/database_to_drawing.h"
#include "elements/families/families.h"

#include <QString>
#include <array>

/// The columns. A family with a depth has it in the place of the block's
/// rotation, and what stands from there on one place further.
namespace SyncColumn {
enum { Id, Type, Name, State, Position, X, Y, Z, Height, BlockRotation, MarkerRotation, Scale, Props };
constexpr int Depth = BlockRotation;
} // namespace SyncColumn

Statement rowStatement(const Family& family, int id, SyncLevel level);

/// Elements that the server did not take, counted by their reasons.
class RefusedRows {
public:
    /// Of one element: the server's code, empty for what never reached it.
    void add(const QString& sqlState);

    /// One line with the number and the reasons; nothing when there is none.
    void tell() const;

private:
    enum Reason { ReadOnly, Lock, TimeOut, Link, Other, ReasonCount };
    static Reason reasonOf(const QString& sqlState);

    std::array<int, ReasonCount> counts_{};
};
