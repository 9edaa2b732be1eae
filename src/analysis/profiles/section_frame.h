// What stands around a section: scales, ground, wells with their values, and
// the rows of figures below it.
#pragma once

#include "analysis/profiles/sketch.h"
#include "analysis/profiles/temperature_section.h"

#include <QStringList>

struct SectionTitles {
    QString cycle;      ///< number of the (current) cycle: "Цикл 9"
    QString cycleTexts; ///< what is said of the cycles in that row
    bool difference = false;
};

struct SectionFrame {
    Sketch sketch;
    int leftOut = 0; ///< labels that would have covered others
};

/// The rows below the section lie at fixed places under its origin; values and
/// distances that would cover each other at this scale are left out and counted.
SectionFrame sectionFrame(const TemperatureSection& section, const SectionTitles& titles);

/// "Пикет 2" for a place at a picket, "+12.50" for one between two.
QString picketText(double dist, double step);

/// A value at a well: two decimals; a difference as the map of differences writes it.
QString sectionValueText(double value, bool difference);
