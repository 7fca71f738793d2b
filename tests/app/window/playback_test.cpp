#include "app/window/playback.h"
#include "sound/files/wave_file.h"
#include "support/app_window.h"

#include <gmock/gmock.h>

namespace {

/// Writes down what a playback shows.
class SeenPlayback : public PlaybackView {
public:
    Texts seen;

    void SetLength(LSoundTime length) override { Add("length", length); }
    void ShowPosition(LSoundTime position) override { Add("at", position); }
    void ShowLevels(const LDBMC& /*levels*/) override {}
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
    tone.repeat = 1;
    playback.CmPlay();
    EXPECT_EQ(view.seen.back(), "at 0");
    EXPECT_EQ(view.seen[view.seen.size() - 2], "length 0") << "it has no end";
    tone.SetDuration(24 * 3600 * 1000);
    for (const int waveform : {ToneSine, ToneWhiteNoise}) {
        tone.waveform = static_cast<std::uint8_t>(waveform);
        playback.CmPlay();
        EXPECT_FALSE(playback.IsPlaying());
        EXPECT_THAT(toolkit->boxes.back(), ::testing::HasSubstr("can't be played: it lasts longer than"));
    }
    playback.End();
    EXPECT_EQ(changes, 6);
}

TEST_F(App, APlaybackTellsOnceThatAFileOfItsListIsLost) {
    toolkit.emplace();
    const auto write = [&](const char* name, int rate) {
        const std::vector<int> samples(100, 16);
        LWaveFile::OpenSinkPCM((folder / name).c_str(), rate, 1, 16, 0)->Write(samples.data(), 100);
    };
    write("a.wav", 44100);
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
    playback.CmPlay();
    write("new.wav", 8000);
    std::filesystem::rename(folder / "new.wav", folder / "a.wav");
    EXPECT_TRUE(WaitForPlayback(1));
    EXPECT_TRUE(Wait([&] {
        output.Take(4410);
        return !toolkit->boxes.empty();
    }));
    playback.End();
    EXPECT_THAT(Boxes(),
                ::testing::HasSubstr("a.wav\" has been replaced by a file of another format; silence"));
}

} // namespace
