#include "hires/frequency_path.h"

#include "hires/exact_math.h"

#include <cmath>

namespace {

/// Frequencies beyond this part of the rate are brought to it: neither can be heard.
constexpr double MostOfRate = 4;
/// Of a logarithmic sweep from one frame to the next.
constexpr double MostGrowth = 1 << 20;

double ToPartOfRate(double hz, int rate) {
    return std::isfinite(hz) ? std::fmin(std::fmax(hz / rate, -MostOfRate), MostOfRate) : 0;
}

/// value * 2^exponent, truncated; the result is below 2^100.
__int128 Scale(double value, int exponent) {
    int places = 0; // all of a double's 53 bits at once, and where they stand
    const auto digits = static_cast<std::int64_t>(std::ldexp(std::frexp(value, &places), 53));
    places += exponent - 53;
    if (places >= 0)
        return static_cast<__int128>(digits) * (static_cast<__int128>(1) << places);
    return places > -64 ? digits >> -places : 0;
}

/// (value * factor) >> bits for a value below 2^100, a factor below 2^62 and 40 bits at least.
__int128 MultiplyShifted(__int128 value, std::int64_t factor, int bits) {
    constexpr int low = 40;
    const __int128 rest = value & ((static_cast<__int128>(1) << low) - 1);
    return ((value >> low) * factor >> (bits - low)) + (rest * factor >> bits);
}

} // namespace

HiresFrequencyPath::HiresFrequencyPath(double startHz, double endHz, Sweep kind, std::int64_t frames,
                                       int rate)
    : start(Scale(ToPartOfRate(startHz, rate), 64 + Fine)),
      increment(start) {
    const double from = ToPartOfRate(startHz, rate), to = ToPartOfRate(endHz, rate);
    if (kind == Sweep::Linear) {
        sweep = kind;
        step = (Scale(to, 64 + Fine) - start) / frames;
    } else if (kind == Sweep::Logarithmic && to / from > 0 && std::isfinite(to / from)) {
        sweep = kind;
        const double steps = static_cast<double>(frames);
        const double each =
            std::fmin(ExactExpLessOne(std::fmin(ExactLog(to / from) / steps, 14)), MostGrowth);
        int places = 0;
        std::frexp(each, &places);
        growthBits = 62 - places;
        growth = static_cast<std::int64_t>(Scale(each, growthBits));
    }
}

double HiresFrequencyPath::GetPartOfRate() const {
    return std::fabs(static_cast<double>(increment >> Fine)) * 0x1p-64;
}

void HiresFrequencyPath::MoveOn() {
    if (sweep == Sweep::Linear)
        increment += step;
    else if (sweep == Sweep::Logarithmic)
        increment += MultiplyShifted(increment, growth, growthBits);
}
