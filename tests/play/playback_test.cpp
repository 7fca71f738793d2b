#include "play/cubeb_output.h"
#include "play/sound_player.h"
#include "support/array_source.h"
#include "support/hires_array.h"
#include "support/owner.h"
#include "support/sound_server.h"
#include "sys/background.h"

#include <gmock/gmock.h>

#include <deque>

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// One server for all tests.
class Playback : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        server = std::make_unique<SoundServer>();
        ASSERT_TRUE(server->Start());
        ASSERT_TRUE(server->AddOutput("main", 44100, 1));
        ASSERT_TRUE(server->AddOutput("spare", 44100, 1));
    }
    static void TearDownTestSuite() {
        EXPECT_TRUE(WaitForBackground(10000));
        server.reset();
    }

    Playback() { player.SetNotify(&owner, 0); }
    bool Wait(const std::function<bool()>& holds) { return WaitUntil(loop, holds); }
    /// More than its start.
    bool WaitForSound() {
        return Wait([this] { return owner.events.size() > 2; });
    }
    bool WaitForStops(int count) {
        return Wait([this, count] { return owner.stops == count; });
    }
    /// Starts samples at 44100 frames per second.
    void Play(std::vector<int> samples) { player.Start(SourceOf(std::move(samples), 44100, 1)); }

    static std::unique_ptr<SoundServer> server;
    LEventLoop loop;
    Owner owner;
    LSoundPlayer player{OpenCubebChannel, FindCubebRate};
};

std::unique_ptr<SoundServer> Playback::server;

/// An output of its own with a player, whose every frame is recorded.
struct Line {
    Line(SoundServer& server, int framesPerSecond, int channelCount, const std::string& format)
        : rate(framesPerSecond),
          channels(channelCount),
          isFloat(format != "s16le"),
          name(format + "x" + std::to_string(rate) + "x" + std::to_string(channels)),
          added(server.AddOutput(name, rate, channels, "", format)),
          recording(server, name, rate, channels, format) {
        player.SetDevice(LSoundPlayDevice(
            LSoundPlayDevice::GetListDeviceIndex(("output " + name).c_str()))); // in any case
        player.SetNotify(&owner, 0);
    }
    void Play(int frames) {
        std::vector<int> samples = Numbered(frames * channels, static_cast<int>(all.size()));
        for (int& sample : samples)
            sample *= isFloat ? 65280 : 1; // as many bits as a float holds
        all.insert(all.end(), samples.begin(), samples.end());
        if (!isFloat)
            player.Start(SourceOf(samples, rate, static_cast<std::uint8_t>(channels)));
        else
            player.Start([samples, this](int found) {
                EXPECT_EQ(found, rate);
                return std::make_unique<HiresArray>(samples, rate, channels);
            });
    }

    int rate, channels;
    bool isFloat;
    std::string name;
    bool added;
    Recording recording;
    std::vector<int> all;
    Owner owner;
    LSoundPlayer player{OpenCubebChannel, FindCubebRate};
};

TEST_F(Playback, EveryFrameIsHeardOnceAndInOrderInEveryFormat) {
    std::deque<Line> lines;
    const std::tuple<int, int, const char*> formats[] = {
        {8000, 1, "s16le"},  {22050, 2, "s16le"},  {44100, 1, "s16le"},     {48000, 2, "s16le"},
        {96000, 1, "s16le"}, {192000, 2, "s16le"}, {44100, 1, "float32le"}, {96000, 2, "float32le"}};
    for (const auto& [rate, channels, format] : formats)
        ASSERT_TRUE(lines.emplace_back(*server, rate, channels, format).added);
    for (const double blocks : {0.01, 1.0, 2.002}) { // each length follows the one before
        for (Line& line : lines)
            line.Play(static_cast<int>(blocks * std::min(line.rate / 10, 8192)));
        for (const Line& line : lines)
            EXPECT_TRUE(Wait([&] { return !line.player.IsPlaying(); })) << line.name;
    }
    for (Line& line : lines) {
        EXPECT_EQ(line.player.GetStatus(), PlayUsable);
        EXPECT_EQ(line.recording.Finish(), line.all) << line.name;
        server->RemoveOutput(line.name);
    }
}

TEST_F(Playback, AStopAndARestartFadeWhatTheyCutOff) {
    for (const bool restart : {false, true}) {
        owner = {};
        Recording recording(*server, "main", 44100, 1);
        Play(std::vector<int>(44100, 22000));
        ASSERT_TRUE(WaitForSound());
        player.Stop();
        if (restart) {
            Play({22000, 22000, 22000});
            EXPECT_TRUE(WaitForStops(2));
        }
        const std::vector<int> heard = recording.Finish();
        const auto fade =
            std::find_if(heard.begin(), heard.end(), [](int sample) { return sample != 22000; });
        EXPECT_GE(fade - heard.begin(), 4410);
        // 220 frames, of which the last is silent: 22000 / 220 less each.
        std::vector<int> expected;
        for (int left = 219; left > 0; --left)
            expected.push_back(100 * left);
        if (restart)
            expected.insert(expected.end(), {22000, 22000, 22000});
        EXPECT_EQ(std::vector<int>(fade, heard.end()), expected);
    }
}

TEST_F(Playback, ManyPlaybacksLeaveNothingBehind) {
    const LSoundSource source = SourceOf(std::vector<int>(44100, 1), 44100, 1);
    const auto play = [&](int milliseconds) {
        source->Seek(0);
        player.Start(source);
        player.SetTitle("of the next one"); // while the thread of this one begins
        RunFor(loop, milliseconds);
        player.Stop();
    };
    play(50);
    ASSERT_TRUE(WaitForBackground(10000));
    ASSERT_TRUE(Wait([] { return CountEntries("/proc/self/task") <= 2; })); // the sanitizer may have one
    const std::size_t threads = CountEntries("/proc/self/task"), descriptors = CountEntries("/proc/self/fd");
    for (int i = 0; i < 40; ++i)
        play(i % 8 * 5 + 1); // opening, open, playing
    EXPECT_EQ(owner.stops, 41);
    EXPECT_EQ(source->refCount, 1u);
    ASSERT_TRUE(WaitForBackground(10000));
    EXPECT_TRUE(Wait([&] { return CountEntries("/proc/self/task") <= threads; }));
    EXPECT_LE(CountEntries("/proc/self/fd"), descriptors);
}

TEST_F(Playback, TheServersOutputsAreListed) {
    LSoundPlayDeviceList list;
    ASSERT_EQ(GetSoundPlayDeviceList(list), 2);
    EXPECT_EQ(list[2].name, "");
    EXPECT_EQ(list[2].id, 0xFFFFFFFF);
    EXPECT_EQ(LSoundPlayDevice::GetDeviceIndexById(list[1].id), 2);
    EXPECT_EQ(LSoundPlayDevice::GetDeviceIndexById(5), 0);
    for (const auto& [name, index] : {std::pair{"[Default Sound Out]", 0},
                                      {"[default sound out]", 0},
                                      {"Output spare", 2},
                                      {"OUTPUT MAIN", 1},
                                      {"Output", 0},
                                      {"", 0}})
        EXPECT_EQ(LSoundPlayDevice::GetListDeviceIndex(name), index) << name;
    EXPECT_EQ(LSoundPlayDevice::GetListDeviceName(0), "[Default Sound Out]");
    EXPECT_EQ(LSoundPlayDevice::GetListDeviceName(2), "Output spare");
    EXPECT_EQ(LSoundPlayDevice::GetListDeviceName(3), "");
    EXPECT_EQ(RunCli("devices").output, "* Output main\n  Output spare\n");
}

TEST_F(Playback, OutputsOfOneNameAreToldApart) {
    ASSERT_TRUE(server->AddOutput("twin", 44100, 1, "Spare"));
    ASSERT_TRUE(server->AddOutput("third", 44100, 1, "spare (2)"));
    EXPECT_EQ(RunCli("devices").output,
              "* Output main\n  Output spare\n  Output Spare (3)\n  Output spare (2)\n");
    Recording recording(*server, "twin", 44100, 1);
    player.SetDevice(LSoundPlayDevice::OfName("output spare (3)"));
    Play(Numbered(100));
    EXPECT_TRUE(WaitForStops(1));
    EXPECT_EQ(recording.Finish(), Numbered(100));
    server->RemoveOutput("twin");
    server->RemoveOutput("third");
}

TEST_F(Playback, AServerThatPausesPlaysOnAndOneThatDoesNotAnswerIsToldOf) {
    Recording recording(*server, "main", 44100, 1);
    const auto stopServer = [&](int milliseconds) {
        server->Send(SIGSTOP);
        RunFor(loop, milliseconds);
    };
    Play(Numbered(66150));
    ASSERT_TRUE(WaitForSound());
    stopServer(3000); // longer than an answer may take
    server->Send(SIGCONT);
    ASSERT_TRUE(WaitForStops(1));
    EXPECT_EQ(player.GetStatus(), PlayUsable);
    EXPECT_EQ(recording.Finish(), Numbered(66150));

    stopServer(1);
    const std::size_t threads = CountEntries("/proc/self/task"), descriptors = CountEntries("/proc/self/fd");
    for (int step = 0; step < 300; ++step) { // a key that is held
        step % 2 ? Play(Numbered(44100)) : player.Start([](int) { return nullptr; });
        RunFor(loop, 1);
    }
    EXPECT_LE(CountEntries("/proc/self/task"), threads + 20);
    EXPECT_LE(CountEntries("/proc/self/fd"), descriptors + 40);
    for (int again = 0; again < 7; ++again) { // more often than what hangs may
        EXPECT_TRUE(WaitForStops(301 + again));
        EXPECT_EQ(player.GetStatus(), PlayNoOutput);
        Play(Numbered(44100));
    }
    ASSERT_TRUE(WaitForStops(308));
    EXPECT_LE(CountEntries("/proc/self/fd"), descriptors + 40);
    ExpectRefused(RunCli("devices"), {"doesn't answer"});
    server->Send(SIGCONT);
    ASSERT_TRUE(WaitForBackground(20000));
    Play(Numbered(100));
    ASSERT_TRUE(WaitForStops(309));
    EXPECT_EQ(player.GetStatus(), PlayUsable);
}

TEST_F(Playback, AnOutputThatGoesAwayEndsThePlaybackAndNoOtherTakesOver) {
    for (const bool chosen : {true, false}) {
        owner = {};
        ASSERT_TRUE(server->AddOutput("gone", 44100, 1));
        server->Control("set-default-sink gone");
        Recording onMain(*server, "main", 44100, 1), onSpare(*server, "spare", 44100, 1);
        player.SetDevice(LSoundPlayDevice(chosen ? LSoundPlayDevice::GetListDeviceIndex("Output gone") : 0));
        Play(std::vector<int>(441000, 1000));
        ASSERT_TRUE(WaitForSound());
        server->RemoveOutput("gone");
        ASSERT_TRUE(WaitForStops(1));
        EXPECT_EQ(player.GetStatus(), PlayLost);
        if (chosen) { // and it is not played on another one either
            Play(std::vector<int>(441000, 1000));
            EXPECT_TRUE(WaitForStops(2));
            EXPECT_EQ(player.GetStatus(), PlayNoDevice);
        }
        EXPECT_THAT(onMain.Finish(), ElementsAre());
        EXPECT_THAT(onSpare.Finish(), ElementsAre());
        server->Control("set-default-sink main");
    }
}

TEST_F(Playback, TheCommandLinePlays) {
    const std::string endless = server->Path("endless.tdf"), brief = server->Path("brief.tdf");
    ASSERT_EQ(RunCli("make " + endless).status + RunCli("make --duration 200 " + brief).status, 0);
    Recording recording(*server, "spare", 44100, 1);
    const ProgramResult played = RunCli("play --device 'Output spare' --volume 13 " + brief);
    EXPECT_EQ(played.status, 0);
    EXPECT_EQ(played.output + played.errors, "") << "no terminal, no display";
    const std::vector<int> heard = recording.Finish();
    // 18610, 36843, 54330 in internal samples, as the rendered file has them
    ASSERT_GT(heard.size(), 8000u);
    EXPECT_EQ(std::vector<int>(heard.begin(), heard.begin() + 3), (std::vector<int>{1163, 2303, 3396}));

    std::string mixer;
    const ProgramResult stopped = RunCli("play " + endless, [&](pid_t program) {
        WaitFor([&] {
            mixer = server->Control("list sink-inputs");
            return mixer.find("media.name") != std::string::npos;
        });
        kill(program, SIGINT);
    });
    EXPECT_EQ(stopped.status, 1) << "Ctrl-C";
    EXPECT_THAT(mixer, HasSubstr("media.name = \"endless.tdf\""));
    EXPECT_THAT(mixer, HasSubstr("application.name = \"Sonvire\""));

    const ProgramResult shown = RunProgram("script -qec '" SONVIRE_CLI " play " + brief + "' /dev/null");
    EXPECT_THAT(shown.output, HasSubstr("0:00.2 / 0:00.2 [###############.....]   0 dB"));
    const std::string stays = server->Path("stays.tdl"); // at its second entry
    ASSERT_EQ(RunCli("list " + stays + " " + brief + " " + endless + " " + brief).status, 0);
    const std::string typed = server->Path("typescript");
    const auto isEndless = [&] { return ReadBytes(typed).find(" / endless ") != std::string::npos; };
    RunProgram("exec script -qefc '" SONVIRE_CLI " play " + stays + "' " + typed + " >/dev/null",
               [&](pid_t program) {
                   WaitFor(isEndless);
                   kill(program, SIGTERM);
               });
    EXPECT_TRUE(isEndless());

    ExpectRefused(RunCli("play --device nowhere " + brief), {": nowhere: there is no such sound output"});
    for (const char* few : {"6", "12", "30"}) // descriptors
        ExpectRefused(RunProgram(std::string("ulimit -n ") + few + "; exec " SONVIRE_CLI " play " + brief),
                      {"can't be played: "});
}

// The last one: it leaves another server behind.
TEST_F(Playback, AServerThatDiesEndsThePlaybackAndItsSuccessorPlays) {
    Play(std::vector<int>(441000, 1));
    ASSERT_TRUE(WaitForSound());
    server->Kill();
    ASSERT_TRUE(WaitForStops(1));
    EXPECT_EQ(player.GetStatus(), PlayLost);

    Play({1});
    ASSERT_TRUE(WaitForStops(2));
    EXPECT_EQ(player.GetStatus(), PlayNoOutput);
    const std::string tone = server->Path("endless.tdf");
    ASSERT_EQ(RunCli("make " + tone).status, 0);
    for (const std::string& command : {std::string("devices"), "play " + tone, "play --device x " + tone})
        ExpectRefused(RunCli(command), {"no s"});

    ASSERT_TRUE(server->Start());
    ASSERT_TRUE(server->AddOutput("main", 44100, 1));
    Recording recording(*server, "main", 44100, 1);
    Play(Numbered(100));
    ASSERT_TRUE(WaitForStops(3));
    EXPECT_EQ(recording.Finish(), Numbered(100));
}

} // namespace
