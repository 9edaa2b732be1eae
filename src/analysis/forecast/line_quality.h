// How far a line through measures is to be trusted.
#pragma once

#include "analysis/forecast/polynomial_fit.h"

#include <limits>

/// What the samples say about the line through them. Infinite: the samples do not tell.
struct LineQuality {
    int samples = 0;
    double determination = std::numeric_limits<double>::infinity(); ///< r², 0 to 1
    /// Of one measure about the line, in units of the ordinate: the root of the
    /// squared differences' sum over two less than the number of samples.
    double standardError = std::numeric_limits<double>::infinity();
    double middle = 0.0; ///< mean abscissa
    double spread = 0.0; ///< sum of squares of the abscissae about it

    /// Within so much of the line lies, with 95 %, a measure made at x. Source:
    /// interval of prediction of simple linear regression, s·t·√(1 + 1/n + (x - x̄)²/Sxx).
    double halfBand(double x) const;
};

LineQuality qualityOf(const PolynomialFit& samples, const std::vector<double>& line);

/// The t that a Student variable of so many degrees of freedom (1 or more) stays
/// within on both sides with 95 %. Source: Abramowitz and Stegun, 26.7.3 and 26.7.4.
double studentBound95(int freedom);
