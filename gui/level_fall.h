#pragma once

#include <algorithm>

/// The bar of a level meter, in decibels in [-60, 0]: it rises at once and falls at 40 dB a second, so that a
/// short peak is seen.
class LLevelFall {
public:
    static constexpr double Silence = -60;

    void Take(int decibels) {
        level = std::clamp(static_cast<double>(decibels), Silence, 0.0);
        shown = std::max(shown, level);
    }
    void Advance(int milliseconds) { shown = std::max(level, shown - 0.04 * milliseconds); }

    double GetDecibels() const { return shown; }
    /// How much of the bar is lit, in [0, 1].
    double GetFraction() const { return 1 - shown / Silence; }
    bool IsFalling() const { return shown > level; }

private:
    double level = Silence;
    double shown = Silence;
};
