#include "hires/oscillator.h"

#include "hires/exact_math.h"
#include "hires/steady_sine.h"
#include "hires/sweep.h"

#include <cmath>

namespace {

/// The harmonics of a steady tone: how many they are, and what their shape is multiplied by and added to.
/// Those of a pulse are as large as twice the share of the rate, and beside them stands half of that.
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

class SteadyShape : public HiresOscillator {
public:
    SteadyShape(const HiresWaveTable& of, double factor, double offset, std::uint64_t perFrame)
        : table(of),
          gain(RoundToBits(factor, HiresUnityBits)),
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
    if (!path.IsSteady())
        return MakeHiresSweep(waveform, path, amplitude, tables);
    if (waveform.IsSine())
        return std::make_unique<SteadySine>(path.GetIncrement(), amplitude);
    const Harmonics of(waveform, path.GetLeast());
    const double factor = amplitude * of.factor, offset = amplitude * of.offset;
    if (of.count > waveform.mostInTables)
        return std::make_unique<LowShape>(waveform, of.count, factor, offset, path.GetIncrement());
    const double tableFactor = waveform.isPulse ? factor * of.count : factor;
    return std::make_unique<SteadyShape>(tables.Get(of.count), tableFactor, offset, path.GetIncrement());
}
