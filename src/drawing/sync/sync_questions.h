// What the synchronisation of a drawing asks in a box with Yes and No, No being
// the default. An empty function stands for No.
#pragma once

#include <QString>
#include <functional>

struct SyncQuestions {
    std::function<bool(const QString&)> warn; ///< going on may do harm
    std::function<bool(const QString&)> ask;
};
