// The program itself, with a display and a sound server of the test's own: keys go in, sound comes out.

#include "sound/wave_file.h"
#include "support/run_program.h"
#include "support/sound_server.h"
#include "tone/tone_data.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <thread>

namespace {

bool WaitFor(const std::function<bool()>& holds) {
    const auto latest = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!holds() && std::chrono::steady_clock::now() < latest)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    return holds();
}

class Program : public ::testing::Test {
protected:
    Program() {
        unsetenv("WAYLAND_DISPLAY");
        unsetenv("DBUS_SESSION_BUS_ADDRESS");
        unsetenv("QT_QPA_PLATFORM");
        std::filesystem::remove_all(DataFolder());
    }
    ~Program() override {
        for (const pid_t process : {program, display, bus})
            if (process > 0)
                EndProcess(process, SIGKILL);
    }

    bool StartDisplay() {
        const std::string number = server.Path("display");
        display = Spawn({"Xvfb", "-displayfd", "1", "-screen", "0", "1000x700x24"}, number,
                        server.Path("display.err"));
        if (!WaitFor([&] { return ReadBytes(number).ends_with('\n'); }))
            return false;
        setenv("DISPLAY", (":" + std::to_string(std::atoi(ReadBytes(number).c_str()))).c_str(), 1);
        return true;
    }
    bool StartBus() {
        const std::string address = server.Path("bus");
        bus = Spawn({"dbus-daemon", "--session", "--nofork", "--print-address=1"}, address,
                    server.Path("bus.err"));
        if (!WaitFor([&] { return ReadBytes(address).ends_with('\n'); }))
            return false;
        const std::string line = ReadBytes(address);
        setenv("DBUS_SESSION_BUS_ADDRESS", line.substr(0, line.size() - 1).c_str(), 1);
        return true;
    }
    bool StartProgram(const std::string& argument) {
        program = Spawn({SONVIRE, argument}, server.Path("out"), server.Path("err"));
        return WaitFor(
            [] { return RunProgram("xdotool search --onlyvisible --name Sonvire windowfocus").status == 0; });
    }
    static std::string DataFolder() {
        const char* folder = std::getenv("XDG_DATA_HOME");
        return folder ? folder : "";
    }
    /// Where the program keeps its own files.
    static std::string DataPath(const std::string& file) {
        return DataFolder() + "/Quenby Software/Sonvire/" + file;
    }
    static void Key(const std::string& key) { EXPECT_EQ(RunProgram("xdotool key " + key).status, 0); }
    bool IsPlaying() { return !server.Control("list short sink-inputs").empty(); }

    SoundServer server;
    pid_t display = -1;
    pid_t program = -1;
    pid_t bus = -1;
};

std::vector<int> WithoutZeros(std::vector<int> samples) {
    std::erase(samples, 0); // a late server fills in silence
    return samples;
}

std::vector<int> Rendered(const std::string& path) {
    LSoundSource source = LWaveFile::OpenSource(path.c_str());
    std::vector<int> samples(static_cast<std::size_t>(source->GetEndSample()) * source->channels);
    source->Read(samples.data(), source->GetEndSample());
    for (int& sample : samples)
        sample /= 16;
    return samples;
}

TEST_F(Program, KeysAreHeardAndTheToneIsKept) {
    ASSERT_TRUE(server.Start());
    ASSERT_TRUE(server.AddOutput("main", 44100, 1));
    ASSERT_TRUE(StartDisplay());
    std::filesystem::create_directories(server.Path("Quenby Software"));
    WriteBytes(server.Path("Quenby Software/Sonvire.conf"),
               "[Settings]\nOutDevice=Output main\n[settings]\nplayvolume=13\n");
    SonvireData tone;
    tone.startLeftHz[0] = 220;
    tone.SetDuration(700);
    ASSERT_TRUE(tone.WriteToFile(server.Path("start.tdf").c_str()));
    ASSERT_TRUE(StartProgram(server.Path("start.tdf")));

    Recording recording(server, "main", 44100, 1);
    Key("Page_Up"); // an octave
    Key("space");
    EXPECT_TRUE(WaitFor([this] { return IsPlaying(); }));
    EXPECT_TRUE(WaitFor([this] { return !IsPlaying(); }));
    const std::vector<int> heard = recording.Finish();

    EndProcess(program, SIGTERM); // which waits for its end
    program = -1;
    const std::string current = DataPath("current.tdf");
    ASSERT_TRUE(tone.ReadFromFile(current.c_str()));
    EXPECT_EQ(tone.startLeftHz[0], 440);
    ASSERT_EQ(RunCli("render '" + current + "' " + server.Path("expected.wav")).status, 0);
    EXPECT_EQ(WithoutZeros(heard), WithoutZeros(Rendered(server.Path("expected.wav"))));
}

TEST_F(Program, ASecondStartHandsItsFileOver) {
    ASSERT_TRUE(server.Start());
    ASSERT_TRUE(StartDisplay());
    ASSERT_TRUE(StartBus());
    SonvireData tone;
    tone.startLeftHz[0] = 220;
    ASSERT_TRUE(tone.WriteToFile(server.Path("tone.tdf").c_str()));
    WriteBytes(server.Path("list.tdl"), "500ms silence.\n250ms silence.\n");
    ASSERT_TRUE(StartProgram(server.Path("none")));
    const std::string second = "exec timeout 20 " SONVIRE " ";
    EXPECT_EQ(RunProgram(second + server.Path("tone.tdf")).status, 0);
    Key("Page_Up");
    EXPECT_EQ(RunProgram(second + server.Path("list.tdl")).status, 0);
    const auto editor = [] {
        return RunProgram("xdotool search --onlyvisible --name 'Tone List' windowfocus").status == 0;
    };
    EXPECT_TRUE(WaitFor(editor)) << "lists as well";
    Key("Return");
    EXPECT_TRUE(WaitFor([&] { return !editor(); }));

    EndProcess(program, SIGTERM);
    program = -1;
    ASSERT_TRUE(tone.ReadFromFile(DataPath("current.tdf").c_str()));
    EXPECT_EQ(tone.startLeftHz[0], 440);
    EXPECT_EQ(tone.GetListPath(), server.Path("list.tdl"));
    EXPECT_EQ(tone.durationMs, 750U);
}

TEST_F(Program, ACrashIsReportedAndKeepsTheTone) {
#ifdef __SANITIZE_ADDRESS__
    constexpr int Signal = SIGABRT; // the sanitizer handles the others itself
#else
    constexpr int Signal = SIGSEGV;
#endif
    ASSERT_TRUE(server.Start());
    ASSERT_TRUE(server.AddOutput("main", 44100, 1));
    ASSERT_TRUE(StartDisplay());
    SonvireData tone;
    tone.startLeftHz[0] = 220;
    ASSERT_TRUE(tone.WriteToFile(server.Path("start.tdf").c_str()));
    ASSERT_TRUE(StartProgram(server.Path("start.tdf")));
    Key("Page_Up");
    Key("space");
    EXPECT_TRUE(WaitFor([this] { return IsPlaying(); }));

    kill(program, Signal);
    int state = 0;
    waitpid(program, &state, 0);
    program = -1;
    EXPECT_TRUE(WIFSIGNALED(state));
    EXPECT_EQ(WTERMSIG(state), Signal);
    ASSERT_TRUE(tone.ReadFromFile(DataPath("current.tdf").c_str()));
    EXPECT_EQ(tone.startLeftHz[0], 440);
    const std::string report = ReadBytes(DataPath("crash-report.txt"));
    for (const std::string part :
         {"Sonvire 2.14 ended unexpectedly", Signal == SIGABRT ? "Signal: SIGABRT\n" : "Signal: SIGSEGV\n",
          "Tone: Sine, Constant (Continuous), components: 1, ", "\nPlaying\n", "\nsonvire+0x", "Qt 6."})
        EXPECT_NE(report.find(part), std::string::npos) << part << " is not in\n" << report;
    for (const std::string& part :
         {server.Path(""), DataFolder(), std::filesystem::path(SONVIRE).parent_path().string(),
          std::string("start.tdf"), std::string("Output main")})
        EXPECT_EQ(report.find(part), std::string::npos) << part << " is in\n" << report;
}

} // namespace
