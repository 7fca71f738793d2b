#pragma once

#include "cli/measuring/measure_figures.h"

/// What a figure has to keep to, such as "thdn<-90" or "left.peak >= -20.1 dBFS".
struct MeasureLimit {
    std::string text;                       ///< as it was typed
    std::string channel;                    ///< empty: each one, or the sound as a whole
    const MeasuredFigure* figure = nullptr; ///< with the unit that was typed
    bool isUpper = true;                    ///< what is above is too much
    bool isWithin = false;                  ///< the limit itself still holds
    double value = 0;
    bool isImplied = false; ///< nobody typed it
};

/// A limit, or why a text is none.
struct TypedLimit {
    MeasureLimit limit;
    std::string problem; ///< empty where there is a limit
};
TypedLimit ParseLimit(const std::string& text);

/// Adds that all samples can be used, which other limits take for granted: silence stands for those that
/// can't. Not where one of them is for just that.
void AddImpliedLimit(std::vector<MeasureLimit>& limits);

/// What limits look like, and the names of all figures, in lines.
std::string ExplainLimits();
