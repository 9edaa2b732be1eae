// Defines what NCRX_DECLARE declares: a class's name and its parent.
#pragma once

#include <nrx/object.h>

#define NCRX_DEFINE(Class, Parent)                                                                                     \
    const NcRxClass* Class::desc()                                                                                     \
    {                                                                                                                  \
        static const NcRxClass described(#Class, Parent::desc());                                                      \
        return &described;                                                                                             \
    }                                                                                                                  \
    const NcRxClass* Class::isA() const { return Class::desc(); }
