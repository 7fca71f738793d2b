#include "hires/exact_math.h"

#include <cmath>
#include <numbers>

namespace {

constexpr std::uint64_t Half = std::uint64_t{1} << 63, Quarter = Half / 2;

double ToAngle(std::uint64_t phase) {
    return static_cast<double>(static_cast<std::int64_t>(phase)) * (2 * std::numbers::pi * 0x1p-64);
}

/// 1 - x^2 / (first (first + 1)) + ..., each term by the one before; `x` is pi / 4 at most.
double SumAlternating(double x, int first) {
    double sum = 1;
    for (int n = first + 16; n >= first; n -= 2)
        sum = 1 - x * x * (1.0 / (n * (n + 1))) * sum;
    return sum;
}

} // namespace

double ExactSine(std::uint64_t phase) {
    if (phase >= Half)
        return -ExactSine(phase - Half);
    const std::uint64_t rising = phase > Quarter ? Half - phase : phase;
    if (rising > Quarter / 2)
        return SumAlternating(ToAngle(Quarter - rising), 1);
    const double angle = ToAngle(rising);
    return angle * SumAlternating(angle, 2);
}

double ExactLog(double x) {
    int exponent = 0;
    const double mantissa = std::frexp(x, &exponent); // 0.5..1
    // log m = 2 atanh((m - 1) / (m + 1))
    const double ratio = (mantissa - 1) / (mantissa + 1), square = ratio * ratio;
    double sum = 0;
    for (int n = 41; n >= 1; n -= 2)
        sum = sum * square + 1.0 / n;
    return exponent * std::numbers::ln2 + 2 * ratio * sum;
}

double ExactExp(double x) {
    const double whole = std::floor(x / std::numbers::ln2 + 0.5);
    return std::ldexp(1 + ExactExpLessOne(x - whole * std::numbers::ln2), static_cast<int>(whole));
}

double ExactExpLessOne(double x) {
    if (std::fabs(x) > 0.5)
        return ExactExp(x) - 1;
    double sum = 0;
    for (int n = 18; n >= 1; --n)
        sum = (sum + 1) * x / n;
    return sum;
}

double ExactAmplitude(double db) {
    return ExactExp(db * (std::numbers::ln10 / 20));
}
