#include "hires/sine_integral.h"

#include <cmath>
#include <cstdint>
#include <numbers>

namespace {

/// sin(x) / x for 0..100.
double Sinc(double x) {
    const double cycles = x / (2 * std::numbers::pi), part = cycles - std::floor(cycles);
    return x == 0 ? 1 : ExactSine(static_cast<std::uint64_t>(std::ldexp(part, 64))) / x;
}

} // namespace

const HiresSineIntegral& HiresSineIntegral::Get() {
    static const HiresSineIntegral only;
    return only;
}

HiresSineIntegral::HiresSineIntegral() {
    constexpr double distance = 1.0 / PerUnit;
    double value = 0;
    for (int i = 0; i <= PerUnit * Most; ++i) {
        const double x = i * distance;
        knots.push_back({value, Sinc(x) * distance});
        value += distance / 6 * (Sinc(x) + 4 * Sinc(x + distance / 2) + Sinc(x + distance)); // Simpson
    }
}

double HiresSineIntegral::LookUp(double x, double sine, double cosine) const {
    if (x >= Most) {
        const double part = 1 / x, square = part * part;
        return std::numbers::pi / 2 - cosine * part * (1 - square * (2 - square * 24)) -
               sine * square * (1 - square * (6 - square * 120));
    }
    const auto at = static_cast<std::size_t>(x * PerUnit);
    const double part = x * PerUnit - static_cast<double>(at);
    const Knot &from = knots[at], &to = knots[at + 1];
    const double rise = to.value - from.value;
    const double bend = 3 * rise - 2 * from.slope - to.slope, turn = from.slope + to.slope - 2 * rise;
    return from.value + part * (from.slope + part * (bend + part * turn)); // after Hermite
}
