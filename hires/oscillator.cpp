#include "hires/oscillator.h"

#include "hires/exact_math.h"
#include "hires/sine_table.h"
#include "hires/steady_sine.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <vector>

namespace {

/// Sweeping harmonics fade out from this part of half the rate on, a sine from nearer to it.
constexpr double FadeStart = 0.9, SineFadeStart = 0.985;

std::int64_t ToGain(double amplitude) {
    return RoundToBits(amplitude, HiresUnityBits);
}

double ToPartOfRate(std::int64_t move) {
    return std::fabs(static_cast<double>(move)) * (1.0 / (std::int64_t{1} << HiresPhases::RateBits));
}

/// How much is heard of what sweeps at this part of the rate.
double GetPresence(double partOfRate, double fadeStart) {
    const double left = std::clamp((1 - 2 * partOfRate) / (1 - fadeStart), 0.0, 1.0);
    return left * left * (3 - 2 * left);
}

/// The frequencies of a block, without their signs, as parts of the rate.
struct Range {
    explicit Range(const HiresPhases& of) {
        std::int64_t low = std::numeric_limits<std::int64_t>::max(), high = 0;
        for (const std::int64_t move : of.moves) {
            low = std::min(low, std::abs(move));
            high = std::max(high, std::abs(move));
        }
        least = ToPartOfRate(low);
        most = ToPartOfRate(high);
    }

    double least, most;
};

/// The harmonics of a steady tone: how many they are, and what their shape is multiplied by and added to.
/// Those of a pulse are as large as twice the part of the rate, and beside them stands half of that.
struct Harmonics {
    Harmonics(const HiresWaveform& waveform, double partOfRate)
        : count(waveform.CountHarmonics(partOfRate)),
          factor(waveform.isPulse ? 2 * partOfRate : 1),
          offset(waveform.isPulse ? partOfRate : 0) {}

    int count;
    double factor, offset;
};

class SteadySine : public HiresOscillator {
public:
    SteadySine(std::uint64_t increment, double peak) : sine(increment, peak) {}

    void Add(HiresSums& sums) override { sine.Add(sums); }

private:
    HiresSteadySine sine;
};

class SweepingSine : public HiresOscillator {
public:
    SweepingSine(const HiresFrequencyPath& sweep, double peak) : amplitude(peak), path(sweep) {}

    void Add(HiresSums& sums) override {
        const HiresSineTable& table = GetHiresSineTable();
        const std::int64_t gain = ToGain(amplitude);
        HiresPhases now;
        path.Read(now);
        const bool isWhole = GetPresence(Range(now).most, SineFadeStart) == 1;
        for (std::size_t i = 0; i < HiresBlockFrames; ++i)
            sums[i] += LookUpSine(table, now.phases[i]) * (isWhole ? gain : Fade(now.moves[i]));
    }

private:
    std::int64_t Fade(std::int64_t move) const {
        return ToGain(amplitude * GetPresence(ToPartOfRate(move), SineFadeStart));
    }

    double amplitude;
    HiresFrequencyPath path;
};

class SteadyShape : public HiresOscillator {
public:
    SteadyShape(const HiresWaveTable& of, double factor, double offset, std::uint64_t perFrame)
        : table(of),
          gain(ToGain(factor)),
          rest(RoundToBits(offset, HiresSumBits)),
          increment(perFrame) {}

    void Add(HiresSums& sums) override {
        for (std::int64_t& sum : sums) {
            sum += table.LookUp(phase) * gain + rest;
            phase += increment;
        }
    }

private:
    const HiresWaveTable& table;
    std::int64_t gain, rest;
    std::uint64_t increment, phase = 0;
};

/// So low that no table holds all harmonics.
class LowShape : public HiresOscillator {
public:
    LowShape(const HiresWaveform& of, int count, double shapeFactor, double shapeOffset,
             std::uint64_t perFrame)
        : waveform(of),
          harmonics(count),
          factor(std::ldexp(shapeFactor, HiresSumBits)),
          offset(std::ldexp(shapeOffset, HiresSumBits)),
          increment(perFrame) {}

    void Add(HiresSums& sums) override {
        for (std::int64_t& sum : sums) {
            sum += static_cast<std::int64_t>(waveform.sum(phase, harmonics) * factor + offset);
            phase += increment;
        }
    }

private:
    const HiresWaveform& waveform;
    int harmonics;
    double factor, offset;
    std::uint64_t increment, phase = 0;
};

/// Adds the harmonics up to one table to those up to the table before, each as far as it is heard: one by one
/// up to 16, and of more, an eighth at once.
class SweepingShape : public HiresOscillator {
public:
    SweepingShape(const HiresWaveform& of, const HiresFrequencyPath& sweep, double peak,
                  HiresWaveTables& tables)
        : waveform(of),
          gain(ToGain(peak)),
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
        sums[i] +=
            gain * (isOne ? one->LookUp(now.phases[i])
                          : static_cast<std::int64_t>(GetShape(now.phases[i], ToPartOfRate(now.moves[i]))));
}

} // namespace

double HiresOscillator::FindPeak(const HiresWaveform& waveform, const HiresFrequencyPath& path) {
    if (path.GetLeast() >= 0.5)
        return 0;
    if (waveform.IsSine())
        return 1;
    if (!path.IsSteady())
        return waveform.isPulse ? 1 + std::fmin(path.GetMost(), 0.5) : waveform.peak;
    const Harmonics of(waveform, path.GetLeast());
    return of.factor * waveform.FindPeak(of.count) + of.offset;
}

std::unique_ptr<HiresOscillator> HiresOscillator::Make(const HiresWaveform& waveform,
                                                       const HiresFrequencyPath& path, double amplitude,
                                                       HiresWaveTables& tables) {
    if (path.GetLeast() >= 0.5)
        amplitude = 0;
    if (waveform.IsSine() && path.IsSteady())
        return std::make_unique<SteadySine>(path.GetIncrement(), amplitude);
    if (waveform.IsSine())
        return std::make_unique<SweepingSine>(path, amplitude);
    if (!path.IsSteady())
        return std::make_unique<SweepingShape>(waveform, path, amplitude, tables);
    const Harmonics of(waveform, path.GetLeast());
    const double factor = amplitude * of.factor, offset = amplitude * of.offset;
    if (of.count > waveform.mostInTables)
        return std::make_unique<LowShape>(waveform, of.count, factor, offset, path.GetIncrement());
    const double tableFactor = waveform.isPulse ? factor * of.count : factor;
    return std::make_unique<SteadyShape>(tables.Get(of.count), tableFactor, offset, path.GetIncrement());
}
