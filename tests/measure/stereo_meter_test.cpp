#include "measure/stereo_meter.h"
#include "support/measured_wave.h"

#include <gtest/gtest.h>

namespace {

TEST(StereoMeter, ComparesChannels) {
    const Wave tone = SineOf(997, 0.5, 0.1), none = SineOf(1, 0);
    const Wave noise = [](double frame) { return 30000 * DitherOf(frame); };
    const Wave other = [](double frame) { return 30000 * DitherOf(frame + 1000000); };
    const Wave tones = [](double frame) {
        double sum = 0;
        for (int i = 0; i < 30; ++i)
            sum += SineOf(40 * std::pow(1.219, i), 0.03, 0.61 * i * i)(frame);
        return sum;
    };
    const auto late = [](const Wave& wave, double frames) {
        return [=](double frame) { return wave(frame - frames); };
    };
    const struct {
        const char* what;
        Wave left, right;
        double ratio, correlation, tolerance, delay; ///< 9: none
    } cases[] = {
        {"the same tone", tone, tone, 1, 1, 1e-5, 0},
        {"0.1 dB less", tone, SineOf(997, 0.494276549, 0.1), 0.988553, 1, 1e-5, 0},
        {"an eighth of a period", tone, SineOf(997, 0.5, -0.025), 1, 0.707107, 1e-5, 5.5291},
        {"the opposite", noise, [&](double frame) { return -noise(frame); }, 1, -1, 1e-5, 9},
        {"another tone", tone, SineOf(1500, 0.5), 1, 0, 1e-4, 9},
        {"noise, 100 frames late", noise, late(noise, 100), 1, 0, 0.01, 100},
        {"half a frame early", [&](double frame) { return (noise(frame) + noise(frame + 1)) / 2; },
         late(noise, -1), 1.4142, 0.7071, 0.01, -0.5},
        {"other noise", noise, other, 1, 0, 0.01, 9},
        {"a tone in noise", [&](double frame) { return 0.1 * tone(frame) + noise(frame); },
         [&](double frame) { return 0.1 * tone(frame - 100) + noise(frame - 100); }, 1, 0, 0.01, 100},
        {"many tones, 123.4 frames late", tones, late(tones, 123.4), 1, 0.067, 0.001, 123.4},
        {"a silent one", tone, none, 9, 9, 0, 9},
        {"both silent", none, none, 9, 9, 0, 9},
    };
    for (const auto& [what, left, right, ratio, correlation, tolerance, delay] : cases) {
        const std::vector<double> samples[] = {TakeSamples(left, 200001), TakeSamples(right, 200001)};
        const ChannelBlock blocks[] = {samples[0], samples[1]};
        StereoMeter meter;
        meter.Add(blocks[0], blocks[1]);
        EXPECT_NEAR(meter.GetLevelRatio().value_or(9), ratio, tolerance) << what;
        EXPECT_NEAR(meter.GetCorrelation().value_or(9), correlation, tolerance) << what;
        MeanSpectrum spectrum(44100, 2);
        spectrum.Add(blocks);
        EXPECT_NEAR(MeasureDelay(spectrum.Finish()).value_or(9), delay, 0.001) << what;
    }
}

} // namespace
