#include "measure/level_meter.h"
#include "measure/true_peak.h"
#include "support/measured_wave.h"

#include <gtest/gtest.h>

namespace {

/// In blocks of odd sizes, which must make no difference.
template <class Meter>
void AddInPieces(Meter& meter, ChannelBlock samples) {
    for (std::size_t size = 1; !samples.empty(); size = size * 3 % 4001 + 1) {
        size = std::min(size, samples.size());
        meter.Add(samples.first(size));
        samples = samples.subspan(size);
    }
}

Level Measure(const std::vector<double>& samples, int bits = 16) {
    LevelMeter meter(bits);
    AddInPieces(meter, samples);
    return meter.Get();
}

TEST(LevelMeter, MeasuresChannelsAndAllOfThem) {
    const Level left = Measure({1, -0.5, 0.25, 0.25}, 0), right = Measure({0, 0, 0, -1.5, -1.5}, 0);
    const struct {
        Level level;
        double peak, dc, rms, crest;
        std::vector<std::int64_t> clips; ///< samples, runs, the longest, the first frame
    } cases[] = {
        {left, 1, 0.25, 0.58630196997793, 1.70560573084489, {1, 0, 1, 0}},
        {right, 1.5, -0.6, 0.94868329805051, 1.58113883008419, {2, 1, 2, 3}},
        {Together(std::array{left, right}),
         1.5,
         -0.22222222222222,
         0.80794664290272,
         1.85655824326583,
         {3, 1, 2, 0}},
        {Measure({1, -1, -1, 0.5}, 0), 1, -0.125, 0.90138781886600, 1.10940039245046, {3, 1, 2, 0}},
        {Measure({}), 0, 0, 0, 0, {0, 0, 0, -1}},
        {Measure({0, 0}), 0, 0, 0, 0, {0, 0, 0, -1}},
    };
    for (const auto& [level, peak, dc, rms, crest, clips] : cases) {
        EXPECT_EQ(level.GetPeak(), peak);
        EXPECT_NEAR(level.GetDc(), dc, 1e-14);
        EXPECT_NEAR(level.GetRms(), rms, 1e-14);
        EXPECT_NEAR(level.GetCrest(), crest, 1e-13);
        EXPECT_EQ((std::vector{level.clipped, level.clippedRuns, level.longestClip, level.firstClip}), clips);
    }
    const Level flat = Measure({0.25, 0.5, -0.25, 0.5, 0.3, -0.25, -0.25});
    EXPECT_EQ(std::pair(flat.atLowest, flat.atHighest), std::pair(3l, 2l));
    // 10 periods of 441 Hz, moved by a ten-thousandth.
    const std::vector<double> sine = TakeSamples(SineOf(441, 0.5), 1000);
    std::vector<double> moved = sine;
    for (double& sample : moved)
        sample += 0.0001;
    EXPECT_NEAR(Measure(moved).GetDc(), 0.0001, 1e-15);
    EXPECT_NEAR(Measure(sine).GetRms(), 0.35355339059327, 1e-14);
}

TEST(LevelMeter, CountsWhatIsAtFullScaleOfTheFormat) {
    const double most = 32767 / 32768.0;
    const Level level = Measure({0, most, most, 0.5, -1, -most, most, 0, 32766 / 32768.0, most});
    EXPECT_EQ((std::vector{level.clipped, level.clippedRuns, level.longestClip, level.firstClip}),
              (std::vector<std::int64_t>{6, 2, 2, 1}));
}

TEST(LevelMeter, TellsWrappedSamplesFromWavesThatJump) {
    const auto cycle = [](double frame) { return 0.01 * frame - std::floor(0.01 * frame); };
    const Wave tone = SineOf(997, 0.9999),
               two = [](double frame) { return SineOf(50, 0.7)(frame) + SineOf(331, 0.4)(frame); };
    const struct {
        const char* what;
        Wave wave;
        bool wraps;
    } cases[] = {
        {"a low tone, by far", SineOf(20, 1.3), true},
        {"by a little", SineOf(50, 1.0005), true},
        {"a few samples of each peak", SineOf(997, 1.01), true},
        {"a single sample", [&](double frame) { return frame == 4390 ? 1.0 : tone(frame); }, true},
        {"a single one below", [&](double frame) { return frame == 4412 ? -1.00004 : tone(frame); }, true},
        {"two tones", two, true},
        {"with dither", [&](double frame) { return 1.01 * SineOf(997, 1)(frame) + DitherOf(frame); }, true},
        {"no wrap", SineOf(997, 0.9999), false},
        {"a square", [&](double frame) { return cycle(frame) < 0.5 ? 0.99997 : -1; }, false},
        {"one not quite as loud", [&](double frame) { return cycle(frame) < 0.5 ? 0.99 : -0.99; }, false},
        {"a pulse", [&](double frame) { return cycle(frame) < 0.01 ? -1 : 0.99997; }, false},
        {"a sawtooth", [&](double frame) { return 1.9999 * cycle(frame) - 1; }, false},
        {"noise", [&](double frame) { return 32767 * DitherOf(frame); }, false},
    };
    for (const auto& [what, wave, wraps] : cases) {
        std::vector<double> samples = TakeSamples(wave, 44100);
        std::int64_t wrapped = 0, first = -1;
        for (int i = 0; i < std::ssize(samples); ++i) {
            double& sample = samples[static_cast<std::size_t>(i)];
            const double held = Wrap16(sample);
            wrapped += std::abs(held - sample) > 1;
            first = wrapped == 1 && first < 0 ? i : first;
            sample = held;
        }
        EXPECT_EQ(wrapped > 0, wraps) << what;
        const Level level = Measure(samples);
        EXPECT_EQ(level.wrapped, wrapped) << what;
        EXPECT_EQ(level.firstWrap, first) << what;
    }
}

TEST(TruePeak, LiesBetweenTheSamples) {
    // At a rate of 48 kHz; the peak is 0.5. How far the filter and what lies between its values may be off.
    const struct {
        double hz, phase, over, under;
    } cases[] = {
        {12000, 1 / 8.0, 0.0005, 0.0005},  // all samples lie 3.01 dB below the peak
        {8000, 1 / 6.0, 0.0017, 0.0017},   // at 60 and 120 degrees, 1.25 dB below
        {12000, 3 / 16.0, 0.0017, 0.0017}, // the peak lies at a quarter
        {12000, 5 / 32.0, 0.0017, 0.0098}, // at an eighth, where 0.17 dB are missed
        {20000, 0.1, 0.0017, 0.027},       {997, 0, 0.0017, 0.0017},
    };
    for (const auto& [hz, phase, over, under] : cases) {
        const Wave sine = SineOf(hz, 0.5, phase, 48000);
        // With soft ends, as a sudden one rings.
        const std::vector<double> samples = TakeSamples(
            [&](double frame) {
                return sine(frame) * std::min({1.0, frame / 3000, (9600 - frame) / 3000});
            },
            9600);
        TruePeakMeter meter;
        AddInPieces(meter, samples);
        EXPECT_LE(meter.Get(), 0.5 + over) << hz << ' ' << phase;
        EXPECT_GE(meter.Get(), 0.5 - under) << hz << ' ' << phase;
    }
    TruePeakMeter single, none;
    single.Add(std::vector{-0.25});
    EXPECT_EQ(single.Get(), 0.25);
    EXPECT_EQ(none.Get(), 0);
}

} // namespace
