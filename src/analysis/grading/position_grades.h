// A position graded for a pair of cycles.
#pragma once

#include "analysis/grading/grades.h"
#include "analysis/grading/profile_figures.h"

#include <vector>

/// What was measured, as it is graded.
struct MeasuredWell {
    int id = -1;
    QString name;
    TemperatureLog log; ///< of the current cycle; empty: not measured
};
struct MeasuredMark {
    int id = -1;
    QString name;
    double base = PositionAttributes::none, current = PositionAttributes::none; ///< m
};
struct MeasuredProfile {
    int id = -1;
    QString name;
    std::vector<ProfilePoint> points;
};
struct PositionMeasures {
    std::vector<MeasuredWell> wells;
    std::vector<MeasuredMark> marks;
    std::vector<MeasuredProfile> profiles;
};

/// Elements of the position by family.
struct ElementCounts {
    int dm = 0, ggs = 0, rp = 0, ts = 0, tsg = 0, tss = 0;
};

struct GradedElement {
    int id = -1;
    QString name;
    Grade grade = Grade::NoMeasures;
    double value = PositionAttributes::none; ///< mean in °C, settlement in m, relative settlement
};

/// One of the three sides of a position.
struct GradedSide {
    std::vector<GradedElement> elements;
    GradeCounts counts{};
    Grade grade = Grade::NoAttributes;
};

struct PositionGrades {
    bool unread = false; ///< the server refused a part of what they are made of: not to be stored
    int positionId = -1;
    int baseCycle = -1, currentCycle = -1;
    PositionAttributes attributes;
    ElementCounts elements;
    GradedSide thermal, settlement, relative;
    Grade grade = Grade::NoAttributes;
};

/// Each side alone, as the histories of a position need them.
GradedSide gradeWells(const std::vector<MeasuredWell>& wells, const PositionAttributes& attributes);
GradedSide gradeMarks(const std::vector<MeasuredMark>& marks, const PositionAttributes& attributes);
GradedSide gradeProfiles(const std::vector<MeasuredProfile>& profiles, const PositionAttributes& attributes);

/// Fills the three sides and the grade of the position from the measures.
void gradePosition(const PositionMeasures& measures, PositionGrades& grades);
