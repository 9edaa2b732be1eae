#pragma once
// What the user has chosen for a run, and how the run is watched.

#include "analysis/levels/level_map.h"

#include <QVector>
#include <functional>

/// A node of the project tree with all below it. The level is the name of its
/// table: "projects", "objects", "subobjects", "positions".
struct ProjectPart {
    QString level;
    int id = -1;
};

struct ReportParameters {
    QVector<int> cycles;  ///< from the base to the current one, by date
    int baseCycleId = -1; ///< of two
    int currentCycleId = -1;
    int cycleId = -1; ///< of kinds that ask for one
    ProjectPart part;
    QVector<int> elements;
    QVector<int> positions;
    LevelMap colorMap{LevelMap::User};
    QString folder;
    bool overwrite = false;
    bool merge = false;
    bool defectsOnly = false;

    /// Told each step; false once the user has stopped the run. May be empty.
    std::function<bool(int done, int total, const QString& text)> progress;
    bool goOn(int done, int total, const QString& text = QString()) const
    {
        return !progress || progress(done, total, text);
    }
};
