#include "app/window/playback.h"
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
    playback.End();
    EXPECT_FALSE(playback.IsPlaying());
    EXPECT_EQ(changes, 6);
}

} // namespace
