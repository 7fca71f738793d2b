#pragma once

#include <cmath>

/// What a factor of amplitudes is in dB; -infinity for 0.
inline double ToDecibels(double factor) {
    return 20 * std::log10(factor);
}
