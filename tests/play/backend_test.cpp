#include "play/cubeb_output.h"
#include "play/jack_guard.h"
#include "play/sound_player.h"
#include "support/array_source.h"
#include "support/jack_recorder.h"
#include "support/owner.h"
#include "support/sound_server.h"

#include <gmock/gmock.h>

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using ::testing::HasSubstr;

TEST(Backend, OnlyAJackServerThatListensRuns) {
    const SoundServer shield; // which puts the variable back
    const std::string server = "sonvire-test-" + std::to_string(getpid());
    setenv("JACK_DEFAULT_SERVER", server.c_str(), 1);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    const std::string path = "/dev/shm/jack_" + server + "_" + std::to_string(getuid()) + "_0";
    std::strcpy(address.sun_path, path.c_str());
    EXPECT_FALSE(IsJackRunning()) << "no server";
    const int unnamed = socket(AF_UNIX, SOCK_STREAM, 0), listener = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_FALSE(IsJackRunning()) << "one that is only starting";
    ASSERT_EQ(listen(listener, 1), 0);
    EXPECT_TRUE(IsJackRunning());
    setenv("JACK_DEFAULT_SERVER", "another", 1);
    EXPECT_FALSE(IsJackRunning()) << "one of another name";
    setenv("JACK_DEFAULT_SERVER", server.c_str(), 1);
    close(listener);
    close(unnamed);
    EXPECT_FALSE(IsJackRunning()) << "the socket that a killed one has left";
    std::filesystem::remove(path);
}

// The library hangs where a killed program has left it a lock, which no test can leave on a machine that
// others use. The linker tells that the library's function is not even looked up.
TEST(Backend, JackIsNotAskedWhereThereIsNoServer) {
    const SoundServer none;
    const ProgramResult listed =
        RunProgram("LD_DEBUG=bindings LD_DEBUG_OUTPUT=" + none.Path("ld") + " exec " SONVIRE_CLI " devices");
    ExpectRefused(listed, {": devices: there is no sound output: no sound server or card was found"});
    const std::string bindings = RunProgram("grep -h jack_client_open " + none.Path("ld.*")).output;
    EXPECT_THAT(bindings, HasSubstr("libcubeb.so")) << "cubeb asks";
    EXPECT_THAT(bindings, Not(HasSubstr("libjack.so")));
}

/// `meanwhile` is called once there is sound.
LPlayStatus Play(const std::vector<int>& samples, int rate, const LSoundPlayDevice& device = {},
                 const std::function<void()>& meanwhile = {}) {
    LEventLoop loop;
    Owner owner;
    LSoundPlayer player{OpenCubebChannel};
    player.SetNotify(&owner, 0);
    player.SetDevice(device);
    player.Start(SourceOf(samples, rate, 2));
    EXPECT_TRUE(WaitUntil(loop, [&] { return owner.events.size() > 2; }));
    if (meanwhile)
        meanwhile();
    EXPECT_TRUE(WaitUntil(loop, [&] { return owner.stops == 1; }));
    return player.GetStatus();
}

bool IsInstalled(const std::string& program) {
    return RunProgram("command -v " + program).status == 0;
}

TEST(Backend, PipeWireGetsEveryFrame) {
    if (!IsInstalled("pipewire-pulse") || !IsInstalled("wireplumber"))
        GTEST_SKIP() << "pipewire-pulse or wireplumber is not installed";
    SoundServer server;
    ASSERT_TRUE(server.StartPipeWire());
    ASSERT_TRUE(server.AddOutput("main", 48000, 2));
    for (const LSoundPlayDevice& device : {LSoundPlayDevice(), LSoundPlayDevice::OfName("Output main")}) {
        Recording recording(server, "main", 48000, 2);
        EXPECT_EQ(Play(Numbered(96000), 48000, device), PlayUsable);
        EXPECT_EQ(recording.Finish(), Numbered(96000));
    }
}

TEST(Backend, JackGetsEveryFrameAndItsEndIsTold) {
    if (!IsInstalled("jackd"))
        GTEST_SKIP() << "jackd is not installed";
    SoundServer server;
    ASSERT_TRUE(server.StartJack(44100));
    EXPECT_EQ(RunCli("devices").output, "* JACK playback\n");
    JackRecorder recorder;
    EXPECT_EQ(Play(Numbered(88200), 44100), PlayUsable);
    const auto end = [&] {
        EXPECT_EQ(recorder.Finish(), Numbered(88200));
        server.Kill();
    };
    EXPECT_EQ(Play(std::vector<int>(882000, 0), 44100, {}, end), PlayLost);
}

// A card that plays as fast as it is fed: the limits keep a playback without an end from filling the disk.
TEST(Backend, WithoutAServerAlsaGetsEveryFrameAndNoRateBelowItsLowest) {
    const SoundServer none;
    WriteBytes(none.Path("no.conf"), "pcm.!default { type plug slave { pcm card rate 44100 channels 1 } }\n"
                                     "pcm.card { type file slave.pcm null format raw file " +
                                         none.Path("out.raw") + " }\npcm.null { type null }\n");
    const std::string brief = none.Path("brief.tdf"), rendered = none.Path("44.wav"),
                      slow = none.Path("2.wav");
    ASSERT_EQ(RunCli("make --duration 200 " + brief).status, 0);
    ASSERT_EQ(RunCli("render " + brief + " " + rendered).status, 0);
    ASSERT_EQ(RunCli("render --rate 2000 " + brief + " " + slow).status, 0);
    for (const std::string& file : {slow, brief}) {
        // libasound keeps what it read of its configuration.
        const ProgramResult result =
            RunProgram("ulimit -f 300000; exec env ASAN_OPTIONS=detect_leaks=0 timeout 60 " SONVIRE_CLI
                       " play --volume 13 " +
                       file);
        EXPECT_EQ(result.status, 0) << result.errors;
    }
    EXPECT_EQ(SamplesOf(ReadBytes(none.Path("out.raw"))), SamplesOf(ReadBytes(rendered).substr(46)));
}

} // namespace
