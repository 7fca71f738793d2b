#include "measure/frame_marks.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::int64_t MarkFrames = 32, Reach = 4096, MostMarks = 64, LeastSpacing = 1024;

std::uint64_t Hash(std::span<const double> samples) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const double sample : samples) {
        hash =
            (hash ^ std::bit_cast<std::uint64_t>(sample + 0.0)) * 0x9E3779B97F4A7C15; // there is but one zero
        hash ^= hash >> 29;
    }
    return hash;
}

/// Such frames would be found everywhere.
bool StandsStill(std::span<const double> samples) {
    return std::all_of(samples.begin(), samples.end(), [&](double each) { return each == samples.front(); });
}

} // namespace

void PassingFrames::Add(std::span<const double> samples) {
    kept.insert(kept.end(), samples.begin(), samples.end());
}

void PassingFrames::DropBefore(std::int64_t frame) {
    const std::int64_t dropped = std::clamp<std::int64_t>(frame - first, 0, GetEnd() - first);
    kept.erase(kept.begin(), kept.begin() + dropped * static_cast<std::int64_t>(channels));
    first += dropped;
}

std::span<const double> PassingFrames::Get(std::int64_t frame, std::int64_t count) const {
    if (frame < first || frame + count > GetEnd())
        return {};
    return std::span(kept).subspan(static_cast<std::size_t>(frame - first) * channels,
                                   static_cast<std::size_t>(count) * channels);
}

FrameMarker::FrameMarker(int channels, std::int64_t frames)
    : passing(channels),
      spacing(std::max(LeastSpacing, frames / MostMarks)) {}

void FrameMarker::Add(std::span<const double> samples) {
    passing.Add(samples);
    while (next + MarkFrames <= passing.GetEnd()) {
        const auto frames = passing.Get(next, MarkFrames);
        const bool isMark = !StandsStill(frames);
        if (isMark)
            marks.push_back({next, Hash(frames)});
        next = isMark ? (next / spacing + 1) * spacing : next + 1;
    }
    passing.DropBefore(next);
}

FrameMarkFinder::FrameMarkFinder(int channels, std::vector<FrameMark> wanted)
    : passing(channels),
      marks(std::move(wanted)) {}

void FrameMarkFinder::Add(std::span<const double> samples) {
    passing.Add(samples);
    while (shifts.size() < marks.size() &&
           marks[shifts.size()].frame + Reach + MarkFrames <= passing.GetEnd())
        LookForNext();
    passing.DropBefore(shifts.size() < marks.size() ? marks[shifts.size()].frame - Reach : passing.GetEnd());
}

void FrameMarkFinder::LookForNext() {
    const auto& [frame, hash] = marks[shifts.size()];
    for (std::int64_t distance = 0; distance <= Reach; ++distance)
        for (const std::int64_t shift : {distance, -distance})
            if (const auto frames = passing.Get(frame + shift, MarkFrames);
                !frames.empty() && Hash(frames) == hash)
                return shifts.emplace_back(shift), void();
    shifts.emplace_back();
}

std::vector<std::optional<std::int64_t>> FrameMarkFinder::Finish() {
    while (shifts.size() < marks.size())
        LookForNext();
    return shifts;
}
