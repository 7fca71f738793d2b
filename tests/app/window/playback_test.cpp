#include "app/window/playback.h"
#include "app/window/time_text.h"
#include "gui/format_fixed.h"
#include "sound/files/wave_file.h"
#include "support/app_window.h"

#include <gmock/gmock.h>

namespace {

/// Writes down what a playback shows.
class SeenPlayback : public PlaybackView {
public:
    Texts seen;

    void SetLength(LSoundTime length, bool loops) override { Add(loops ? "loop of" : "length", length); }
    void ShowPosition(LSoundTime position) override { Add("at", position); }
    void ShowFormat(const LPlayFormat& format, double loweredDb) override {
        seen.push_back(std::to_string(format.rate) + " " + FormatFixed(-loweredDb, 1));
    }
    void ShowLevels(const LMeterLevels& levels) override {
        const double peak = levels.peaks.at(0);
        seen.push_back(FormatFixed(peak, 1) + " by " + FormatFixed(levels.limiter, 1));
    }
    void ShowStopped() override { seen.emplace_back("stopped"); }

private:
    void Add(const std::string& what, LSoundTime time) {
        seen.push_back(what + " " + std::to_string(time.GetMilliseconds()));
    }
};

TEST_F(App, APlaybackFollowsTheToneUntilItsEnd) {
    toolkit.emplace();
    SonvireData tone = Tone440(true);
    SeenPlayback view;
    DeviceList devices(
        *toolkit, [] { return Texts{}; }, [](const Texts&) {});
    Playback playback(*toolkit, tone, view, devices, output.Opener());
    int changes = 0;
    playback.Begin([&] { ++changes; });
    playback.Restart();
    EXPECT_FALSE(playback.IsPlaying()) << "what is stopped stays stopped";
    playback.CmPlay();
    EXPECT_TRUE(WaitForPlayback(1));
    tone.waveform = ToneSquare;
    tone.SetDuration(500);
    playback.Restart();
    EXPECT_TRUE(Wait([&] { return output.opened == 2 && output.queuedFrames == 22050; }));
    EXPECT_EQ(output.GetRequest().title, "Square");
    output.Take(22050);
    EXPECT_TRUE(Wait([&] { return !playback.IsPlaying(); }));
    EXPECT_EQ(changes, 4) << "two starts and two stops";
    EXPECT_THAT(view.seen, ::testing::IsSupersetOf({"length 1000", "length 500", "at 500", "stopped"}));
    // What has no end shows the time since Play. A sine peaks at a quarter of full scale, and 180 of 256 take
    // 3.1 dB off that; 16 sines add up to 4 times full scale.
    tone.waveform = ToneSine;
    const std::tuple<bool, std::uint8_t, int, int, Texts> endless[] = {
        {true, 1, 0, 0, {"loop of 500", "44100 0.0", "at 0", "-15.1 by 0.0", "at 1500"}},
        {true, 1, -36, 0, {"loop of 500", "-inf by 0.0"}},
        {true, 1, 0, 96000, {"loop of 500", "48000 0.0", "at 0", "-15.1 by 0.0", "at 1500"}},
        {false, 16, 13, 96000, {"length 0", "48000 -12.0", "0.0 by 0.0", "at 1500"}},
        {false, 16, 13, 0, {"length 0", "0.0 by -12.0", "at 1500"}}};
    for (const auto& [loops, tones, volume, savedRate, shown] : endless) {
        tone.repeat = loops ? 1 : 0;
        tone.flags = loops ? tone.flags : 0;
        tone.numTones = tones;
        Setting::PlayVolume.Set(volume);
        Setting::HighRate.Set(savedRate);
        view.seen.clear();
        const int before = output.opened;
        playback.CmPlay();
        EXPECT_TRUE(Wait([&] { return output.opened > before && output.queuedFrames >= 72000; }));
        output.Take(output.GetRequest().format.rate * 3 / 2);
        EXPECT_TRUE(Wait([&] { return view.seen.back() == "at 1500"; }));
        EXPECT_THAT(view.seen, ::testing::IsSupersetOf(shown));
    }
    tone.repeat = 1;
    tone.flags = ToneFlagDuration;
    tone.waveform = ToneFromList;
    WriteList("list.tdl", "500ms silence.\ngone.tdf\n").copy(tone.listPath, sizeof tone.listPath - 1);
    view.seen.clear();
    playback.CmPlay();
    EXPECT_THAT(view.seen, ::testing::Contains("length 0"))
        << "a list is not left where a tone that can't be read plays";
    tone.SetDuration(24 * 3600 * 1000);
    for (const int waveform : {ToneSine, ToneWhiteNoise}) {
        tone.waveform = static_cast<std::uint8_t>(waveform);
        playback.CmPlay();
        EXPECT_FALSE(playback.IsPlaying());
        EXPECT_THAT(toolkit->boxes.back(), ::testing::HasSubstr("can't be played: it lasts longer than"));
    }
    playback.End();
    EXPECT_EQ(changes, 16);
}

TEST_F(App, OutputAndVolumeAreShownAsTheyAre) {
    Setting::OutDevice.Set("Gone");
    Run([&](MemoryMainWindow& window) {
        EXPECT_TRUE(Wait([&] {
            return Control(ControlDevice).choices == Texts{"[Default Sound Out]", "Gone (not there)"};
        }));
        window.Set(ControlDevice, 1);
        EXPECT_EQ(Setting::OutDevice.Get(), "Gone");
        // 20 log of 5, 180, 240 and 256 of 256
        for (const auto& [volume, shown] : {std::pair{-35, "-34.2 dB"},
                                            {0, "-3.1 dB"},
                                            {12, "-0.6 dB"},
                                            {13, "0.0 dB"},
                                            {-20, "-10.1 dB"}}) {
            window.Set(ControlVolume, volume);
            EXPECT_EQ(Control(ControlVolumeText).text, shown);
        }
        window.Press(ControlMute);
    });
    Run([&](MemoryMainWindow& window) {
        EXPECT_EQ(Control(ControlVolume).text + std::to_string(Setting::PlayVolume.Get()), "muted-36");
        window.Press(ControlMute);
        EXPECT_EQ(Setting::PlayVolume.Get(), -20) << "as before it was muted, in the run before";
    });
    EXPECT_EQ(FormatTime(LSoundTime(3723499)), "1:02:03.4");
}

TEST_F(App, APlaybackTellsOnceThatAFileOfItsListIsLost) {
    toolkit.emplace();
    const auto write = [&](const char* name, int rate) {
        const std::vector<int> samples(100, 16);
        LWaveFile::OpenSinkPCM((folder / name).c_str(), rate, 1, 16, 0)->Write(samples.data(), 100);
    };
    SonvireData tone;
    tone.waveform = ToneFromList;
    tone.SetDuration(10);
    tone.repeat = 1;
    WriteList("list.tdl", "1000ms silence.\na.wav\n").copy(tone.listPath, sizeof tone.listPath - 1);
    SeenPlayback view;
    DeviceList devices(
        *toolkit, [] { return Texts{}; }, [](const Texts&) {});
    Playback playback(*toolkit, tone, view, devices, output.Opener());
    playback.Begin([] {});
    const std::pair<int, std::string> cases[] = {{0, "has been replaced by a file of another format"},
                                                 {96000, "can't be read any more"}};
    for (const auto& [savedRate, reason] : cases) {
        Setting::HighRate.Set(savedRate);
        write("a.wav", 44100);
        const int before = output.opened;
        playback.CmPlay();
        write("new.wav", 8000);
        savedRate == 0 ? std::filesystem::rename(folder / "new.wav", folder / "a.wav")
                       : static_cast<void>(std::filesystem::remove(folder / "a.wav"));
        EXPECT_TRUE(WaitForPlayback(before + 1));
        EXPECT_TRUE(Wait([&] {
            output.Take(4410);
            return !toolkit->boxes.empty();
        }));
        playback.Stop();
        EXPECT_THAT(Boxes(), ::testing::HasSubstr("a.wav\" " + reason + "; silence"));
        toolkit->boxes.clear();
    }
    playback.End();
}

} // namespace
