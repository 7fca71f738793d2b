#include "app/window/tone_summary.h"

#include "app/quality.h"
#include "support/temp_dir.h"
#include "tone/tone_data.h"

#include <gtest/gtest.h>

namespace {

TEST(ToneSummary, SaysInPlainWordsWhatIsHeard) {
    const TempDir folder;
    WriteBytes(folder / "inner.tdl", "500ms silence.\nno.tdf\n61234ms silence.\n");
    WriteBytes(folder / "a.tdl", "500ms silence.\n12000ms silence.\n");
    WriteBytes(folder / "b.tdl", "1000ms silence.\ninner.tdl\na.tdl\n");
    const std::string list = folder / "a.tdl", endless = folder / "b.tdl", missing = folder / "none.tdl";
    using Change = std::function<void(SonvireData&)>;
    const auto sweep = [](SonvireData& tone) {
        tone.SetDuration(10'000);
        tone.flags |= ToneFlagSweep;
        tone.startLeftHz[0] = 20, tone.endLeftHz[0] = 20'000;
    };
    const auto plays = [](const std::string& path) {
        return [path](SonvireData& tone) {
            tone.waveform = ToneFromList;
            tone.SetDuration(135'234);
            path.copy(tone.listPath, path.size());
        };
    };
    const std::tuple<Change, const char*, const char*, const char*> cases[] = {
        {[](auto&) {}, "1000 Hz · B5 +21 ct", "Sine, mono, endless", "Peak -12.04 dBFS"},
        {sweep, "20 Hz to 20 kHz", "Sine, linear sweep, mono, 10 s", "Peak -12.04 dBFS"},
        {[&](auto& tone) { sweep(tone), tone.flags |= ToneFlagLogSweep, tone.flags &= ~ToneFlagDuration; },
         "20 Hz · D#0 +49 ct", "Sine, mono, endless", "Peak -12.04 dBFS"}, // it doesn't move
        {[](auto& tone) { tone.flags = ToneFlagStereo, tone.startRightHz[0] = 1010.5; },
         "L 1000 Hz · R 1010.5 Hz", "Sine, stereo, endless", "Peak -12.04 dBFS"},
        {[](auto& tone) { tone.numTones = 5, tone.startLeftHz[3] = 440, tone.startRightHz[3] = 5; },
         "5 tones, 440 Hz to 1000 Hz", "Sine, mono, endless",
         "Peak up to 1.94 dBFS, limited to 0 dBFS"}, // 20 log10(5/4)
        {[&](auto& tone) { sweep(tone), tone.numTones = 2, tone.flags |= ToneFlagLogSweep; },
         "2 sweeps, 20 Hz to 20 kHz", "Sine, logarithmic sweep, mono, 10 s", "Peak up to -6.02 dBFS"},
        {[](auto& tone) {
             tone.SetDuration(90'000), tone.repeat = 1;
             tone.flags |= ToneFlagVariableAmplitude, tone.amplitudeDb[0] = -127;
         },
         "1000 Hz · B5 +21 ct", "Sine, mono, 01:30.0, looped", "Silent"},
        {[](auto& tone) { tone.waveform = 99; }, "1000 Hz · B5 +21 ct", "Unknown waveform, mono, endless",
         "Silent"},
        {[](auto& tone) { tone.waveform = TonePinkNoise; }, "Pink Noise", "Mono, endless", ""},
        {plays(list), "Tone list", "2 entries, 12.5 s", ""},
        {[&](auto& tone) { plays(endless)(tone), tone.repeat = 1; }, "Tone list",
         "3 entries, 01:15.23 or more, looped", ""}, // without the minute of what is never left
        {plays(missing), "Tone list", "can't be read", ""}};
    for (const auto& [change, headline, kind, level] : cases) {
        SonvireData tone;
        change(tone);
        const ToneSummary summary = SummarizeTone(tone, GetQualities()[0]);
        EXPECT_EQ(summary.headline, headline);
        EXPECT_EQ(summary.kind, kind) << headline;
        EXPECT_EQ(summary.level, level) << headline;
    }
    SonvireData loud;
    loud.numTones = 5;
    EXPECT_EQ(SummarizeTone(loud, GetQualities()[1]).level, "Peak up to 1.94 dBFS, lowered to 0 dBFS");
}

} // namespace
