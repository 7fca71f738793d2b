#pragma once

#include <cstdint>

/// Functions made of additions, products and quotients of doubles alone, which every machine and compiler
/// rounds in the same way; those of the system's library may differ in the last digit. All are within a few
/// units of it.

/// `value` * 2^`bits`, rounded to the nearest; it has to fit. `bits` is 0..62.
inline std::int64_t RoundToBits(double value, int bits) {
    const double sum = value * static_cast<double>(std::int64_t{1} << bits) + 0.5;
    const auto whole = static_cast<std::int64_t>(sum);
    return whole - (static_cast<double>(whole) > sum ? 1 : 0);
}
/// The sine at a phase of which 2^64 are a cycle.
double ExactSine(std::uint64_t phase);
/// The natural logarithm; `x` is positive and finite.
double ExactLog(double x);
/// e to the power of `x`, which lies within +-700.
double ExactExp(double x);
/// The same less one, exact for small `x` as well.
double ExactExpLessOne(double x);
/// The factor of an amplitude that is `db` decibels, within +-6000.
double ExactAmplitude(double db);
