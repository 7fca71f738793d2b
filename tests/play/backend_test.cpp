#include "play/jack_guard.h"
#include "support/sound_server.h"
#include "tone/tone_data.h"

#include <gmock/gmock.h>

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

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
    EXPECT_EQ(listed.status, 2);
    EXPECT_EQ(listed.errors,
              "sonvire-cli: devices: there is no sound output: no sound server or card was found\n");
    const std::string bindings = RunProgram("grep -h jack_client_open " + none.Path("ld.*")).output;
    EXPECT_THAT(bindings, HasSubstr("libcubeb.so")) << "cubeb asks";
    EXPECT_THAT(bindings, Not(HasSubstr("libjack.so")));
}

// A card that plays as fast as it is fed: the limits keep a playback without an end from filling the disk.
TEST(Backend, WithoutAServerAlsaPlays) {
    const SoundServer none;
    WriteBytes(none.Path("no.conf"), "pcm.!default { type file slave.pcm null format raw file " +
                                         none.Path("out.raw") + " }\npcm.null { type null }\n");
    SonvireData tone;
    tone.SetDuration(200);
    ASSERT_FALSE(tone.WriteToFile(none.Path("brief.tdf").c_str()));
    // libasound keeps what it read of its configuration.
    const ProgramResult result =
        RunProgram("ulimit -f 300000; exec env ASAN_OPTIONS=detect_leaks=0 timeout 60 " SONVIRE_CLI
                   " play --volume 13 " +
                   none.Path("brief.tdf"));
    EXPECT_EQ(result.status, 0) << result.errors;
    const std::string played = ReadBytes(none.Path("out.raw"));
    EXPECT_GE(played.size(), 2u * 8820);
    EXPECT_EQ(played.substr(0, 6), "\x8B\x04\xFF\x08\x44\x0D"); // 1163, 2303, 3396
}

} // namespace
