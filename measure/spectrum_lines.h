#pragma once

#include "measure/mean_spectrum.h"

#include <cstddef>
#include <vector>

/// What stands 16 dB or more above its surroundings, and no more than 180 dB below the strongest line.
struct SpectrumLine {
    std::size_t bin = 0; ///< the highest one
    double hz = 0;    ///< by how its phase moves on: to 1e-7 of itself where it is steady, and 1e-5 where it
                      ///< comes and goes
    double power = 0; ///< what is noise in it taken off
    /// The standard deviation of its amplitude from segment to segment, as a part of it and beyond what noise
    /// makes of it: 0 of a steady tone, 1 and more of one that comes and goes.
    double variation = 0;
};

/// The lines of a channel, and what is left without them. Not seen are lines within the first nine bins or
/// the last eight, and those up to eight bins away from a stronger one. Those up to sixteen bins away from
/// each other share what lies between.
struct SpectrumLines {
    std::vector<SpectrumLine> lines; ///< the strongest first
    std::vector<double> rest;        ///< the powers of bins; `Taken` where a line or DC was
    double hidden = 0;               ///< the power where no lines are seen, but for DC

    SpectrumLines(const Spectrum& spectrum, std::size_t channel);

    static constexpr double Taken = -1; ///< in `rest`
};
