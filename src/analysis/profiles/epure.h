// Epures: the movements of marks as blocks under a line.
#pragma once

#include "analysis/profiles/deformation_profile.h"
#include "analysis/profiles/sketch.h"

/// Where a mark's block hangs.
struct EpurePlace {
    double x = 0.0, y = 0.0;
    double angle = 0.0; ///< of the line there, radians
    bool valid = false;
    double delta = 0.0; ///< m; settlement is negative and hangs below
    bool overLimit = false;
};

/// Drawing units a metre of movement: the largest is two units long; 0 where
/// nothing has moved.
double epureScale(const std::vector<EpurePlace>& places);

/// Adds a block and a value in millimetres for every mark that was measured.
/// Values that would cover others move away from the line.
void addEpure(const std::vector<EpurePlace>& places, Sketch& sketch, LabelField& field);

/// The marks of a profile where they stand on their line in the plan.
std::vector<EpurePlace> placesOnLine(const DeformationProfileClass& profile, const ProfileLine& line, double limit);

/// What an epure at a place of its own is drawn with.
struct EpureView {
    double x = 0.0, y = 0.0; ///< of the first one's axis at its left end
    double horizontal = 1.0; ///< drawing units a metre along the line
    QString title;           ///< of the current side: " Цикл 3"
};

/// The profiles one below the other, each with its axis, marks and title. Those
/// without a measured mark are drawn with their axis and names alone.
Sketch epureSketch(const std::vector<DeformationProfileClass>& profiles, const EpureView& view, double limit);
