#pragma once

#include <cstdint>
#include <vector>

/// The modified Bessel function I0 by the first seven terms of its series, sum of ((x/2)^k / k!)^2.
long double Izero(long double x);

/// A ratio of sample rates as a fraction M/N.
struct LRateFraction {
    static constexpr int MaxPhases = 255;

    LRateFraction() = default;
    /// The first M/N that comes within 0.001 of inRate / outRate, else the closest one; it is 1/1 where the
    /// ratio is below about 1/510. Both rates are at least 1.
    /// Kept quirk: the fraction detunes by as much as it is off (8000 to 44100 Hz by 0.23%).
    LRateFraction(int inRate, int outRate);

    /// Frames of one rate in the other, truncated in the order in which positions are defined.
    int ToOutputFrames(int inputFrames) const;
    int ToInputFrames(int outputFrames) const;

    int phases = 1; ///< N, 1..255
    int step = 1;   ///< M, at least 1
};

/// What a change of sample rate needs: the ratio and a windowed-sinc filter for each of its N sub-phases,
/// designed with a Kaiser window (see A. Oppenheim, R. Schafer, "Discrete-Time Signal Processing").
class LConvertRateBase {
public:
    /// `wide` widens the transition band of a reduction, for a stage that another one follows.
    LConvertRateBase(int inRate, int outRate, int taps, bool wide);

    const LRateFraction& GetFraction() const { return fraction; }
    int GetPhases() const { return fraction.phases; }
    int GetStep() const { return fraction.step; }
    int GetTaps() const { return taps; }
    /// The coefficients for sub-phase `phase`, 0..N-1: 16.16 fixed point, adding up to about 65536.
    const int* GetRow(int phase) const {
        return &table[static_cast<std::size_t>(phase) * static_cast<std::size_t>(taps)];
    }

private:
    void DesignFilter(int inRate, int outRate, bool wide);

    LRateFraction fraction;
    int taps;
    std::vector<int> table;
};
