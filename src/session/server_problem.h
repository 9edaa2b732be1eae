// How a refusal of the server reaches whoever tells it.
#pragma once

#include "database/sql/result.h"

/// Gives `good` back; where it is false, `problem` becomes the server's message.
inline bool orProblem(const sql::Result& result, bool good, QString* problem)
{
    if (!good && problem)
        *problem = result.errorMessage();
    return good;
}
