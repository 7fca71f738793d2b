#pragma once

#include "cli/measuring/measure_limits.h"

/// What became of a limit. A figure that the sound doesn't have breaks it.
struct LimitResult {
    std::string channel{};         ///< the worst one; empty where there is but one
    MeasuredFigure::Value value{}; ///< of that channel
    bool isBroken = false;
    std::string reason{}; ///< why it is broken: by how much
};
LimitResult CheckLimit(const MeasureLimit& limit, const MeasuredSound& sound);
