// How a section is drawn: its scales and pickets, and what the forms offer.
#pragma once

#include <QString>
#include <vector>

/// A choice of a form: its text and what it stands for.
struct ScaleChoice {
    const char* text;
    double factor; ///< drawing units a metre: 1000 / denominator
};

/// "1:500" first: what a section begins with across.
const std::vector<ScaleChoice>& sectionScales();
/// The same from the largest to the smallest, for the epures.
const std::vector<ScaleChoice>& epureScales();

/// The text of a factor, "1:500"; a factor that no choice has gets one too.
QString scaleText(double factor);

struct PicketStep {
    const char* text;
    double step; ///< m
};
const std::vector<PicketStep>& picketSteps();

/// As a stored profile keeps it. The scales are drawing units a metre.
struct SectionView {
    double origX = 0.0, origY = 0.0;
    double horizontal = 2.0; ///< 1:500
    double vertical = 10.0;  ///< 1:100
    double picketStep = 100.0;
    bool byElevation = false;
    bool toFooter = false; ///< the logs run to the wells' ends; kept, no drawing asks for it
};
