// What the user says each column of a file without a layout holds.
#pragma once

#include <QVector>

class ColumnRoles {
public:
    /// No role has a column yet.
    explicit ColumnRoles(int roles) : columns_(roles, -1) { }

    /// A role has one column, and a column one role: what either had is let go.
    void give(int role, int column);
    /// The column holds nothing that counts.
    void clear(int column);

    int columnOf(int role) const { return columns_[role]; } ///< -1: none
    int roleOf(int column) const { return column < 0 ? -1 : columns_.indexOf(column); }
    bool has(int role) const { return columns_[role] != -1; }
    int size() const { return columns_.size(); }

private:
    QVector<int> columns_;
};
