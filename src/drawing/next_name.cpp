#include "drawing/next_name.h"

#include "base/text.h"

QString nextName(const Enumerator& enumerator)
{
    return enumerator.prefix + padded(enumerator.counter, enumerator.trailing);
}

QString takeName(Enumerator& enumerator)
{
    const QString name = nextName(enumerator);
    ++enumerator.counter;
    return name;
}
