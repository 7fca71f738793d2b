#pragma once

#include "cli/report_parts.h"

/// What is not as it was.
struct FigureChange {
    std::string what; ///< such as "frequency"
    std::string text; ///< how far, such as "100.00 ppm higher: 440.044 Hz instead of 440 Hz"
};

/// Holds two measurements of one format, as `DescribeMeasurement` has them, against each other, and names the
/// differences as causes: what follows from one that is named, as noise from clipping, is left out. None
/// where all figures agree as far as they are exact.
std::vector<FigureChange> FindFigureChanges(const Json& before, const Json& now);
