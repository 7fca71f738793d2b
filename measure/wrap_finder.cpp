#include "measure/wrap_finder.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int SamplesAround = 4;
constexpr int LongestRun = 4096;
constexpr double MostBend = 0.1;
constexpr double MostNoise = 0x1p-12; ///< in a bend: three samples, one of them twice, of rounding and dither

bool HasJump(ChannelBlock samples) {
    std::int64_t jumps = 0;
    for (std::size_t i = 1; i < samples.size(); ++i)
        jumps += std::abs(samples[i] - samples[i - 1]) > 1;
    return jumps > 0;
}

} // namespace

void WrapFinder::Add(ChannelBlock samples) {
    constexpr std::size_t Enough = 2 * SamplesAround; // to know the wave again
    const bool isFollowing = away > 0 || samples.empty() || std::abs(samples[0] - recent[0]) > 1;
    if (!isFollowing && samples.size() > Enough && !HasJump(samples)) {
        frame += std::ssize(samples) - std::ssize(samples.last(Enough));
        samples = samples.last(Enough);
        std::fill_n(recent, SamplesAround, samples[0]);
        std::fill_n(round, 2, 0);
    }
    for (const double sample : samples)
        Take(sample);
}

void WrapFinder::Take(double sample) {
    if (std::abs(sample + offset - recent[0]) > 1)
        TurnAt(sample);
    Follow(sample + offset);
    ++frame;
}

/// A wave that jumps, jumps away or back.
void WrapFinder::TurnAt(double sample) {
    if (offset != 0) {
        behind = 1;
        offset = 0;
        if (std::abs(sample - recent[0]) > 1)
            away = 0;
        return;
    }
    away = 0;
    side = recent[0] > 0 ? 0 : 1;
    if ((sample < recent[0]) != (side == 0) || round[side] < SamplesAround - 2)
        return;
    offset = side == 0 ? 2 : -2;
    away = 1;
    behind = 0;
    highest = 0;
    climb = std::abs(recent[0] - recent[SamplesAround - 1]);
}

/// `sample` is where it belongs.
void WrapFinder::Follow(double sample) {
    const double bend = sample - 2 * recent[0] + recent[1];
    round[0] = bend <= MostNoise && bend >= -MostBend ? round[0] + 1 : 0;
    round[1] = bend >= -MostNoise && bend <= MostBend ? round[1] + 1 : 0;
    std::copy_backward(recent, recent + SamplesAround - 1, recent + SamplesAround);
    recent[0] = sample;
    if (away == 0)
        return;
    if (round[side] == 0 || away > LongestRun) {
        away = 0;
        offset = 0;
    } else if (offset != 0) {
        highest = std::max(highest, std::abs(sample));
        ++away;
    } else if (++behind > SamplesAround) {
        Count();
    }
}

/// A square of full scale looks like a wrap by one step, but for being flat.
void WrapFinder::Count() {
    const int run = away - 1;
    if (highest > 1 + MostNoise || climb > MostNoise) {
        if (wrapped == 0)
            first = frame - SamplesAround + 1 - run;
        wrapped += run;
    }
    away = 0;
}
