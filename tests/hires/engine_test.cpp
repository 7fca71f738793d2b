#include "hires/exact_math.h"
#include "hires/frequency_path.h"
#include "hires/list_source.h"
#include "hires/raw_writer.h"
#include "hires/tone_source.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstring>
#include <numbers>

namespace {

using Sweep = HiresFrequencyPath::Sweep;

SonvireData ToneOf(int waveform, std::vector<double> hz, std::uint32_t ms = 1000) {
    SonvireData tone;
    tone.waveform = static_cast<std::uint8_t>(waveform);
    tone.numTones = static_cast<std::uint8_t>(hz.size());
    std::copy(hz.begin(), hz.end(), tone.startLeftHz);
    tone.SetDuration(ms);
    return tone;
}

std::vector<std::int32_t> ReadAll(HiresSource& source, int piece = 1000) {
    std::vector<std::int32_t> samples(static_cast<std::size_t>(source.GetLength() * source.channels));
    for (std::size_t done = 0; done < samples.size();) {
        const int frames = std::min(piece, static_cast<int>(samples.size() - done) / source.channels);
        source.Read(&samples[done], frames);
        done += static_cast<std::size_t>(frames * source.channels);
    }
    return samples;
}

std::vector<std::int32_t> Render(const SonvireData& tone, const HiresSettings& settings, int piece = 1000) {
    const HiresTone opened = OpenHiresTone(tone, settings);
    EXPECT_FALSE(opened.failure) << opened.failure.GetReason();
    return ReadAll(*opened.source, piece);
}

/// How much of a frequency is in a sound, full scale being 1; exact for whole Hz in a whole second.
double Measure(const std::vector<std::int32_t>& samples, double hz, int rate) {
    std::complex<double> sum = 0;
    for (std::size_t i = 0; i < samples.size(); ++i)
        sum += std::polar(samples[i] * 0x1p-31, -2 * std::numbers::pi * hz * static_cast<double>(i) / rate);
    return 2 * std::abs(sum) / static_cast<double>(samples.size());
}

TEST(ExactMath, IsWithinTheLastDigits) {
    for (const auto& [part, sine] : {std::pair{0U, 0.0},
                                     {1, 0.00019174759731070329},
                                     {4096, 0.70710678118654752},
                                     {8192, 1.0},
                                     {16384, 0.0},
                                     {28672, -0.70710678118654752}})
        EXPECT_NEAR(ExactSine(std::uint64_t{part} << 49), sine, 2e-16) << part;
    EXPECT_NEAR(ExactLog(1000), 6.9077552789821371, 2e-15);
    EXPECT_NEAR(ExactLog(1e-9), -20.723265836946411, 1e-14);
    EXPECT_NEAR(ExactExp(-20), 2.0611536224385579e-09, 1e-23);
    EXPECT_NEAR(ExactExpLessOne(1e-7), 1.0000000500000017e-07, 1e-22);
    EXPECT_NEAR(ExactAmplitude(-12.04), 0.25003453616964312, 1e-15);
}

TEST(FrequencyPath, EndsWithinAMillionthOfACycle) {
    const struct {
        double from, to;
        std::int64_t frames;
        int rate;
        Sweep sweep;
        double cycles; ///< by the formula of the sweep, worked out with 50 digits
    } cases[] = {
        {20, 20000, 960000, 96000, Sweep::Logarithmic, 28924.012494756572},
        {20000, 20, 441000, 44100, Sweep::Logarithmic, 28924.012494756572},
        {100, 1000, 132300, 44100, Sweep::Linear, 1650},
        {-440, -440, 48000, 48000, Sweep::None, -440},
    };
    for (const auto& each : cases) {
        HiresFrequencyPath path(each.from, each.to, each.sweep, each.frames, each.rate);
        HiresPhases now;
        for (std::int64_t i = 0; i <= each.frames; i += HiresBlockFrames)
            path.Read(now);
        const std::uint64_t phase = now.phases[static_cast<std::size_t>(each.frames % HiresBlockFrames)];
        const double off = std::remainder(static_cast<double>(phase) * 0x1p-64 - each.cycles, 1);
        EXPECT_NEAR(off, 0, 1e-7) << each.from;
    }
}

TEST(HiresTone, AWaveformHasItsHarmonicsAndNothingElse) {
    const HiresSettings settings{.rate = 48000, .level = -6.0205999132796239}; // half of full scale
    const double square = 92682.0 / 131070, sloped = 165794.0 / 131070, pi = std::numbers::pi;
    const struct {
        int waveform;
        std::array<double, 4> harmonics; ///< of 4999 Hz: there is no fifth one
    } cases[] = {
        {ToneSine, {0.5, 0, 0, 0}},
        {ToneSquare, {2 / pi * square, 0, 2 / pi * square / 3, 0}},
        {ToneTriangular, {4 / pi / pi * sloped, 0, 4 / pi / pi * sloped / 9, 0}},
        {ToneSawTooth, {sloped / pi, sloped / pi / 2, sloped / pi / 3, sloped / pi / 4}},
    };
    for (const auto& [waveform, harmonics] : cases) {
        const std::vector<std::int32_t> samples = Render(ToneOf(waveform, {4999}), settings);
        double rest = 0;
        for (const std::int32_t sample : samples)
            rest += 2 * std::pow(sample * 0x1p-31, 2) / static_cast<double>(samples.size());
        for (std::size_t k = 0; k < harmonics.size(); ++k) {
            const double measured = Measure(samples, 4999.0 * static_cast<double>(k + 1), 48000);
            EXPECT_NEAR(measured, harmonics[k], 1e-7) << waveform << ", harmonic " << k + 1;
            rest -= measured * measured;
        }
        EXPECT_LT(std::fabs(rest), 2e-14) << waveform; // -137 dB, which is what these sums are good for
    }
}

TEST(HiresTone, ALowToneHasAllHarmonics) {
    const struct {
        int waveform;
        double hz, amplitude; ///< of one harmonic of 1 Hz, below half of full scale
        double lowest = 1;
    } cases[] = {
        {ToneSquare, 20001, 4 / std::numbers::pi / 20001 * 92682 / 131070},
        {ToneSquare, 20000, 0},
        {ToneSawTooth, 23999, 2 / std::numbers::pi / 23999 * 165794 / 131070},
        {ToneSawTooth, 2, 1 / std::numbers::pi * 165794 / 131070},
        {ToneImpulse, 23999, 2.0 / 48000 * 185364 / 131070},
        {ToneTriangular, 3001, 8 / std::pow(std::numbers::pi * 3001, 2) * 165794 / 131070},
        {ToneImpulse, 682, 0, 19}, // no harmonic, and the strongest of what tables would add
    };
    for (const auto& [waveform, hz, amplitude, lowest] : cases) {
        const auto samples =
            Render(ToneOf(waveform, {lowest}), {.rate = 48000, .level = -6.0205999132796239});
        EXPECT_NEAR(Measure(samples, hz, 48000), amplitude / 2, 2e-10) << waveform << ", " << hz;
    }
}

TEST(HiresTone, ASweepMovesWithEveryFrame) {
    HiresSettings settings{.rate = 48000, .level = 0};
    const struct {
        double from, to;
        int flags, frame;
        double value; ///< by the formula of the sweep, with 40 digits
    } cases[] = {
        {20, 20000, ToneFlagLogSweep, 1000, 0.3201118886},
        {20, 20000, ToneFlagLogSweep, 34827, -0.0261615985},
        {20, 20000, ToneFlagLogSweep, 44449, -0.4390033913}, // half the rate is twice the frequency
        {20, 20000, ToneFlagLogSweep, 47999, -0.0965301527},
        {100, -20000, 0, 1000, -0.9838460059},
        {100, -20000, 0, 47999, 0.5000237351},
        {20, 2'000'000, ToneFlagLogSweep, 24000, -0.6213970484}, // which ends far beyond the rate
    };
    SonvireData tone = ToneOf(ToneSine, {20});
    for (const auto& [from, to, flags, frame, value] : cases) {
        tone.startLeftHz[0] = from;
        tone.endLeftHz[0] = to;
        tone.flags = static_cast<std::uint16_t>(ToneFlagDuration | ToneFlagSweep | flags);
        EXPECT_NEAR(Render(tone, settings)[static_cast<std::size_t>(frame)] * 0x1p-31, value, 1e-8) << frame;
    }
    for (const int waveform : {ToneSine, ToneSquare, ToneImpulse}) { // beyond half the rate after a quarter
        tone = ToneOf(waveform, {0});
        tone.endLeftHz[0] = 96000;
        tone.flags |= ToneFlagSweep;
        settings.fit = true;
        const std::vector<std::int32_t> samples = Render(tone, settings);
        EXPECT_NE(*std::max_element(samples.begin() + 11000, samples.begin() + 11800), 0) << waveform;
        EXPECT_TRUE(std::all_of(samples.begin() + 12000, samples.end(), [](auto each) { return each == 0; }));
    }
}

TEST(HiresTone, ItsPeakIsKnownBeforehand) {
    const struct {
        int waveform, rate;
        double hz, peak, slack; ///< in dBFS
    } cases[] = {
        {ToneSine, 48000, 997, 0, 1e-4},
        {ToneSquare, 48000, 11000, -0.91196, 1e-4}, // its first harmonic, 92682 / 131070 * 4 / pi
        {ToneImpulse, 48000, 997, 3.16344, 1e-4},   // 49 * 997 / 48000, for 24 harmonics, * 185364 / 131070
        {TonePinkNoise, 8000, 0, 3.77, 0.2},        // 6.5 times the root mean square of 600 s, measured
        {TonePinkNoise, 44100, 0, 4.63, 0.2},
        {TonePinkNoise, 192000, 0, 5.17, 0.2},
    };
    for (const auto& [waveform, rate, hz, peak, slack] : cases) {
        const SonvireData tone = ToneOf(waveform, {hz}, 4000);
        EXPECT_NEAR(MeasureHiresTone(tone, {.rate = rate, .level = 0}).peak, peak, slack) << rate;
        const std::vector<std::int32_t> samples = Render(tone, {.rate = rate, .level = 0, .fit = true});
        const auto [least, most] = std::minmax_element(samples.begin(), samples.end());
        const double reached = std::max(-static_cast<double>(*least), static_cast<double>(*most)) * 0x1p-31;
        const double bound = std::pow(10, std::min(peak, 0.0) / 20);
        EXPECT_LT(reached, bound + 1e-4) << waveform << ", " << rate;
        EXPECT_GT(reached, bound * (waveform == TonePinkNoise ? 0.55 : 0.9999)) << waveform << ", " << rate;
    }
}

TEST(HiresTone, WhatWouldExceedFullScaleIsRefusedOrLowered) {
    const SonvireData loud = ToneOf(ToneSine, {1000, 1500, 2000, 2500, 3000}, 100);
    const HiresTone refused = OpenHiresTone(loud, {.rate = 48000});
    EXPECT_EQ(refused.source, nullptr);
    EXPECT_EQ(refused.failure.GetReason(),
              "would exceed full scale by 1.94 dB; a level of -13.98 dBFS fits"); // 20 lg 5 is 13.979
    EXPECT_FALSE(OpenHiresTone(loud, {.rate = 48000, .level = -13.98}).failure);
    EXPECT_NEAR(Measure(Render(loud, {.rate = 48000, .fit = true}), 1500, 48000), 0.2, 1e-6);
    EXPECT_NEAR(Measure(Render(ToneOf(ToneSawTooth, {23000}), {.rate = 48000, .level = 0}), 23000, 48000),
                2 / std::numbers::pi * 165794 / 131070, 1e-7); // a single harmonic is below the saw's peak
    const SonvireData half = ToneOf(ToneSine, {24000, 30000}); // none of which can be had at this rate
    for (const std::int32_t sample : Render(half, {.rate = 48000}))
        ASSERT_EQ(sample, 0);
}

TEST(HiresTone, FadesAreRaisedCosines) {
    HiresSettings settings{.rate = 48000, .level = 0, .fadeInMs = 10, .fadeOutMs = 20};
    const std::vector<std::int32_t> plain = Render(ToneOf(ToneSine, {12000}), {.rate = 48000, .level = 0});
    const std::vector<std::int32_t> faded = Render(ToneOf(ToneSine, {12000}), settings, 77);
    for (const auto& [frame, gain] : {std::pair{1, 0.000010709168},
                                      {121, 0.14876817},
                                      {241, 0.50327247},
                                      {481, 1.0},
                                      {47039, 1.0},
                                      {47519, 0.50163624},
                                      {47999, 0.0000026772992}})
        EXPECT_NEAR(faded[static_cast<std::size_t>(frame)], plain[static_cast<std::size_t>(frame)] * gain, 16)
            << frame;
    settings = {.rate = 8000, .level = 0, .fadeInMs = 1000, .fadeOutMs = 1000}; // half of eight frames each
    const std::vector<std::int32_t> few = Render(ToneOf(ToneSine, {2000}, 1), settings);
    for (const auto& [frame, value] :
         {std::pair{1, 0.14644661}, {3, -0.85355339}, {5, 0.85355339}, {7, -0.14644661}})
        EXPECT_NEAR(few[static_cast<std::size_t>(frame)] * 0x1p-31, value, 1e-8) << frame;
}

/// Lists of tones in a folder.
struct HiresList : testing::Test {
    void Save(const char* name, SonvireData tone) { EXPECT_FALSE(tone.WriteToFile((dir / name).c_str())); }
    /// The file has the last entry first.
    void SaveList(const char* name, const std::vector<std::string>& entries) {
        std::string lines;
        for (const std::string& each : entries)
            lines.insert(0, each + "\n");
        WriteBytes(dir / name, lines);
    }
    std::vector<std::int32_t> Play(const std::vector<std::string>& entries, int frames,
                                   bool isEndless = false) {
        SaveList("list.tdl", entries);
        const HiresTone opened = OpenHiresList(ExamineToneList(dir / "list.tdl"), {.rate = 8000, .seed = 5},
                                               [](const std::string&, int) { return HiresTone{}; });
        EXPECT_EQ(opened.source->GetLength(), isEndless ? HiresSource::Endless : frames);
        std::vector<std::int32_t> samples(static_cast<std::size_t>(frames * opened.source->channels));
        opened.source->Read(samples.data(), frames);
        return samples;
    }

    TempDir dir;
};

TEST_F(HiresList, PlaysItsEntriesOneAfterTheOther) {
    SonvireData tone = ToneOf(ToneSine, {500}, 100), noise = ToneOf(ToneWhiteNoise, {}, 100);
    Save("tone.tdf", tone);
    Save("noise.tdf", noise);
    const std::vector<std::int32_t> once = Render(tone, {.rate = 8000});
    tone.repeat = 1;
    Save("looped.tdf", tone);
    tone.waveform = ToneFromList;
    std::strcpy(tone.listPath, (dir / "inner.tdl").c_str());
    Save("list.tdf", tone);
    std::strcpy(tone.listPath, (dir / "none.tdl").c_str());
    Save("none.tdf", tone);
    tone = ToneOf(ToneSine, {300}, 50);
    tone.flags |= ToneFlagStereo;
    Save("stereo.tdf", tone);
    SaveList("inner.tdl", {"tone.tdf", "10ms silence."});

    const std::vector<std::int32_t> silence(80);
    const auto join = [](std::initializer_list<std::vector<std::int32_t>> parts) {
        std::vector<std::int32_t> all;
        for (const auto& each : parts)
            all.insert(all.end(), each.begin(), each.end());
        return all;
    };
    EXPECT_EQ(Play({"tone.tdf", "no.wav", "no.tdf", "10ms silence.", "inner.tdl", "tone.tdf"}, 2560),
              join({once, silence, once, silence, once}));
    EXPECT_EQ(Play({"tone.tdf", "looped.tdf", "tone.tdf"}, 2400, true), join({once, once, once}));
    EXPECT_EQ(Play({"none.tdf", "10ms silence.", "list.tdf", "noise.tdf"}, 1840, true),
              join({silence, once, silence, once, silence}));

    std::vector<std::int32_t> noises = Play({"noise.tdf", "noise.tdf"}, 1600);
    EXPECT_TRUE(
        std::equal(noises.begin(), noises.begin() + 800, Render(noise, {.rate = 8000, .seed = 5}).begin()));
    EXPECT_FALSE(std::equal(noises.begin(), noises.begin() + 800, noises.begin() + 800));

    const std::vector<std::int32_t> both = Play({"tone.tdf", "stereo.tdf"}, 1200);
    for (std::size_t i = 0; i < once.size(); ++i)
        ASSERT_TRUE(both[2 * i] == once[i] && both[2 * i + 1] == once[i]) << i;
}

TEST(HiresRawWriter, WritesLittleEndianSamplesRoundedToTheirBits) {
    const std::int32_t samples[] = {INT32_MIN, INT32_MAX, 0x1234'5678, -0x1234'5678, 0x80, -0x81};
    const std::tuple<HiresSamples, std::string_view> cases[] = {
        {HiresSamples::Int16, {"\x00\x80\xFF\x7F\x34\x12\xCC\xED\0\0\0\0", 12}},
        {HiresSamples::Int24, {"\0\0\x80\xFF\xFF\x7F\x56\x34\x12\xAA\xCB\xED\1\0\0\xFF\xFF\xFF", 18}},
        {HiresSamples::Int32,
         {"\0\0\0\x80\xFF\xFF\xFF\x7F\x78\x56\x34\x12\x88\xA9\xCB\xED\x80\0\0\0\x7F\xFF\xFF\xFF", 24}},
        {HiresSamples::Float, // the nearest one of 24 bits
         {"\0\0\x80\xBF\0\0\x80?\xB4\xA2\x11>\xB4\xA2\x11\xBE\0\0\x80\x33\0\0\x81\xB3", 24}},
    };
    const TempDir dir;
    for (const auto& [kind, bytes] : cases) {
        HiresRawWriter writer(LSharedReadWriteFile((dir / "a.raw").c_str()),
                              {.rate = 48000, .channels = 2, .samples = kind, .dither = false});
        EXPECT_FALSE(writer.Write(samples, 3));
        EXPECT_FALSE(writer.Finish());
        EXPECT_EQ(ReadBytes(dir / "a.raw"), bytes) << static_cast<int>(kind);
    }
}

TEST(HiresTone, AnyRecordIsSafeAndTheSameInPiecesOfAnySize) {
    constexpr double wild[] = {0, 1e308, -1e308, 5e-324, 5e-16, NAN, INFINITY, -20, 0.001, 997, 23999.9, 1e6};
    std::uint32_t random = 1;
    const auto draw = [&random] { return (random = random * 1664525 + 1013904223) >> 8; };
    for (int round = 0; round < 100; ++round) {
        SonvireData tone;
        auto* bytes = reinterpret_cast<unsigned char*>(static_cast<SonvireFile*>(&tone));
        for (std::size_t i = 0; i < sizeof(SonvireFile); ++i)
            bytes[i] = static_cast<unsigned char>(draw());
        tone.waveform %= 9;
        for (int i = 0; round % 3 > 0 && i < MaxTones; ++i)
            for (double* hz : {&tone.startLeftHz[i], &tone.endLeftHz[i], &tone.startRightHz[i]})
                *hz = wild[draw() % std::size(wild)];
        if (round % 5 > 0)
            tone.durationMs = round % 5 == 1 ? UINT32_MAX : draw() % 20;
        const HiresSettings settings{.rate = 8000 << round % 7, .fit = true, .fadeInMs = 1, .fadeOutMs = 2e9};
        const HiresTone one = OpenHiresTone(tone, settings), other = OpenHiresTone(tone, settings);
        std::vector<std::int32_t> whole(2 * 600), parts(2 * 600);
        one.source->Read(whole.data(), 600);
        for (int i = 0; i < 600; i += 75)
            other.source->Read(&parts[static_cast<std::size_t>(i * other.source->channels)], 75);
        ASSERT_EQ(whole, parts) << round;
    }
}

} // namespace
