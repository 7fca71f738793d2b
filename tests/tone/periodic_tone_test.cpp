#include "support/array_source.h"
#include "support/reference.h"
#include "tone/tone_engine.h"
#include "tone/waveforms.h"

#include "sound/stages/convert_rate.h"
#include "sound/stages/peak_limit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace {

struct Tone {
    std::vector<double> left, right{}, end{}, endRight{};
    int waveform = ToneSine;
    std::vector<int> db{};
    std::uint32_t ms = 0;
    bool log = false;

    SonvireData Get() const {
        SonvireData tone;
        tone.waveform = static_cast<std::uint8_t>(waveform);
        tone.numTones = static_cast<std::uint8_t>(left.size());
        const auto set = [&tone](bool when, int flag) {
            tone.flags |= static_cast<std::uint16_t>(when ? flag : 0);
        };
        set(!right.empty(), ToneFlagStereo);
        set(!end.empty(), ToneFlagSweep);
        set(log, ToneFlagLogSweep);
        set(!db.empty(), ToneFlagVariableAmplitude);
        set(ms != 0, ToneFlagDuration);
        tone.durationMs = ms;
        std::copy(left.begin(), left.end(), tone.startLeftHz);
        std::copy(right.begin(), right.end(), tone.startRightHz);
        std::copy(end.begin(), end.end(), tone.endLeftHz);
        std::copy(endRight.begin(), endRight.end(), tone.endRightHz);
        std::copy(db.begin(), db.end(), tone.amplitudeDb);
        return tone;
    }
    LSoundSource Open() const { return OpenToneEngine(Get()); }
};

std::vector<double> Steps() {
    std::vector<double> hz;
    for (int i = 1; i <= MaxTones; ++i)
        hz.push_back(100.0 * i);
    return hz;
}

TEST(PeriodicTone, MatchesTheReference) {
    const std::tuple<const char*, Tone, int> cases[] = {
        {"sine 1000", {.left = {1000}}, 10000},
        {"square 441.5", {.left = {441.5}, .waveform = ToneSquare}, 10000},
        {"triangular 60", {.left = {60}, .waveform = ToneTriangular}, 10000},
        {"saw 7000.25", {.left = {7000.25}, .waveform = ToneSawTooth}, 10000},
        {"impulse 441", {.left = {441}, .waveform = ToneImpulse}, 10000},
        // impulses have no level
        {"impulse 441", {.left = {441}, .waveform = ToneImpulse, .db = {-127}}, 10000},
        {"negative -440", {.left = {-440}}, 10000},
        {"levels", {.left = {440, 1000, 3000}, .db = {-6, -20, -127}}, 10000},
        {"stereo", {.left = {440, 880}, .right = {443, 660}}, 10000},
        {"stereo levels", {.left = {440, 1000, 700}, .right = {443, 660, 900}, .db = {-6, 0, -9}}, 10000},
        {"linear sweep", {.left = {100}, .end = {1000}, .ms = 1000}, 44100},
        {"log sweep", {.left = {100}, .end = {1000}, .ms = 1000, .log = true}, 44100},
        {"stereo log sweep",
         {.left = {20, 50},
          .right = {30, 9000},
          .end = {20000, 60},
          .endRight = {300, 90},
          .waveform = ToneSawTooth,
          .ms = 700,
          .log = true},
         20000},
        {"16 components", {.left = Steps()}, 40000},
    };
    for (const auto& [reference, tone, frames] : cases) {
        ExpectReference(ReadFrames(*tone.Open(), frames), reference);
        ExpectReference(ReadInPieces(*tone.Open(), frames), reference);
    }
    SonvireData tooMany = Tone{.left = Steps()}.Get();
    tooMany.numTones = 200;
    ExpectReference(ReadFrames(*OpenToneEngine(tooMany), 40000), "16 components");
    const LSoundSource limited = LSPPeakLimit(FullScale16).OpenSource(Tone{.left = Steps()}.Open());
    ExpectReference(ReadFrames(*limited, 30000), "limited");
    // The converter's sums don't fit 32 bits here.
    const LSoundSource converted = LSPConvertRate(48000).OpenSource(Tone{.left = {18000}}.Open());
    ExpectReference(ReadFrames(*converted, 30000), "sine 18000 from 44100 to 48000");
}

TEST(PeriodicTone, ItsLengthIsTheDurationsOrAMinute) {
    const auto lengthOf = [](std::uint32_t ms) {
        return Tone{.left = {1000}, .ms = ms}.Open()->GetEndSample();
    };
    EXPECT_EQ(lengthOf(1500), 66150);
    EXPECT_EQ(lengthOf(999), 44055);
    EXPECT_EQ(lengthOf(0), 2646000);
    SonvireData zero;
    zero.SetDuration(0);
    EXPECT_EQ(OpenToneEngine(zero)->GetEndSample(), 2646000);
    zero.SetDuration(0xFFFFFFFF); // more than can be counted: defined, whatever it is
    ReadFrames(*OpenToneEngine(zero), 100);

    const LSoundSource endless = Tone{.left = {1000}}.Open(), finite = Tone{.left = {1000}, .ms = 10}.Open();
    ReadFrames(*endless, 500);
    ReadFrames(*finite, 500);
    EXPECT_EQ(endless->GetPositionSample(), 0);
    EXPECT_EQ(finite->GetPositionSample(), 500) << "and past the end";
    EXPECT_EQ(endless->peakMax, 2097152);
    EXPECT_EQ(endless->sampleRate, 44100);
}

TEST(PeriodicTone, ASeekRestartsTheLeftChannelOnlyAndGoesOnCountingTheSweep) {
    const Tone tone{.left = {100}, .right = {100}, .end = {20000}, .endRight = {20000}, .ms = 10};
    const LSoundSource straight = tone.Open(), sought = tone.Open(), steady = Tone{.left = {100}}.Open();
    const std::vector<int> swept = ReadFrames(*straight, 64), start = ReadFrames(*steady, 24);
    ReadFrames(*sought, 40); // 24 are left to the next step
    sought->Seek(0);
    EXPECT_EQ(sought->GetPositionSample(), 0);
    const std::vector<int> after = ReadFrames(*sought, 25);
    for (std::size_t i = 0; i < 24; ++i) {
        EXPECT_EQ(after[2 * i], start[i]) << i;
        EXPECT_EQ(after[2 * i + 1], swept[2 * (40 + i) + 1]) << i;
    }
    EXPECT_EQ(after[48], 63288) << "24 frames at 100 Hz, and one after 23 / 441 of the sweep";
}

TEST(PeriodicTone, ALoopPlaysItsDurationOverAndOver) {
    SonvireData tone = Tone{.left = {1000.3}, .ms = 500}.Get();
    std::vector<int> expected = ReadFrames(*OpenToneEngine(tone), 22050);
    tone.repeat = 1;
    expected.resize(44100);
    std::copy_n(expected.begin(), 22050, expected.begin() + 22050);
    EXPECT_EQ(ReadFrames(*OpenToneEngine(tone), 44100), expected);
}

TEST(PeriodicTone, ASweepNeedsADuration) {
    const Tone endless{.left = {100}, .end = {1000}};
    EXPECT_EQ(ReadFrames(*endless.Open(), 5000), ReadFrames(*Tone{.left = {100}}.Open(), 5000));
}

TEST(PeriodicTone, AnyRecordIsSafe) {
    SonvireData tone;
    tone.numTones = 200;
    tone.flags = 0xFFFF;
    constexpr double NaN = std::numeric_limits<double>::quiet_NaN(),
                     Inf = std::numeric_limits<double>::infinity();
    constexpr double wild[] = {NaN, Inf, -Inf, 1e300, -1e300, 0, -0.0, 1e-310};
    for (std::size_t i = 0; i < MaxTones; ++i) {
        tone.startLeftHz[i] = wild[i % 8];
        tone.endLeftHz[i] = wild[i / 2];
        tone.startRightHz[i] = wild[7 - i % 8];
        tone.amplitudeDb[i] = static_cast<std::int8_t>(i * 17 - 128);
    }
    for (int waveform = 0; waveform < 13; ++waveform) {
        tone.waveform = static_cast<std::uint8_t>(waveform);
        ReadFrames(*OpenToneEngine(tone), 2000);
    }
    tone = SonvireData();
    tone.waveform = 12;
    const std::vector<int> silence(200);
    EXPECT_EQ(ReadFrames(*OpenToneEngine(tone), 200), silence) << "an unknown waveform";
    tone = SonvireData();
    for (const double hz : {NaN, Inf}) {
        tone.startLeftHz[0] = hz;
        EXPECT_EQ(ReadFrames(*OpenToneEngine(tone), 200), silence) << hz;
    }
    tone.startLeftHz[0] = 44100.0 * 3 + 11025; // modulo the sampling rate
    EXPECT_EQ(ReadFrames(*OpenToneEngine(tone), 1), std::vector<int>{131070});
}

TEST(PeriodicTone, ReachesThePeakThatItsWaveformStates) {
    for (const ToneWaveformRow& row : GetWaveforms().first(ToneImpulse))
        EXPECT_EQ(std::ranges::max(row.getTable()), row.peak) << row.szToneName;
}

} // namespace
