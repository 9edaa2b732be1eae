#include "analysis/forecast/polynomial_fit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

using Columns = std::vector<std::vector<double>>;

// What is left of a column once the columns before it have explained their
// share must be more than the rounding of what it was.
constexpr double kLeast = 1e-12;

// Abscissae as they are computed with: about zero, within -1 and 1.
struct Scale {
    double middle = 0.0, half = 1.0;
    double of(double x) const { return (x - middle) / half; }
};

Scale scaleOf(const std::vector<double>& ascending)
{
    Scale scale;
    if (ascending.empty())
        return scale;
    // The middle is a half way between abscissae, which keeps whole milliseconds exact.
    scale.middle = ascending.front() + (ascending.back() - ascending.front()) * 0.5;
    const double half = (ascending.back() - ascending.front()) * 0.5;
    if (half > 0.0)
        scale.half = half;
    return scale;
}

double dot(const std::vector<double>& a, const std::vector<double>& b, size_t from)
{
    double sum = 0.0;
    for (size_t i = from; i < a.size(); ++i)
        sum += a[i] * b[i];
    return sum;
}

// Mirrors `column` at the plane across `mirror`, from row `from` on.
void reflect(const std::vector<double>& mirror, double mirrorSquare, std::vector<double>& column, size_t from)
{
    const double share = 2.0 * dot(mirror, column, from) / mirrorSquare;
    for (size_t i = from; i < column.size(); ++i)
        column[i] -= share * mirror[i];
}

// The coefficients of the least squares of matrix·c = right, column by column.
std::vector<double> solve(Columns matrix, std::vector<double> right)
{
    const size_t columns = matrix.size();
    std::vector<bool> tells(columns, false);
    for (size_t k = 0; k < columns && k < right.size(); ++k) {
        const double whole = std::sqrt(dot(matrix[k], matrix[k], 0));
        const double length = std::sqrt(dot(matrix[k], matrix[k], k));
        if (!(length > kLeast * whole))
            break; // the higher powers say nothing new either
        tells[k] = true;
        std::vector<double> mirror = matrix[k];
        mirror[k] += std::copysign(length, mirror[k]);
        const double square = dot(mirror, mirror, k);
        for (size_t column = k; column < columns; ++column)
            reflect(mirror, square, matrix[column], k);
        reflect(mirror, square, right, k);
    }
    std::vector<double> coefficients(columns, 0.0);
    for (size_t k = columns; k-- > 0;) {
        if (!tells[k])
            continue;
        double rest = right[k];
        for (size_t column = k + 1; column < columns; ++column)
            rest -= matrix[column][k] * coefficients[column];
        coefficients[k] = rest / matrix[k][k];
    }
    return coefficients;
}

// The same polynomial in x instead of (x - middle) / half: Horner's scheme with
// polynomials in the place of numbers.
std::vector<double> unscaled(const std::vector<double>& scaled, const Scale& scale)
{
    std::vector<double> plain(scaled.size(), 0.0);
    for (size_t k = scaled.size(); k-- > 0;) {
        for (size_t i = plain.size(); i-- > 0;)
            plain[i] = ((i > 0 ? plain[i - 1] : 0.0) - plain[i] * scale.middle) / scale.half;
        plain[0] += scaled[k];
    }
    return plain;
}

} // namespace

void PolynomialFit::setSamples(const std::map<double, double>& samples)
{
    x_.clear();
    y_.clear();
    for (const auto& [x, y] : samples) {
        x_.push_back(x);
        y_.push_back(y);
    }
}

std::vector<double> PolynomialFit::fit(int degree) const
{
    const size_t count = size_t(std::max(0, degree)) + 1;
    if (x_.empty())
        return std::vector<double>(count, 0.0);
    const Scale scale = scaleOf(x_);
    Columns powers(count);
    for (size_t power = 0; power < count; ++power) {
        for (double x : x_)
            powers[power].push_back(std::pow(scale.of(x), double(power)));
    }
    return unscaled(solve(std::move(powers), y_), scale);
}

double PolynomialFit::meanSquaredError(const std::vector<double>& coefficients) const
{
    double sum = 0.0;
    for (size_t i = 0; i < x_.size(); ++i) {
        const double difference = valueAt(coefficients, x_[i]) - y_[i];
        sum += difference * difference;
    }
    return x_.empty() ? 0.0 : sum / double(x_.size());
}

double valueAt(const std::vector<double>& coefficients, double x)
{
    double value = 0.0;
    for (size_t i = coefficients.size(); i-- > 0;)
        value = value * x + coefficients[i];
    return value;
}
