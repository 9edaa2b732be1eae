// Least squares for a polynomial, such as the line through the measures of a mark.
#pragma once

#include <map>
#include <vector>

class PolynomialFit {
public:
    /// Abscissa to ordinate; any units. What is no number has no place here.
    void setSamples(const std::map<double, double>& samples);

    /// The coefficients c[0..degree] of y = c0 + c1·x + c2·x² + ... with the least
    /// sum of squares. Abscissae may be as far from zero as milliseconds since
    /// 1970: they are centred and scaled within, which changes nothing about the
    /// curve. Where the samples do not tell a power from the lower ones it gets
    /// no part. Source: Householder's orthogonal triangularisation.
    std::vector<double> fit(int degree) const;

    /// The mean of the squared differences between curve and samples; 0 without samples.
    double meanSquaredError(const std::vector<double>& coefficients) const;

    const std::vector<double>& abscissae() const { return x_; }
    const std::vector<double>& ordinates() const { return y_; }

private:
    std::vector<double> x_, y_; // ascending abscissae
};

/// The polynomial at x; 0 without coefficients.
double valueAt(const std::vector<double>& coefficients, double x);
