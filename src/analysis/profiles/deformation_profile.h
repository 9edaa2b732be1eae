// The deformation marks along a line, what was measured at them, and the
// figures of their movements.
#pragma once

#include "analysis/grading/profile_figures.h"
#include "analysis/profiles/profile_record.h"

/// A mark by the line. Elevations in metres; infinite: not measured.
struct DeformationProfilePoint : LineElement {
    double meas_base = INFINITY;
    double meas_current = INFINITY;
    bool valid = false; ///< both were measured
    double delta = 0.0; ///< current less base, m
};

/// What movements are taken from.
struct MovementRange {
    int baseCycle = -1;
    int current = -1; ///< a cycle or, with the flag, a forecast
    bool isPrediction = false;
};

class DeformationProfileClass : public ProfileFigures {
public:
    int id = -1; ///< -1 of a line that is not stored
    int positionId = -1;
    QString name;
    double length = 0.0; ///< of the line; of a stored one up to its last mark, m
    std::vector<DeformationProfilePoint> points;
    QStringList repeated; ///< names of marks with several measures in a cycle

    /// The stored profile with its measures and figures. Of several measures of
    /// a mark in one cycle the first row counts; marks that are no longer in the
    /// base are left out and counted. False when there is no such profile or the
    /// server refuses.
    bool load(int profileId, const MovementRange& range, int* lost = nullptr);
    /// The marks along a line, of the position or of the whole base. False when
    /// the server refuses.
    bool load(const ProfileLine& line, double tolerance, std::optional<int> position, const MovementRange& range);

    void computeFigures();
    bool isMeasured() const; ///< one mark at least has moved, or stood, in both
};
