#pragma once

#include <string>
#include <vector>

/// What a plot shows of a quantity, from its left edge to its right one. Places count from 0 to 1 between
/// them.
struct LAxis {
    double from = 0;
    double to = 1;
    bool isLogarithmic = false; ///< `from` lies above 0 then

    double GetPlace(double value) const;
    double GetValue(double place) const;
    /// Shows `factor` times as much of it, with what is at `place` staying there; never less than `least`,
    /// nor anything outside `whole`.
    LAxis Zoom(double place, double factor, double least, const LAxis& whole) const;
    /// The same, moved to the right by so many of its own widths.
    LAxis Move(double widths, const LAxis& whole) const;

    bool operator==(const LAxis&) const = default;
};

/// A mark at an axis.
struct LTick {
    double place;
    std::string text;

    bool operator==(const LTick&) const = default;
};

/// The marks of an axis, and the unit of their texts.
struct LTicks {
    std::vector<LTick> ticks;
    std::string unit;
};

/// So many marks at most: "20", "50", "100" ... "20k" Hz over a decade and more of a logarithmic axis,
/// otherwise at round distances, in Hz or kHz.
LTicks MarkHz(const LAxis& axis, int most);
/// In us, ms or s.
LTicks MarkSeconds(const LAxis& axis, int most);
/// Without a unit: levels in dB, or parts of full scale.
LTicks MarkNumbers(const LAxis& axis, int most);

/// "440.0 Hz", "1.000 kHz"
std::string FormatHz(double hz);
/// "2.31 ms", "1.200 s"
std::string FormatSeconds(double seconds);
