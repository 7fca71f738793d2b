#include "measure/sound_meter.h"
#include "support/measured_wave.h"

#include <gtest/gtest.h>

namespace {

TEST(SoundMeter, MeasuresEachChannelOfFramesInBlocks) {
    const Wave left = SineOf(997, 0.5), right = SineOf(1500, 0.25);
    SoundMeter meter(44100, 2, 16);
    std::vector<double> frames;
    for (int i = 0; i < 441000; ++i) {
        // A frame is missing; the second channel has DC and, once, no number.
        const double at = i < 300000 ? i : i + 1;
        frames.insert(frames.end(), {left(at), i == 400000 ? NAN : right(i) + 0.0001});
        if (i % 10007 == 0 || i == 440999) {
            meter.Add(frames);
            frames.clear();
        }
    }
    const SoundFigures figures = meter.Finish();
    ASSERT_EQ(figures.channels.size(), 2u);
    const auto& [first, second] = std::tie(figures.channels[0], figures.channels[1]);
    EXPECT_NEAR(first.tones.tones.at(0).hz, 997, 0.01);
    EXPECT_NEAR(second.tones.tones.at(0).hz, 1500, 0.0001);
    EXPECT_NEAR(first.truePeak, 0.5, 0.002);
    EXPECT_NEAR(figures.truePeak, 0.5, 0.002);
    EXPECT_NEAR(second.level.GetDc(), 0.0001, 1e-6);
    EXPECT_NEAR(figures.whole.GetRms(), 0.2795085, 1e-5); // the root of (1/8 + 1/32) / 2
    EXPECT_EQ(std::pair(first.jumps.count, first.jumps.first), std::pair(1l, 300000l));
    EXPECT_EQ(figures.unusable, 1);
    EXPECT_EQ(std::pair(second.jumps.count, second.jumps.first), std::pair(1l, 400000l));
    EXPECT_NEAR(figures.stereo->levelRatio.value_or(9), 0.5, 1e-5);
    EXPECT_FALSE(figures.stereo->delayFrames);

    const SoundFigures none = SoundMeter(48000, 1, 0).Finish();
    EXPECT_EQ(none.whole.samples, 0);
    EXPECT_TRUE(none.channels.at(0).tones.tones.empty());
    EXPECT_FALSE(none.stereo);
}

/// 90 s at 8 kHz, whose spectrum looks at every stretch of the first 33 s, and then at what is different.
SoundFigures MeasureLongTone(const Wave& wave, std::size_t blockFrames) {
    SoundMeter meter(8000, 1, 24);
    std::vector<double> block;
    for (int i = 0; i < 720000; ++i) {
        block.push_back(wave(i));
        if (block.size() == blockFrames || i == 719999) {
            meter.Add(block);
            block.clear();
        }
    }
    return meter.Finish();
}

TEST(SoundMeter, LooksAtWhatHappensLateInALongSound) {
    const auto tone = [](double i) { return 0.5 * std::sin(2 * M_PI * 1000.1 / 8000 * i); };
    const auto spur = [&](double i) {
        const bool isOn = i >= 400000 && i < 480000; // a ninth of the time
        return tone(i) + (isOn ? 0.0005 * std::sin(2 * M_PI * 2700 / 8000 * i) : 0);
    };
    const auto change = [&](double i) {
        return i < 400000 ? tone(i) : 0.5 * std::sin(2 * M_PI * 1500 / 8000 * i);
    };
    const SoundFigures steady = MeasureLongTone(tone, 4096);
    EXPECT_LT(steady.spectrum.lookedAt, 0.7);
    EXPECT_EQ(steady.channels[0].tones.strongest.size(), 1u);
    EXPECT_EQ(steady.spectrum.channels[0].power, MeasureLongTone(tone, 10007).spectrum.channels[0].power);

    const std::vector<ToneLine> lines = MeasureLongTone(spur, 4096).channels[0].tones.strongest;
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NEAR(lines[1].hz, 2700, 0.001);
    EXPECT_NEAR(lines[1].amplitude, 0.0005 / 3, 0.00001);

    const SoundFigures changed = MeasureLongTone(change, 4096);
    EXPECT_GT(changed.spectrum.lookedAt, 0.7);
    EXPECT_NEAR(changed.channels[0].tones.strongest.at(0).amplitude, 0.5 * std::sqrt(5 / 9.0), 0.02);
}

} // namespace
