// Elements that the server did not take, counted by their reasons.
#pragma once

#include <QString>
#include <array>

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
