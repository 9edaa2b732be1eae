#include "drawing/next_name.h"

#include "base/text.h"

#include <limits>

QString nextName(const Enumerator& enumerator)
{
    return enumerator.prefix + padded(enumerator.counter, enumerator.trailing);
}

bool isExhausted(const Enumerator& enumerator)
{
    return enumerator.counter == std::numeric_limits<decltype(enumerator.counter)>::max();
}

QString takeName(Enumerator& enumerator)
{
    QString name = nextName(enumerator);
    if (!isExhausted(enumerator))
        ++enumerator.counter;
    return name;
}
