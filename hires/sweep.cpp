#include "hires/sweep.h"

#include "hires/exact_math.h"
#include "hires/sine_table.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

/// Sweeping harmonics fade out from this part of half the rate on, a sine from nearer to it.
constexpr double FadeStart = 0.9, SineFadeStart = 0.985;

/// How much is heard of what sweeps at this part of the rate.
double GetPresence(double partOfRate, double fadeStart) {
    const double left = std::clamp((1 - 2 * partOfRate) / (1 - fadeStart), 0.0, 1.0);
    return left * left * (3 - 2 * left);
}

/// The lowest and the highest frequency of a block, as parts of the rate.
struct Range {
    explicit Range(const HiresPhases& of) {
        const auto [low, high] = std::minmax_element(of.partsOfRate.begin(), of.partsOfRate.end());
        least = *low;
        most = *high;
    }

    double least, most;
};

class SweepingSine : public HiresOscillator {
public:
    SweepingSine(const HiresFrequencyPath& sweep, double peak) : amplitude(peak), path(sweep) {}

    void Add(HiresSums& sums) override {
        const HiresSineTable& table = GetHiresSineTable();
        const std::int64_t gain = RoundToBits(amplitude, HiresUnityBits);
        HiresPhases now;
        path.Read(now);
        const bool isWhole = GetPresence(Range(now).most, SineFadeStart) == 1;
        for (std::size_t i = 0; i < HiresBlockFrames; ++i)
            sums[i] += LookUpSine(table, now.phases[i]) * (isWhole ? gain : Fade(now.partsOfRate[i]));
    }

private:
    std::int64_t Fade(double partOfRate) const {
        return RoundToBits(amplitude * GetPresence(partOfRate, SineFadeStart), HiresUnityBits);
    }

    double amplitude;
    HiresFrequencyPath path;
};

/// Adds the harmonics up to one table to those up to the table before, each as far as it is heard: one by one
/// up to 16, and of more, an eighth at once.
class SweepingShape : public HiresOscillator {
public:
    SweepingShape(const HiresWaveform& of, const HiresFrequencyPath& sweep, double peak,
                  HiresWaveTables& tables)
        : waveform(of),
          gain(RoundToBits(peak, HiresUnityBits)),
          path(sweep) {
        const int most = waveform.CountHarmonics(path.GetLeast());
        for (int harmonics = 0; harmonics <= most; harmonics += std::max(1, harmonics / 8)) {
            if (GetPresence(path.GetMost() * harmonics, FadeStart) == 1)
                levels.clear();
            levels.push_back({harmonics, nullptr});
        }
        for (Level& each : levels)
            if (each.harmonics <= waveform.mostInTables)
                each.table = &tables.Get(each.harmonics);
    }

    void Add(HiresSums& sums) override;

private:
    struct Level {
        int harmonics;
        const HiresWaveTable* table; ///< null where it would be too large
    };
    using Place = std::vector<Level>::const_iterator;

    Place FindWhole(double partOfRate) const;
    bool IsOneTable(const Range& range) const;
    double GetShape(std::uint64_t phase, double partOfRate) const;
    double GetShape(const Level& level, std::uint64_t phase, double partOfRate) const;

    const HiresWaveform& waveform;
    std::int64_t gain;
    HiresFrequencyPath path;
    std::vector<Level> levels; ///< by their harmonics; the first one is always whole
};

/// The highest one whose harmonics are all heard in full.
SweepingShape::Place SweepingShape::FindWhole(double partOfRate) const {
    return std::partition_point(levels.begin() + 1, levels.end(),
                                [partOfRate](const Level& level) {
                                    return GetPresence(partOfRate * level.harmonics, FadeStart) == 1;
                                }) -
           1;
}

bool SweepingShape::IsOneTable(const Range& range) const {
    const Place next = FindWhole(range.most) + 1;
    return next == levels.end() || GetPresence(range.least * next->harmonics, FadeStart) == 0;
}

/// Of a pulse, with the constant half a harmonic that belongs to it.
double SweepingShape::GetShape(const Level& level, std::uint64_t phase, double partOfRate) const {
    if (level.harmonics == 0)
        return 0;
    constexpr double unity = 1 << HiresUnityBits;
    if (!waveform.isPulse)
        return level.table ? level.table->LookUp(phase) : waveform.sum(phase, level.harmonics) * unity;
    const double sum = level.table ? static_cast<double>(level.table->LookUp(phase)) * level.harmonics
                                   : waveform.sum(phase, level.harmonics) * unity;
    return (2 * sum + unity) * partOfRate;
}

double SweepingShape::GetShape(std::uint64_t phase, double partOfRate) const {
    Place level = FindWhole(partOfRate);
    double below = GetShape(*level, phase, partOfRate), sum = below;
    while (++level != levels.end()) {
        const double presence = GetPresence(partOfRate * level->harmonics, FadeStart);
        if (presence == 0)
            break;
        const double value = GetShape(*level, phase, partOfRate);
        sum += (value - below) * presence;
        below = value;
    }
    return sum;
}

void SweepingShape::Add(HiresSums& sums) {
    HiresPhases now;
    path.Read(now);
    const Range range(now);
    const HiresWaveTable* const one = FindWhole(range.most)->table;
    const bool isOne = one && !waveform.isPulse && IsOneTable(range);
    for (std::size_t i = 0; i < HiresBlockFrames; ++i)
        sums[i] += gain * (isOne ? one->LookUp(now.phases[i])
                                 : static_cast<std::int64_t>(GetShape(now.phases[i], now.partsOfRate[i])));
}

} // namespace

std::unique_ptr<HiresOscillator> MakeHiresSweep(const HiresWaveform& waveform, const HiresFrequencyPath& path,
                                                double amplitude, HiresWaveTables& tables) {
    if (waveform.IsSine())
        return std::make_unique<SweepingSine>(path, amplitude);
    return std::make_unique<SweepingShape>(waveform, path, amplitude, tables);
}
