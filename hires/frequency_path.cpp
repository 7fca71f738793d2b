#include "hires/frequency_path.h"

#include "hires/exact_math.h"

#include <algorithm>
#include <cmath>

namespace {

/// Frequencies beyond this part of the rate are brought to it.
constexpr double MostOfRate = 1 << 20;
/// So that 63 bits hold the factor of 64.
constexpr double MostGrowth = 0.499;

double ToPartOfRate(double hz, int rate) {
    return std::isfinite(hz) ? std::fmin(std::fmax(hz / rate, -MostOfRate), MostOfRate) : 0;
}

/// As many as leave room for both signs of the larger of the two.
int ChooseRateBits(const std::array<double, 2>& partsOfRate) {
    int places = 0;
    std::frexp(std::fmax(std::fabs(partsOfRate[0]), std::fabs(partsOfRate[1])), &places);
    return std::min(61, 62 - places);
}

/// value * 2^bits, truncated; the result is below 2^127.
__int128 Scale(double value, int bits) {
    int places = 0; // all of a double's 53 bits at once, and where they stand
    const auto digits = static_cast<std::int64_t>(std::ldexp(std::frexp(value, &places), 53));
    places += bits - 53;
    if (places >= 0)
        return static_cast<__int128>(digits) * (static_cast<__int128>(1) << places);
    return places > -64 ? digits >> -places : 0;
}

} // namespace

HiresFrequencyPath::HiresFrequencyPath(double startHz, double endHz, Sweep kind, std::int64_t sweepFrames,
                                       int rate)
    : ends{ToPartOfRate(startHz, rate), ToPartOfRate(endHz, rate)},
      rateBits(ChooseRateBits(ends)),
      start(Scale(ends[0], rateBits + FineBits)),
      frames(sweepFrames),
      left(frames) {
    const double ratio = ends[1] / ends[0];
    if (kind == Sweep::Linear) {
        sweep = kind;
        // Each by itself: 128 bits need not hold their difference.
        step = Scale(ends[1], rateBits + FineBits) / frames - start / frames;
        start += step / 2; // the mean over a frame
    } else if (kind == Sweep::Logarithmic && ratio > 0 && std::isfinite(ratio)) {
        sweep = kind;
        const double log = ExactLog(ratio) / static_cast<double>(frames), each = ExactExpLessOne(log);
        const double kept = std::fmin(std::fmax(each, -MostGrowth), MostGrowth);
        if (log != 0 && kept == each) // the mean over a frame
            start = Scale(ends[0] * (each / log), rateBits + FineBits);
        int places = 0;
        std::frexp(kept, &places);
        growthShift = std::clamp(-places - 1, 0, 62);
        growth = static_cast<std::int64_t>(Scale(kept, 64 + growthShift));
    }
    move = start;
}

std::uint64_t HiresFrequencyPath::GetIncrement() const {
    return static_cast<std::uint64_t>(start >> (rateBits + FineBits - 64));
}

double HiresFrequencyPath::GetLeast() const {
    if (IsSteady())
        return std::fabs(ends[0]);
    return ends[0] * ends[1] < 0 ? 0 : std::fmin(std::fabs(ends[0]), std::fabs(ends[1]));
}

double HiresFrequencyPath::GetMost() const {
    return IsSteady() ? std::fabs(ends[0]) : std::fmax(std::fabs(ends[0]), std::fabs(ends[1]));
}

void HiresFrequencyPath::MoveOn() {
    const auto rounded = static_cast<std::int64_t>((move + (Wide{1} << (FineBits - 1))) >> FineBits);
    move += sweep == Sweep::Linear ? step : static_cast<Wide>(rounded) * growth >> growthShift;
    if (--left > 0)
        return;
    move = start;
    left = frames;
}

void HiresFrequencyPath::Read(HiresPhases& out) {
    const double unit = std::ldexp(1, -rateBits);
    for (std::size_t i = 0; i < HiresBlockFrames; ++i) {
        const auto whole = static_cast<std::int64_t>(move >> FineBits);
        out.phases[i] = static_cast<std::uint64_t>(phase >> rateBits);
        out.partsOfRate[i] = std::fabs(static_cast<double>(whole)) * unit;
        phase += static_cast<unsigned __int128>(move);
        MoveOn();
    }
}
