#include "play/sound_player.h"
#include "sound/files/wave_file.h"
#include "support/array_source.h"
#include "support/hires_array.h"
#include "support/owner.h"
#include "support/temp_dir.h"
#include "support/test_output.h"

#include <gmock/gmock.h>

namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using Texts = std::vector<std::string>;

LSoundSource Frames(int count, std::uint8_t channels = 1, int rate = 44100) {
    return SourceOf(Numbered(count * channels), rate, channels);
}

LSoundSource Constant(int value, int count, int rate, std::uint8_t channels = 1) {
    return SourceOf(std::vector<int>(static_cast<std::size_t>(count * channels), value), rate, channels);
}

class Player : public ::testing::Test {
protected:
    Player() { player.SetNotify(&owner, 7); }

    bool Wait(const std::function<bool()>& holds) { return WaitUntil(loop, holds); }
    /// Starts and waits until the output has `frames` frames of it queued.
    bool Play(const LSoundSource& source, int frames) {
        const int before = output.opened;
        return player.Start(source) &&
               Wait([&] { return output.opened > before && output.queuedFrames >= frames; });
    }
    bool WaitForQueue(int frames) {
        return Wait([&] { return output.queuedFrames >= frames; });
    }
    bool WaitForEvents(std::size_t count) {
        return Wait([&] { return owner.events.size() >= count; });
    }
    /// Takes pieces of an odd size until playback has stopped.
    std::vector<int> TakeAll() {
        std::vector<int> all;
        Wait([&] {
            const std::vector<int> piece = output.Take(333);
            all.insert(all.end(), piece.begin(), piece.end());
            return owner.stops > 0;
        });
        return all;
    }

    LEventLoop loop;
    Owner owner;
    TestOutput output;
    LSoundPlayer player{output.Opener()};
};

TEST_F(Player, EveryFrameIsPlayedOnceAndInOrder) {
    // The rate, the frames, the channels, the longest block that is read.
    const std::tuple<const char*, int, int, std::uint8_t, int> cases[] = {
        {"one frame", 44100, 1, 1, 1},
        {"1 ms", 8000, 8, 2, 8},
        {"ends with a block", 8000, 800, 1, 800},
        {"ends with the ring", 8000, 64 * 800, 1, 800},
        {"one frame more", 8000, 64 * 800 + 1, 1, 800},
        {"the lowest rate", 1000, 1500, 2, 100},
        {"the highest rate", 192000, 3 * 8192 + 5, 2, 8192},
        {"nothing", 44100, 0, 1, 0}};
    for (const auto& [name, rate, frames, channels, block] : cases) {
        owner = {};
        const LSoundSource source = Frames(frames, channels, rate);
        ASSERT_TRUE(Play(source, std::min(frames, 20)));
        std::vector<int> played = TakeAll();
        EXPECT_EQ(owner.stops, 1) << name;
        std::erase(played, 0); // what the player was not in time for
        EXPECT_EQ(played, Numbered(frames * channels)) << name;
        EXPECT_EQ(player.GetStatus(), PlayUsable);
        EXPECT_EQ(Array(source).longestRead, block) << name;
    }
}

TEST_F(Player, ReportsWhatHasBeenHeardAndTheEndAfterTheLastFrame) {
    const char* const level = "level 3 -127";
    std::vector<int> leftOnly;
    for (int i = 0; i < 250; ++i)
        leftOnly.insert(leftOnly.end(), {8191, 0}); // mean square (131056 / 32)^2 = 16769025: 3.008 dB
    player.Start(SourceOf(leftOnly, 1000, 2));
    EXPECT_EQ(owner.events, (Texts{"play 7", "time 0"}));
    ASSERT_TRUE(WaitForQueue(250));
    output.Take(120, 21);
    output.Take(1, 21); // the first block's last frame is heard
    ASSERT_TRUE(WaitForEvents(4));
    EXPECT_EQ(owner.events, (Texts{"play 7", "time 0", level, "time 100"}));
    output.Take(100, 21);
    ASSERT_TRUE(WaitForEvents(6));
    output.Take(49, 21); // 249 frames are heard
    EXPECT_TRUE(player.IsPlaying());
    output.Take(1, 21);
    ASSERT_TRUE(Wait([&] { return owner.stops == 1; }));
    // The report of the last block may give way to that of the end.
    Texts all = {"play 7", "time 0", level, "time 100", level, "time 200", "time 250", "stop 7"};
    if (owner.events.size() == 10)
        all.insert(all.end() - 2, {level, "time 250"});
    EXPECT_EQ(owner.events, all);
    EXPECT_FALSE(player.IsPlaying());
}

TEST_F(Player, TheVolumeCurve) {
    constexpr int cases[][2] = {{-127, 0},  {-37, 0},  {-36, 0},  {-35, 195}, // 5 / 256
                                {-4, 6250}, {0, 7031}, {6, 8203}, {12, 9375}, {13, 10000}, {127, 10000}};
    for (const auto& [db, played] : cases) {
        player.SetPlayVolume(LDB(static_cast<std::int8_t>(db)));
        ASSERT_TRUE(Play(Constant(10000, 8000, 8000, 2), 100));
        EXPECT_THAT(output.Take(100), Each(played)) << db;
        player.Stop();
    }
    player.Start(Constant(-10000, 8000, 8000));
    player.SetPlayVolume(LDB(0));
    ASSERT_TRUE(WaitForQueue(8000));
    ASSERT_TRUE(Wait([&] { return output.volume == 0x00B400B4; })) << "while it plays, and at once";
    EXPECT_THAT(output.Take(10), Each(-7031));
}

TEST_F(Player, AStopFadesOutOver5Ms) {
    ASSERT_TRUE(Play(Constant(10000, 8000, 8000, 2), 8000));
    EXPECT_THAT(output.Take(50), Each(10000));
    player.Stop();
    EXPECT_EQ(output.closed, 1);
    std::vector<int> faded = output.Take(30);
    EXPECT_FALSE(output.GetFeed()->IsSilent());
    const std::vector<int> rest = output.Take(30);
    faded.insert(faded.end(), rest.begin(), rest.end());
    std::vector<int> expected;
    for (int left = 39; left >= 0; --left) // 40 frames, 250 less each
        expected.insert(expected.end(), {250 * left, 250 * left});
    expected.resize(120);
    EXPECT_EQ(faded, expected);
    EXPECT_TRUE(output.GetFeed()->IsSilent());
}

TEST_F(Player, AFadeIsNotOverBeforeItIsHeardHoweverFarTheOutputCountsOn) {
    ASSERT_TRUE(Play(Constant(10000, 8000, 8000), 8000));
    output.Take(900, 60);
    output.Take(700, 40); // 60 frames were on their way once
    ASSERT_TRUE(WaitForEvents(4));
    EXPECT_EQ(owner.events.back(), "time 100") << "1540 frames are heard";
    player.Stop();
    output.Take(40, -5000); // the fade, after a time without frames
    output.Take(59, -5000);
    EXPECT_FALSE(output.GetFeed()->IsSilent());
    output.Take(1, -5000);
    EXPECT_TRUE(output.GetFeed()->IsSilent());
}

TEST_F(Player, AStopBeforeTheFirstFrameOrAtTheLastHasNothingToFade) {
    for (const int taken : {0, 100}) {
        ASSERT_TRUE(Play(Constant(10000, 100, 8000), 100));
        EXPECT_THAT(output.Take(taken, taken), Each(10000));
        player.Stop();
        EXPECT_THAT(output.Take(100, taken), Each(0));
        EXPECT_TRUE(output.GetFeed()->IsSilent());
    }
}

TEST_F(Player, ReadsAheadAsFarAsTheRingGoes) {
    const LSoundSource source = Frames(800 * 70, 1, 8000);
    player.Start(source);
    ASSERT_TRUE(WaitForQueue(64 * 800));
    output.Take(799);
    EXPECT_EQ(output.queuedFrames, 64 * 800);
    output.Take(1);
    ASSERT_TRUE(WaitForQueue(65 * 800));
    player.Stop();
    EXPECT_EQ(source->GetPositionSample(), 65 * 800);
}

TEST_F(Player, WhatNoOutputTakesIsConvertedAndReportedInItsOwnTime) {
    constexpr int rates[][2] = {{100, 1000}, {333, 1000}, {999, 1000}, {192001, 192000}, {384000, 192000}};
    for (const auto& [rate, playedRate] : rates) {
        owner = {};
        const LSoundSource source = Constant(10000, 3 * rate / 2, rate);
        source->Seek(rate / 2);
        ASSERT_TRUE(Play(source, playedRate / 2));
        EXPECT_EQ(output.GetRequest().format.rate, playedRate);
        const std::vector<int> played = TakeAll();
        // The converter is a quarter of a percent off in pitch and in level at most, and fades at both ends.
        const auto sounding = std::count_if(played.begin(), played.end(), [](int s) { return s > 5000; });
        EXPECT_NEAR(static_cast<double>(sounding), playedRate, playedRate / 400.0 + 10);
        EXPECT_NEAR(played[static_cast<std::size_t>(playedRate / 2)], 10000, 30);
        EXPECT_EQ(owner.events[1], "time " + std::to_string(rate / 2 * 1000 / rate));
        EXPECT_EQ(*(owner.events.end() - 2), "time " + std::to_string(3 * rate / 2 * 1000 / rate));
    }
}

TEST_F(Player, HighResolutionPlaysInFloatAtTheRateThatTheOutputHas) {
    // The rate that is found, and the one that is asked for.
    constexpr int rates[][2] = {{12800, 12800}, {0, 48000}, {4000, 8000}, {384000, 192000}};
    for (const int* each : rates) {
        const int found = each[0], rate = each[1];
        owner = {};
        LSoundPlayer fine(output.Opener(), [found](const LSoundPlayDevice&) {
            auto answer = std::make_shared<LOutputRate>();
            answer->rate = found;
            answer->answered.Signal();
            return answer;
        });
        fine.SetNotify(&owner, 7);
        fine.SetPlayVolume(LDB(0)); // 180 of 256
        const int before = output.opened;
        fine.Start([](int asked) { // a second, half of full scale and a quarter
            std::vector<int> samples;
            for (int i = 0; i < asked; ++i)
                samples.insert(samples.end(), {1 << 30, -1 << 29});
            return std::make_unique<HiresArray>(samples, asked, 2);
        });
        ASSERT_TRUE(Wait([&] { return output.opened > before && output.queuedFrames == rate; }));
        EXPECT_EQ(fine.GetFormat()->rate, rate);
        EXPECT_THAT(output.Take(1), ElementsAre(754974720, -377487360));
        output.Take(rate / 10); // the first block at least
        ASSERT_TRUE(WaitForEvents(4));
        // (2^30 / 2^17)^2 is 8 times the mean square of 0 dB, 9.03 dB, and a quarter of it 3.01 dB.
        EXPECT_EQ(owner.events[2], "level 9 3");
        fine.Stop();
        if (rate != 12800) // 5 ms of which are 64 frames
            continue;
        EXPECT_THAT(output.Take(3),
                    ElementsAre(743178240, -371589120, 731381760, -365690880, 719585280, -359792640));
    }
    player.Start([](int) { return nullptr; });
    ASSERT_TRUE(Wait([&] { return !player.IsPlaying(); }));
    EXPECT_EQ(player.GetStatus(), PlayNoSound);
}

TEST_F(Player, AStopBeforeTheRateIsKnownIsNoFailureAndWhatFollowsWaitsForTheSoundBefore) {
    const auto question = std::make_shared<LOutputRate>();
    std::atomic<bool> asked = false;
    LSoundPlayer fine(output.Opener(), [&](const LSoundPlayDevice&) {
        asked = true;
        return question;
    });
    ASSERT_TRUE(fine.Start(Frames(100)));
    ASSERT_TRUE(Wait([&] { return output.queuedFrames == 100; }));
    const LSoundPlayerRing::Silence first = output.GetRequest().ring->silence;
    fine.Start([](int) { return nullptr; });
    ASSERT_TRUE(Wait([&] { return asked.load(); }));
    fine.Stop();
    EXPECT_EQ(fine.GetStatus(), PlayUsable);
    EXPECT_TRUE(question->forgotten.stop_requested());
    ASSERT_TRUE(fine.Start(Frames(100)));
    ASSERT_TRUE(Wait([&] { return output.opened == 2; }));
    EXPECT_EQ(output.GetRequest().after, first);
}

TEST_F(Player, ARestartStopsWhatPlays) {
    ASSERT_TRUE(Play(Constant(1, 8000, 8000), 8000));
    player.SetTitle("the second");
    player.Start(Constant(2, 100, 8000));
    EXPECT_EQ(output.closed, 1);
    EXPECT_EQ(owner.events, (Texts{"play 7", "time 0", "stop 7", "play 7", "time 0"}));
    ASSERT_TRUE(Wait([&] { return output.opened == 2 && output.queuedFrames == 100; }));
    EXPECT_EQ(output.GetRequest().title, "the second");
    EXPECT_THAT(output.Take(100), Each(2));
    ASSERT_TRUE(Wait([&] { return owner.stops == 2; }));
}

TEST_F(Player, StopsFromEveryState) {
    player.Stop();
    EXPECT_TRUE(owner.events.empty()) << "stopped";
    player.Start(Frames(100));
    player.Stop();
    EXPECT_EQ(owner.events, (Texts{"play 7", "time 0", "stop 7"})) << "starting";
    ASSERT_TRUE(Play(Frames(100), 100));
    output.Take(100);
    ASSERT_TRUE(Wait([&] { return owner.stops == 2; }));
    player.Stop();
    EXPECT_EQ(owner.stops, 2) << "ended";
    EXPECT_FALSE(player.Start(LSoundSource()));
    EXPECT_EQ(owner.events.back(), "stop 7") << "nothing has started";
    player.Start(Frames(100));
    EXPECT_FALSE(player.Start(LSoundSource())) << "and what played has stopped";
    EXPECT_FALSE(player.IsPlaying());
    EXPECT_EQ(owner.stops, 3);
}

/// Does something of its own at a report.
class ActingOwner : public Owner {
public:
    void spntfLevel(const LDBMC& levels, long id) override {
        Owner::spntfLevel(levels, id);
        act();
    }
    void spntfTime(LSoundTime time, long id) override {
        Owner::spntfTime(time, id);
        act();
    }
    std::function<void()> act;
};

TEST_F(Player, TheOwnerMayStopOrStartFromWithinAReport) {
    ActingOwner acting;
    player.SetNotify(&acting, 7);
    acting.act = [&] {
        if (acting.events.back() == "level -127")
            player.Stop();
    };
    ASSERT_TRUE(Play(Constant(0, 200, 1000), 200));
    output.Take(100);
    ASSERT_TRUE(Wait([&] { return acting.stops == 1; }));
    EXPECT_EQ(acting.events, (Texts{"play 7", "time 0", "level -127", "stop 7"})) << "and no time after it";
    acting.events.clear();
    acting.act = [&] { // the time of the end comes without a level
        if (acting.events.back() == "time 50" && acting.events.end()[-2] != "level -127")
            player.Start(Constant(0, 200, 1000));
    };
    ASSERT_TRUE(Play(Constant(0, 50, 1000), 50));
    output.Take(50);
    ASSERT_TRUE(Wait([&] { return acting.stops == 2; }));
    EXPECT_EQ(acting.events.back(), "time 0");
    EXPECT_TRUE(player.IsPlaying()) << "what has been started plays on";
    player.SetNotify(nullptr, 0);
}

TEST_F(Player, WhatIsTooLoudIsLimitedAndReported) {
    class Metered : public Owner {
    public:
        void spntfHeard(const LSoundHeard& heard, long) override { last = heard; }
        LSoundHeard last;
    } metered;
    player.SetNotify(&metered, 7);
    std::vector<int> loud;
    for (int i = 0; i < 8000; ++i) // twice as much as there is, and a quarter of that the other way
        loud.insert(loud.end(), {2 * FullScale16, -FullScale16 / 2});
    loud.resize(32000);
    ASSERT_TRUE(Play(ArrayOf(loud, 8000, 2, SynthesisPeakMax), 16000));
    const std::vector<int> played = output.Take(800);
    for (std::size_t i = 0; i < played.size(); i += 2)
        EXPECT_GE(played[i], 32700) << "not wrapped around";
    ASSERT_TRUE(Wait([&] { return metered.last.channels == 2; }));
    EXPECT_EQ(metered.last.limiterGain, 8388096); // 524272 * 512 / 16384 * 512 of 2^24
    EXPECT_EQ(metered.last.peaks[0], 524239);     // 1048544 times that, by halves
    EXPECT_EQ(metered.last.peaks[1], 131061);
    output.Take(10400);
    ASSERT_TRUE(Wait([&] { return metered.last.sinceStart.GetMilliseconds() == 1400; }));
    output.Take(800);
    ASSERT_TRUE(Wait([&] { return metered.last.sinceStart.GetMilliseconds() == 1500; }));
    EXPECT_EQ(metered.last.limiterGain, 1 << 24);
    EXPECT_EQ(metered.last.peaks[0], 0);
    player.SetNotify(nullptr, 0);
}

TEST_F(Player, AFileThatIsStillBeingWrittenIsPlayedToItsEndAndReportedMeanwhile) {
    const TempDir folder;
    const std::string path = folder / "growing.wav";
    LSoundSink file = LWaveFile::OpenSinkPCM(path.c_str(), 44100, 1, 16, 0);
    std::vector<int> samples = Numbered(30000), played;
    for (int& sample : samples)
        sample *= 16;
    file->Write(samples.data(), 1000);
    ASSERT_TRUE(player.Start(LWaveFile::OpenSource(path.c_str())));
    for (int at = 1000; at <= 30000; at += 7250) {
        ASSERT_TRUE(WaitForQueue(at));
        const std::vector<int> piece = output.Take(at - static_cast<int>(played.size()));
        played.insert(played.end(), piece.begin(), piece.end());
        ASSERT_TRUE(Wait([&] { return owner.events.back() == "time " + std::to_string(at * 10 / 441); }));
        if (at < 30000)
            file->Write(&samples[static_cast<std::size_t>(at)], 7250);
    }
    EXPECT_EQ(played, Numbered(30000));
    EXPECT_TRUE(player.IsPlaying());
    file.Close(); // which writes its length
    ASSERT_TRUE(Wait([&] { return owner.stops == 1; }));
    EXPECT_EQ(*(owner.events.end() - 2), "time 680");
}

} // namespace
