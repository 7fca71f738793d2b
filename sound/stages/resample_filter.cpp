#include "sound/stages/resample_filter.h"

#include "sound/fixed_point.h"

#include <cmath>
#include <numbers>

namespace {

long double Sinc(long double angle) {
    return angle == 0 ? 1 : std::sin(angle) / angle; // a cutoff of 0 leaves no other angle
}

/// frames * to / from, in the order of operations that rounds it as the positions are defined.
int MapFrames(int frames, int from, int to) {
    return WrapToInt(std::int64_t{frames / from} * to + std::int64_t{to} * (frames % from) / from);
}

int RoundHalfAwayFromZero(long double value) {
    return static_cast<int>(value >= 0 ? value + 0.5L : value - 0.5L);
}

} // namespace

long double Izero(long double x) {
    long double sum = 1, term = 1;
    for (int k = 1; k <= 6; ++k) {
        term *= x * x / (4 * k * k);
        sum += term;
    }
    return sum;
}

LRateFraction::LRateFraction(int inRate, int outRate) {
    const long double ratio = static_cast<long double>(inRate) / outRate;
    const auto nearestStep = [ratio](int n) { return static_cast<int>(ratio * n + 0.5L); };
    long double best = ratio;
    for (int n = 1; n <= MaxPhases; ++n) {
        const long double error = std::fabs(ratio - static_cast<long double>(nearestStep(n)) / n);
        if (error >= best)
            continue;
        best = error;
        phases = n;
        if (best < 0.001L)
            break;
    }
    step = nearestStep(phases) > 0 ? nearestStep(phases) : 1;
}

int LRateFraction::ToOutputFrames(int inputFrames) const {
    return MapFrames(inputFrames, step, phases);
}

int LRateFraction::ToInputFrames(int outputFrames) const {
    return MapFrames(outputFrames, phases, step);
}

LConvertRateBase::LConvertRateBase(int inRate, int outRate, int tapCount, bool wide)
    : fraction(inRate, outRate),
      taps(tapCount) {
    DesignFilter(inRate, outRate, wide);
}

void LConvertRateBase::DesignFilter(int inRate, int outRate, bool wide) {
    const bool raising = inRate < outRate;
    const long double lowered = static_cast<long double>(outRate) / inRate - (wide ? 0.09375L : 0.046875L);
    const long double cutoff = raising ? 0.975L : lowered;
    const long double beta = raising ? 2.12L : 4.538L;
    const long double gain = cutoff * 65536 / Izero(beta);
    const int half = taps >> 1;
    const long double width = half + 1;

    const int phases = GetPhases();
    table.reserve(static_cast<std::size_t>(phases) * static_cast<std::size_t>(taps));
    for (int p = 0; p < phases; ++p) {
        for (int t = 0; t < taps; ++t) {
            const long double x = (t - half) - static_cast<long double>(p) / phases;
            if (x == 0) {
                table.push_back(static_cast<int>(cutoff * 65536 + 0.5L));
                continue;
            }
            const long double window = Izero(beta * std::sqrt(1 - x * x / (width * width)));
            const long double angle = std::numbers::pi_v<long double> * cutoff * x;
            table.push_back(RoundHalfAwayFromZero(gain * Sinc(angle) * window));
        }
    }
}
