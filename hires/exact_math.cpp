#include "hires/exact_math.h"

#include <cmath>
#include <numbers>

namespace {

/// x^first / first! -+ ..., every second term; `x` is pi / 4 at most.
double SumAlternating(double x, int first) {
    double term = first == 0 ? 1 : x, sum = term;
    for (int n = first + 2; n <= 20; n += 2) {
        term *= -x * x / (n * (n - 1));
        sum += term;
    }
    return sum;
}

} // namespace

double ExactSine(std::int64_t part, std::int64_t whole) {
    const std::int64_t half = whole / 2, quarter = whole / 4;
    if (part >= half)
        return -ExactSine(part - half, whole);
    const std::int64_t rising = part > quarter ? half - part : part;
    const auto angle = [whole](std::int64_t of) {
        return 2 * std::numbers::pi * static_cast<double>(of) / static_cast<double>(whole);
    };
    return rising <= whole / 8 ? SumAlternating(angle(rising), 1)
                               : SumAlternating(angle(quarter - rising), 0);
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
