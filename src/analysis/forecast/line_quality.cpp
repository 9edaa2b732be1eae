#include "analysis/forecast/line_quality.h"

#include <cmath>

namespace {

constexpr double kPi = 3.14159265358979323846;

// The chance that a Student variable lies within ±√freedom·tan(angle).
double chanceWithin(double angle, int freedom)
{
    const double cosine = std::cos(angle);
    const bool odd = freedom % 2 == 1;
    double term = odd ? cosine : 1.0;
    double sum = freedom > 1 ? term : 0.0;
    for (int k = odd ? 3 : 2; k <= freedom - 2; k += 2) {
        term *= cosine * cosine * double(k - 1) / double(k);
        sum += term;
    }
    const double series = std::sin(angle) * sum;
    return odd ? 2.0 / kPi * (angle + series) : series;
}

} // namespace

double studentBound95(int freedom)
{
    double low = 0.0, high = kPi / 2.0;
    for (int halving = 0; halving < 60; ++halving) {
        const double middle = (low + high) / 2.0;
        (chanceWithin(middle, freedom) < 0.95 ? low : high) = middle;
    }
    return std::sqrt(double(freedom)) * std::tan((low + high) / 2.0);
}

LineQuality qualityOf(const PolynomialFit& samples, const std::vector<double>& line)
{
    LineQuality quality;
    const std::vector<double>& x = samples.abscissae();
    const std::vector<double>& y = samples.ordinates();
    const size_t count = x.size();
    quality.samples = int(count);
    if (count == 0)
        return quality;
    // From the first ones on: sums of numbers that are alike lose digits.
    double middleX = 0.0, middleY = 0.0;
    for (size_t i = 0; i < count; ++i) {
        middleX += (x[i] - x[0]) / double(count);
        middleY += (y[i] - y[0]) / double(count);
    }
    double total = 0.0;
    for (size_t i = 0; i < count; ++i) {
        quality.spread += std::pow(x[i] - x[0] - middleX, 2.0);
        total += std::pow(y[i] - y[0] - middleY, 2.0);
    }
    quality.middle = x[0] + middleX;
    const double left = samples.meanSquaredError(line) * double(count);
    if (total > 0.0)
        quality.determination = std::fmax(0.0, 1.0 - left / total);
    if (count > 2)
        quality.standardError = std::sqrt(left / double(count - 2));
    return quality;
}

double LineQuality::halfBand(double x) const
{
    if (samples < 3 || !(spread > 0.0))
        return std::numeric_limits<double>::infinity();
    const double away = x - middle;
    return standardError * studentBound95(samples - 2) * std::sqrt(1.0 + 1.0 / samples + away * away / spread);
}
