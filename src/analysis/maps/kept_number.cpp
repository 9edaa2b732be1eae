#include "analysis/maps/kept_number.h"

#include "base/text.h"

#include <algorithm>

namespace {

constexpr int kDecimals = 2; // of the box

double rounded(double number) { return fixed(number, kDecimals).toDouble(); }

bool isReached(double number, const std::vector<double>& keys)
{
    if (keys.empty())
        return true;
    const auto [lowest, highest] = std::minmax_element(keys.begin(), keys.end());
    return *lowest <= number && number <= *highest;
}

} // namespace

double KeptNumber::exact(double shown) const { return shown == rounded(start_) ? start_ : shown; }

void KeptNumber::startAt(double start, const std::vector<double>& keys)
{
    start_ = start;
    const double wanted = wanted_ ? exact(*wanted_) : start;
    value_ = isReached(wanted, keys) ? wanted : start;
}

void KeptNumber::set(double shown)
{
    wanted_ = shown;
    value_ = exact(shown);
}

double KeptNumber::shown() const { return rounded(value_); }
