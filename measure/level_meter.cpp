#include "measure/level_meter.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// What is added up side by side, so that the compiler can do it at once.
struct Lane {
    double lowest, highest, sum = 0, squares = 0;

    void Take(double x) {
        lowest = x < lowest ? x : lowest;
        highest = x > highest ? x : highest;
        sum += x;
        squares += x * x;
    }
};

Level AddUp(ChannelBlock samples) {
    constexpr std::size_t Lanes = 4;
    std::array<Lane, Lanes> lanes;
    lanes.fill({samples[0], samples[0]});
    std::size_t i = 0;
    for (; i + Lanes <= samples.size(); i += Lanes)
        for (std::size_t lane = 0; lane < Lanes; ++lane)
            lanes[lane].Take(samples[i + lane]);
    for (; i < samples.size(); ++i)
        lanes[0].Take(samples[i]);
    Level all{.samples = std::ssize(samples), .lowest = samples[0], .highest = samples[0]};
    for (const Lane& lane : lanes) {
        all.lowest = std::min(all.lowest, lane.lowest);
        all.highest = std::max(all.highest, lane.highest);
        all.sum += lane.sum;
        all.squares += lane.squares;
    }
    return all;
}

std::int64_t EarlierOf(std::int64_t a, std::int64_t b) {
    return a < 0 || b < 0 ? std::max(a, b) : std::min(a, b);
}

void TakeExtreme(double& extreme, std::int64_t& count, double other, std::int64_t otherCount, bool isBeyond) {
    if (isBeyond)
        count = 0;
    if (isBeyond || other == extreme)
        count += otherCount;
    if (isBeyond)
        extreme = other;
}

} // namespace

double Level::GetPeak() const {
    return std::max(-lowest, highest);
}

double Level::GetDc() const {
    return samples > 0 ? sum / static_cast<double>(samples) : 0;
}

double Level::GetRms() const {
    return samples > 0 ? std::sqrt(squares / static_cast<double>(samples)) : 0;
}

double Level::GetCrest() const {
    const double rms = GetRms();
    return rms > 0 ? GetPeak() / rms : 0;
}

LevelMeter::LevelMeter(int bits) : fullScale(bits == 0 ? 1 : 1 - std::ldexp(1, 1 - bits)) {}

void LevelMeter::Add(ChannelBlock samples) {
    if (samples.empty())
        return;
    wraps.Add(samples);
    Level block = AddUp(samples);
    if (level.samples == 0 || block.lowest <= level.lowest)
        block.atLowest = std::count(samples.begin(), samples.end(), block.lowest);
    if (level.samples == 0 || block.highest >= level.highest)
        block.atHighest = std::count(samples.begin(), samples.end(), block.highest);
    if (clipRun > 0 || block.GetPeak() >= fullScale)
        CountClips(samples);
    level = Together(std::array{level, block});
}

void LevelMeter::CountClips(ChannelBlock samples) {
    std::int64_t frame = level.samples;
    for (const double sample : samples) {
        const bool goesOn = clipRun > 0 && clipSide * sample > 0;
        clipRun = std::abs(sample) < fullScale ? 0 : goesOn ? clipRun + 1 : 1;
        clipSide = sample;
        level.clipped += clipRun > 0;
        level.clippedRuns += clipRun == 2;
        level.longestClip = std::max(level.longestClip, clipRun);
        if (clipRun > 0 && level.firstClip < 0)
            level.firstClip = frame;
        ++frame;
    }
}

Level LevelMeter::Get() const {
    Level all = level;
    all.wrapped = wraps.GetSamples();
    all.firstWrap = wraps.GetFirst();
    return all;
}

Level Together(std::span<const Level> channels) {
    Level all;
    for (const Level& each : channels) {
        if (each.samples > 0) {
            const bool isFirst = all.samples == 0;
            TakeExtreme(all.lowest, all.atLowest, each.lowest, each.atLowest,
                        isFirst || each.lowest < all.lowest);
            TakeExtreme(all.highest, all.atHighest, each.highest, each.atHighest,
                        isFirst || each.highest > all.highest);
        }
        all.samples += each.samples;
        all.sum += each.sum;
        all.squares += each.squares;
        all.clipped += each.clipped;
        all.clippedRuns += each.clippedRuns;
        all.longestClip = std::max(all.longestClip, each.longestClip);
        all.firstClip = EarlierOf(all.firstClip, each.firstClip);
        all.wrapped += each.wrapped;
        all.firstWrap = EarlierOf(all.firstWrap, each.firstWrap);
    }
    return all;
}
