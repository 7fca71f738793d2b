#pragma once

#include <cstdint>
#include <vector>

/// The modified Bessel function I0 by the first seven terms of its series, sum of ((x/2)^k / k!)^2.
long double Izero(long double x);

/// What a change of sample rate needs: the ratio as a fraction M/N and a windowed-sinc filter for each of its
/// N sub-phases, designed with a Kaiser window (see A. Oppenheim, R. Schafer, "Discrete-Time Signal
/// Processing").
class LConvertRateBase {
public:
    static constexpr int MaxPhases = 255;

    /// The fraction is the first M/N that comes within 0.001 of inRate / outRate, else the closest one; it is
    /// 1/1 where the ratio is below about 1/510. `wide` widens the transition band of a reduction, for a
    /// stage that another one follows.
    /// Kept quirk: the fraction detunes by as much as it is off (8000 to 44100 Hz by 0.23%).
    LConvertRateBase(int inRate, int outRate, int taps, bool wide);

    int GetPhases() const { return phases; } ///< N, 1..255
    int GetStep() const { return step; }     ///< M, at least 1
    int GetTaps() const { return taps; }
    /// The coefficients for sub-phase `phase`, 0..N-1: 16.16 fixed point, adding up to about 65536.
    const int* GetRow(int phase) const {
        return &table[static_cast<std::size_t>(phase) * static_cast<std::size_t>(taps)];
    }

private:
    void FindFraction(int inRate, int outRate);
    void DesignFilter(int inRate, int outRate, bool wide);

    int phases = 1;
    int step = 1;
    int taps;
    std::vector<int> table;
};
