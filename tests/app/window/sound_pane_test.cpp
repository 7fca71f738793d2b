#include "support/app_window.h"
#include "sys/background.h"

#include <gmock/gmock.h>

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class SoundPane : public App {
protected:
    MemorySound& Sound() { return *Control(ControlSound).sound; }
    /// Figures, with warnings in brackets, and lines.
    std::string Told() {
        std::string all;
        for (const LMarkedText& part : Sound().view.GetSound().figures)
            all += part.isWarning ? "[" + part.text + "]" : part.text;
        return all + "|" + Sound().view.GetSound().lines;
    }
    bool WaitUntilTold(const std::string& words) {
        return Wait([&] { return Told().find(words) != std::string::npos; });
    }
    /// Nothing more is about to come.
    void Settle() {
        EXPECT_TRUE(WaitForBackground(30'000));
        toolkit->DispatchPending();
    }
    static SonvireData Tone(int waveform, int tones, int amplitude) {
        SonvireData tone = Tone440(true);
        tone.waveform = static_cast<std::uint8_t>(waveform);
        tone.numTones = static_cast<std::uint8_t>(tones);
        tone.flags |= ToneFlagVariableAmplitude;
        for (int i = 0; i < tones; ++i) {
            tone.startLeftHz[i] = 440;
            tone.amplitudeDb[i] = static_cast<std::int8_t>(amplitude);
        }
        return tone;
    }
};

TEST_F(SoundPane, TellsWhatWillSound) {
    SonvireData endless = Tone440(), brief = Tone440(), low = Tone440();
    brief.SetDuration(1);
    low.startLeftHz[0] = 10;
    SonvireData beat = Tone(ToneSine, 2, 0);
    beat.SetDuration(2000);
    beat.startLeftHz[1] = 441;
    struct {
        const char* reason;
        SonvireData tone;
        int highRate;
        std::string told;
    } const cases[] = {
        {"a quarter of full scale, whose RMS lies 3.01 dB below", endless, 0,
         "peak -12.0 dBFS, RMS -15.1, crest 3.0 dB, of the first 10 s|440.0 Hz -12.0 dBFS; THD+N -"},
        {"a square's first harmonic is 4 / pi of it", Tone(ToneSquare, 1, 0), 0,
         "peak -15.1 dBFS, RMS -15.1, crest 0.0 dB|440.0 Hz -13.0 dBFS, 1.320 kHz -22.5 dBFS"},
        {"8 of 32768", Tone(ToneSine, 1, -60), 0,
         "[peak -72.2 dBFS: below -60, hardly to be heard], RMS -75."},
        {"none", Tone(ToneSine, 1, -127), 0, "[silent]|"},
        {"44 frames", brief, 0, "dB|too short for a spectrum"},
        {"below 16 bins of 1 / 1.5 s", low, 0, "|too low for its lines to be told"},
        {"it beats", beat, 0, "|no steady tone"},
        {"another one each time", Tone(ToneWhiteNoise, 1, 0), 0, "|one of many: "},
        {"four times full scale", Tone(ToneSine, 16, 0), 0, "[, limiter 12.0 dB]|440.0 Hz"},
        {"the same where it is lowered instead", Tone(ToneSine, 16, 0), 96'000,
         "peak 0.0 dBFS, RMS -3.0, crest 3.0 dB[, lowered by 12.0 dB]|440.0 Hz 0.0 dBFS"}};
    for (const auto& each : cases) {
        Setting::HighRate.Set(each.highRate);
        Run(
            [&](MemoryMainWindow& window) {
                window.Resize(800, 600);
                EXPECT_TRUE(WaitUntilTold(each.told)) << each.reason << ": " << Told();
            },
            {WriteTone("a.tdf", each.tone)});
    }
    Setting::HighRate.Set(0);
    RunList(WriteList("a.tdl", "250ms silence.\na.tdf\n"), [&] {
        toolkit->mainWindow->Resize(800, 600);
        EXPECT_TRUE(WaitUntilTold("[, limiter 12.0 dB]"));
        EXPECT_NEAR(Sound().view.GetSound().seconds, 1.25, 1e-9);
        EXPECT_EQ(Sound().view.GetSound().channels[0].samples.size(), 55'125U);
    });
}

TEST_F(SoundPane, FollowsTheToneWhileItIsOpen) {
    popupChoices = {CommandViewLinear, CommandViewSpectrum};
    SonvireData between = Tone440();
    between.startLeftHz[0] = 440.4236F; // 654.5 bins of the spectrum
    const std::string tone = WriteTone("a.tdf", between);
    Run(
        [&](MemoryMainWindow& window) {
            window.Resize(800, 600);
            EXPECT_TRUE(WaitUntilTold("first 10 s|440.4 Hz"));
            const LShownSound& sound = Sound().view.GetSound();
            const std::size_t line = sound.FindBin(0, 400, 500);
            EXPECT_NEAR(sound.GetBinHz(0, line), 440.4236, 0.005);
            EXPECT_NEAR(sound.channels[0].spectrum[line].dbfs, -12.04, 0.01);
            Settle();
            const int shown = Sound().shown;
            window.Resize(900, 700);
            Settle();
            EXPECT_EQ(Sound().shown, shown) << "nothing has changed";
            window.Key(LKeyPageUp);
            EXPECT_TRUE(WaitUntilTold("first 10 s|880.8 Hz"));
            window.Press(ControlSound); // the pop-up menu
            window.Press(ControlSound);
            EXPECT_EQ(Sound().view.GetLook(), (LSoundLook{.hasWave = false, .isLinear = true}));
            window.Choose(CommandCopyCsv);
            EXPECT_THAT(Sound().copied, StartsWith("hz,dbfs\n0,"));
            EXPECT_EQ(window.passing, "Copied");

            window.Resize(480, 200);
            window.Key(LKeyPageUp);
            EXPECT_TRUE(WaitUntilTold("first 10 s|1.762 kHz")) << "the figures have room";
            window.Key(LKeyControl, 'm');
            Settle();
            const int before = Sound().shown;
            window.Key(LKeyPageUp);
            window.Resize(800, 600);
            Settle();
            EXPECT_FALSE(Sound().visible);
            EXPECT_EQ(Sound().shown, before) << "shut";
        },
        {tone});
    Run([&](MemoryMainWindow& window) {
        window.Resize(800, 200);
        EXPECT_FALSE((*window.menu)[CommandViewSound].marked);
        window.Choose(CommandViewSound);
        EXPECT_THAT(window.passing, HasSubstr("once the window is larger"));
        window.Resize(800, 600);
        EXPECT_TRUE(WaitUntilTold("first 10 s|3.523 kHz"));
        EXPECT_EQ(Sound().view.GetLook(), (LSoundLook{.hasWave = false, .isLinear = true})) << "remembered";
        EXPECT_TRUE((*window.menu)[CommandViewSpectrum].marked);
    });
}

} // namespace
