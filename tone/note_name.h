#pragma once

#include <string>

// The equal temperament, of which A4 is 440 Hz.

inline constexpr double A4Hz = 440;
inline constexpr int A4Semitones = 57; ///< above C0

/// The note that is nearest to a frequency, and the cents that it is off by, if any: "A4", "F#6 +23 ct".
/// `ParseFrequency` reads both. Empty where no note is near, as for 0 Hz.
std::string DescribeNote(double hz);
