#include "measure/tone_meter.h"
#include "support/measured_wave.h"

#include <gtest/gtest.h>

namespace {

ToneFigures Measure(const Wave& wave, int frames, int rate) {
    const std::vector<double> samples = TakeSamples(wave, frames);
    MeanSpectrum spectrum(rate, 1);
    const ChannelBlock all = samples, parts[] = {all.first(all.size() / 3), all.subspan(all.size() / 3)};
    for (const ChannelBlock& part : parts)
        spectrum.Add({&part, 1});
    return MeasureTones(spectrum.Finish(), 0);
}

/// 0 for none, but for the last digits of the arithmetic.
double ToDb(double ratio) {
    return ratio > 1e-9 && ratio < 1e9 ? 20 * std::log10(ratio) : 0;
}

using Tones = std::vector<std::pair<double, double>>; ///< frequency and dB of full scale

double GetManyHz(int i) {
    return 100 * std::pow(1.37, i);
}

TEST(ToneMeter, FindsTonesAndTheirFigures) {
    const Wave sine = SineOf(997, 0.5);
    const Wave distorted = [&](double frame) {
        return sine(frame) + SineOf(1994, 0.0005, 0.2)(frame) + SineOf(2991, 0.0004)(frame) +
               SineOf(5000, 0.0001)(frame);
    };
    const Wave beeps = [](double frame) {
        return std::fmod(frame, 66150) < 44100 ? SineOf(440, 0.5, 0.1)(frame) : 0;
    };
    const Wave many = [](double frame) {
        double sum = DitherOf(frame);
        for (int i = 0; i < 16; ++i)
            sum += SineOf(GetManyHz(i), 0.05, 0.17 * i)(frame);
        return sum;
    };
    Tones manyTones;
    for (int i = 0; i < 16; ++i)
        manyTones.emplace_back(GetManyHz(i), -26.0206);
    // A tone of 0.5 has -9.0309 dB, the dither -98.091, of which 0.428 less lies below 20 kHz.
    const struct {
        const char* what;
        Wave wave;
        int frames, rate;
        Tones tones;
        double thd, thdPlusNoise, signalToNoise, spurFreeRange; ///< in dB; 0: none
    } cases[] = {
        {"silence", SineOf(1, 0), 200000, 44100, {}, 0, 0, 0, 0},
        {"DC", [](double) { return 0.5; }, 200000, 44100, {}, 0, 0, 0, 0},
        {"noise", DitherOf, 441000, 44100, {}, 0, 0, 0, 0},
        {"two that beat",
         [&](double frame) { return sine(frame) + SineOf(999, 0.5)(frame); },
         441000,
         44100,
         {},
         0,
         0,
         0,
         0},
        {"beeps", beeps, 441000, 44100, {}, 0, 0, 0, 0},
        {"a sweep",
         [](double frame) { return std::sin(frame * (0.01 + frame * 1e-6)); },
         441000,
         44100,
         {},
         0,
         0,
         0,
         0},
        {"no numbers", [](double) { return NAN; }, 200000, 44100, {}, 0, 0, 0, 0},
        {"too short", sine, 63, 44100, {}, 0, 0, 0, 0},
        {"lines", distorted, 441000, 44100, {{997, -6.0206}}, -57.8516, -57.7469, 73.9794, 60},
        {"a high rate",
         [&](double frame) { return distorted(frame * 44.1 / 192); },
         960000,
         192000,
         {{997, -6.0206}},
         -57.8516,
         -57.7469,
         73.9794,
         60},
        {"lines and noise",
         [&](double frame) { return distorted(frame) + DitherOf(frame); },
         441000,
         44100,
         {{997, -6.0206}},
         -57.8516,
         -57.7440,
         73.8589,
         60},
        {"noise and DC",
         [&](double frame) { return sine(frame) + DitherOf(frame) + 0.01; },
         882000,
         44100,
         {{997, -6.0206}},
         0,
         -89.4881,
         89.4881,
         0},
        {"0.01% off, 0.1 dB off",
         SineOf(1000.1, 0.494276549),
         441000,
         44100,
         {{1000.1, -6.1206}},
         0,
         0,
         0,
         0},
        {"the lowest", SineOf(20, 0.5, 0.3), 200000, 44100, {{20, -6.0206}}, 0, 0, 0, 0},
        {"a short one", SineOf(5000.05, 0.5, 0.3), 2000, 44100, {{5000.05, -6.0206}}, 0, 0, 0, 0},
        {"a strange rate", SineOf(0.2, 0.5, 0, 1), 3000, 1, {{0.2, -6.0206}}, 0, 0, 0, 0},
        {"many", many, 441000, 44100, manyTones, 0, -0.2803, -11.7609, 0},
        {"hum below a tone",
         [&](double frame) { return sine(frame) + SineOf(49.85, 0.05)(frame); },
         441000,
         44100,
         {{49.85, -26.0206}, {997, -6.0206}},
         0,
         -20.0432,
         20,
         20},
        {"a low one in a short sound",
         SineOf(50, 0.5, 0.3, 48000),
         24000,
         48000,
         {{50, -6.0206}},
         0,
         0,
         0,
         0},
        {"one too low", SineOf(3, 0.5), 88200, 44100, {}, 0, 0, 0, 0},
        // numpy has the figures of its period of 441 samples
        {"clipped by 0.1%",
         [](double frame) { return std::clamp(SineOf(100, 1.001)(frame), -1.0, 1.0); },
         441000,
         44100,
         {{100, 0.0084}},
         -75.3979,
         -75.3979,
         0,
         88.4395},
    };
    for (const auto& [what, wave, frames, rate, tones, thd, thdPlusNoise, signalToNoise, spurFreeRange] :
         cases) {
        const ToneFigures figures = Measure(wave, frames, rate);
        EXPECT_NEAR(ToDb(figures.thd), thd, 0.005) << what;
        EXPECT_NEAR(ToDb(figures.thdPlusNoise), thdPlusNoise, 0.01) << what;
        EXPECT_NEAR(ToDb(figures.signalToNoise), signalToNoise, 0.01) << what;
        EXPECT_NEAR(ToDb(figures.spurFreeRange), spurFreeRange, 0.01) << what;
        ASSERT_EQ(figures.tones.size(), tones.size()) << what;
        for (std::size_t i = 0; i < tones.size(); ++i) {
            EXPECT_NEAR(figures.tones[i].hz, tones[i].first, 1e-7 * tones[i].first) << what;
            EXPECT_NEAR(ToDb(figures.tones[i].amplitude), tones[i].second, 0.001) << what;
        }
    }
    EXPECT_NEAR(Measure(beeps, 441000, 44100).strongest.at(0).hz, 440, 0.004);
    EXPECT_NEAR(ToDb(Measure(many, 441000, 44100).residual), -81.5293, 0.01);
    const std::vector<ToneLine> lines = Measure(distorted, 441000, 44100).strongest;
    const std::tuple<double, double, int, int> expected[] = {
        {997, 0.5, 0, 1}, {1994, 0.0005, 0, 2}, {2991, 0.0004, 0, 3}, {5000, 0.0001, -1, 0}};
    ASSERT_EQ(lines.size(), std::size(expected));
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto& [hz, amplitude, tone, harmonic] = expected[i];
        EXPECT_NEAR(lines[i].hz, hz, 0.0001);
        EXPECT_NEAR(lines[i].amplitude, amplitude, 1e-7);
        EXPECT_EQ(std::pair(lines[i].tone, lines[i].harmonic), std::pair(tone, harmonic));
    }
}

} // namespace
