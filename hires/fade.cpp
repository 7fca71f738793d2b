#include "hires/fade.h"

#include "hires/hires_source.h"
#include "hires/sine_table.h"

#include <algorithm>

namespace {

constexpr std::int64_t Unity = std::int64_t{1} << HiresUnityBits;

/// (1 - cos(pi * part / whole)) / 2 for parts of 0..whole - 1.
std::int64_t GetRaisedCosine(std::int64_t part, std::int64_t whole) {
    constexpr std::uint64_t half = std::uint64_t{1} << 63, quarter = half / 2;
    const std::uint64_t phase = half / static_cast<std::uint64_t>(whole) * static_cast<std::uint64_t>(part);
    return (Unity - LookUpSine(GetHiresSineTable(), phase + quarter) + 1) >> 1;
}

} // namespace

HiresFade::HiresFade(std::int64_t in, std::int64_t out, std::int64_t length)
    : inFrames(std::clamp<std::int64_t>(in, 0, length / 2)),
      outFrames(length == HiresSource::Endless ? 0 : std::clamp<std::int64_t>(out, 0, length / 2)),
      end(length) {}

std::int64_t HiresFade::GetGain(std::int64_t position) const {
    const std::int64_t toEnd = std::max<std::int64_t>(end - position, 0);
    if (position < inFrames)
        return GetRaisedCosine(position, inFrames);
    return toEnd < outFrames ? GetRaisedCosine(toEnd, outFrames) : Unity;
}

void HiresFade::Apply(std::int64_t position, HiresSums& sums) const {
    if (position >= inFrames && end - position - HiresBlockFrames >= outFrames)
        return;
    for (std::int64_t& sum : sums)
        sum = static_cast<std::int64_t>(static_cast<__int128>(sum) * GetGain(position++) >> HiresUnityBits);
}
