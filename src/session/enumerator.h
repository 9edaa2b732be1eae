#pragma once
// How the elements of one family are numbered as they are inserted.

#include <QString>

struct Enumerator {
    QString prefix;
    int counter = 1;  ///< the next number to use
    int trailing = 1; ///< the least number of digits; shorter numbers get zeros at their left
};

inline bool operator==(const Enumerator& a, const Enumerator& b)
{
    return a.prefix == b.prefix && a.counter == b.counter && a.trailing == b.trailing;
}
inline bool operator!=(const Enumerator& a, const Enumerator& b) { return !(a == b); }
