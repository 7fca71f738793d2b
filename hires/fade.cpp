#include "hires/fade.h"

#include "hires/hires_source.h"
#include "hires/sine_table.h"

#include <algorithm>

namespace {

/// (1 - cos(pi * part / whole)) / 2, 2^30 being 1.
std::int64_t GetRaisedCosine(std::int64_t part, std::int64_t whole) {
    const auto halfCycles =
        (static_cast<unsigned __int128>(part) << 63) / static_cast<unsigned __int128>(whole);
    const std::uint64_t quarter = std::uint64_t{1} << 62;
    const std::int64_t cosine =
        LookUpSine(GetHiresSineTable(), static_cast<std::uint64_t>(halfCycles) + quarter);
    return (INT64_C(0x7FFFFFFF) - cosine + 2) >> 2;
}

} // namespace

HiresFade::HiresFade(std::int64_t in, std::int64_t out, std::int64_t length)
    : inFrames(std::clamp<std::int64_t>(in, 0, length / 2)),
      outFrames(length == HiresSource::Endless ? 0 : std::clamp<std::int64_t>(out, 0, length / 2)),
      outStart(length - outFrames) {}

std::int64_t HiresFade::GetGain(std::int64_t position) const {
    if (position < inFrames)
        return GetRaisedCosine(position, inFrames);
    if (outFrames > 0 && position >= outStart)
        return GetRaisedCosine(std::max<std::int64_t>(outStart + outFrames - position, 0), outFrames);
    return std::int64_t{1} << 30;
}

bool HiresFade::IsFlat(std::int64_t position, std::int64_t count) const {
    return position >= inFrames && (outFrames == 0 || position + count <= outStart);
}
