// The program itself, with a display and a sound server of the test's own: keys go in, sound comes out.

#include "support/sound_server.h"
#include "tone/tone_data.h"

#include <QRect>

#include <gmock/gmock.h>

#include <sys/wait.h>

namespace {

using ::testing::HasSubstr;

class Program : public ::testing::Test {
protected:
    Program() {
        unsetenv("WAYLAND_DISPLAY");
        unsetenv("DBUS_SESSION_BUS_ADDRESS");
        unsetenv("QT_QPA_PLATFORM");
        std::filesystem::remove_all(DataFolder());
    }
    ~Program() override {
        EndDesktop();
        for (const char* variable : {"QT_SCALE_FACTOR", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON"})
            unsetenv(variable);
    }

    /// Starts a server; answers the line in which it tells where it is.
    std::string StartServer(pid_t& process, const std::string& name, const std::string& arguments) {
        const std::string file = server.Path(name);
        std::filesystem::remove(file);
        process = Spawn("exec " + name + " " + arguments, file, file + ".err");
        EXPECT_TRUE(WaitFor([&] { return ReadBytes(file).ends_with('\n'); })) << name;
        return ReadBytes(file).substr(0, ReadBytes(file).find('\n'));
    }
    /// A display. That takes connections all the time: it does without its reset after the last client, such
    /// as the first look for the window.
    void StartDisplay(const std::string& size, const std::string& options = "") {
        const std::string number =
            StartServer(display, "Xvfb", "-displayfd 1 -noreset -screen 0 " + size + "x24 " + options);
        setenv("DISPLAY", (":" + number).c_str(), 1);
    }
    void StartManager() {
        manager = Spawn("exec openbox", server.Path("openbox"), server.Path("openbox.err"));
        EXPECT_TRUE(WaitFor([] { return RunProgram("xdotool get_desktop").status == 0; }));
    }
    /// A sound server with an output, and a display.
    void StartDesktop(const std::string& size = "1000x700", const std::string& options = "") {
        ASSERT_TRUE(server.Start());
        ASSERT_TRUE(server.AddOutput("main", 44100, 1));
        StartDisplay(size, options);
    }
    void EndDesktop() {
        for (pid_t* process : {&program, &manager, &display, &bus})
            if (const pid_t running = std::exchange(*process, -1); running > 0)
                EndProcess(running, SIGKILL);
    }
    void StartBus() {
        const std::string address = StartServer(bus, "dbus-daemon", "--session --nofork --print-address=1");
        setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
    }
    std::string WriteTone(const std::string& options = {}) const {
        const std::string path = server.Path("start.tdf");
        EXPECT_EQ(RunCli("make --frequency 220 " + options + " " + path).status, 0);
        return path;
    }
    SonvireData KeptTone() const {
        SonvireData kept;
        EXPECT_FALSE(kept.ReadFromFile(DataPath("current.tdf").c_str()));
        return kept;
    }
    void EndProgram() {
        EndProcess(program, SIGTERM); // which waits for its end
        program = -1;
    }
    bool StartProgram(const std::string& argument) {
        program = Spawn("exec " SONVIRE " " + argument, server.Path("out"), server.Path("err"));
        return WaitFor([] { return IsShown("Sonvire"); });
    }
    static bool IsShown(const std::string& window) {
        return RunProgram("xdotool search --onlyvisible --name '" + window + "' windowfocus").status == 0;
    }
    static std::string DataFolder() { return std::getenv("XDG_DATA_HOME"); }
    /// Where the program keeps its own files.
    static std::string DataPath(const std::string& file) {
        return DataFolder() + "/Quenby Software/Sonvire/" + file;
    }
    static void Key(const std::string& key) { EXPECT_EQ(RunProgram("xdotool key " + key).status, 0); }
    static void Keys(const std::vector<std::string>& keys) {
        for (const std::string& key : keys)
            Key(key);
    }
    /// Waits until all keys so far have been used.
    static void WaitForKeys() {
        Key("ctrl+o");
        ASSERT_TRUE(WaitFor([] { return IsShown("Select Tone to Open"); }));
        Key("Escape");
        ASSERT_TRUE(WaitFor([] { return !IsShown("Select Tone to Open") && IsShown("Sonvire"); }));
    }
    /// Where the window's frame is; nowhere while it has none.
    static QRect Frame() {
        const std::string told = RunProgram("id=$(xdotool search --onlyvisible --name ' - Sonvire$')\n"
                                            "xwininfo -id $id; xprop -id $id _NET_FRAME_EXTENTS")
                                     .output;
        const auto numbers = [&told](const char* format, auto*... values) {
            const std::size_t at =
                told.find(std::string(format).substr(0, std::strchr(format, '%') - format));
            return at != std::string::npos && std::sscanf(told.c_str() + at, format, values...) > 0;
        };
        int x = 0, y = 0, width = 0, height = 0, left = 0, right = 0, top = 0, bottom = 0;
        const bool framed = numbers("upper-left X:  %d", &x) && numbers("upper-left Y:  %d", &y) &&
                            numbers("Width: %d", &width) && numbers("Height: %d", &height) &&
                            numbers("(CARDINAL) = %d, %d, %d, %d", &left, &right, &top, &bottom);
        return framed ? QRect(x, y, width, height).adjusted(-left, -top, right, bottom) : QRect(-1, -1, 0, 0);
    }
    bool IsPlaying() { return !server.Control("list short sink-inputs").empty(); }

    SoundServer server;
    pid_t display = -1;
    pid_t program = -1;
    pid_t bus = -1;
    pid_t manager = -1;
};

TEST_F(Program, SaysInOneSentenceThatThereIsNoDisplay) {
    for (const std::string display : {"-u DISPLAY", "DISPLAY=:9999"}) {
        const ProgramResult result = RunProgram("env " + display + " " SONVIRE);
        EXPECT_EQ(result.status, 2) << display;
        EXPECT_EQ(result.errors,
                  "sonvire: there is no display to open a window on; sonvire-cli does without one\n");
    }
}

TEST_F(Program, KeysAreHeardAndTheToneIsKept) {
    StartDesktop();
    std::filesystem::create_directories(server.Path("Quenby Software"));
    WriteBytes(server.Path("Quenby Software/Sonvire.conf"),
               "[Settings]\nOutDevice=Output main\n[settings]\nplayvolume=13\n");
    ASSERT_TRUE(StartProgram(WriteTone("--duration 700")));

    Recording recording(server, "main", 44100, 1);
    Key("Page_Up"); // an octave
    Key("space");
    EXPECT_TRUE(WaitFor([this] { return IsPlaying(); }));
    EXPECT_TRUE(WaitFor([this] { return !IsPlaying(); }));
    const std::vector<int> heard = recording.Finish();

    server.Send(SIGSTOP); // which holds up neither a key nor the end
    for (const char* key : {"space", "Escape", "space"})
        Key(key);
    EndProgram();
    server.Send(SIGCONT);
    EXPECT_EQ(KeptTone().startLeftHz[0], 440);
    ASSERT_EQ(RunCli("render '" + DataPath("current.tdf") + "' " + server.Path("expected.wav")).status, 0);
    EXPECT_EQ(heard, SamplesOf(ReadBytes(server.Path("expected.wav")).substr(46)));
}

TEST_F(Program, HighQualityIsHeardAtTheOutputsOwnRate) {
    ASSERT_TRUE(server.Start());
    ASSERT_TRUE(server.AddOutput("main", 96000, 1, "", "float32le"));
    StartDisplay("800x600");
    std::filesystem::create_directories(server.Path("Quenby Software"));
    WriteBytes(server.Path("Quenby Software/Sonvire.conf"),
               "[Settings]\nOutDevice=Output main\n[settings]\nplayvolume=13\nhigh resolution rate=44100\n");
    ASSERT_TRUE(StartProgram(WriteTone("--duration 700")));
    Recording recording(server, "main", 96000, 1, "float32le");
    Key("space");
    EXPECT_TRUE(WaitFor([this] { return IsPlaying(); }));
    EXPECT_TRUE(WaitFor([this] { return !IsPlaying(); }));
    const std::string expected = server.Path("expected.raw");
    ASSERT_EQ(RunCli("render --rate 96000 --bits float --fade 10 --raw " + server.Path("start.tdf") + " " +
                     expected)
                  .status,
              0);
    EXPECT_EQ(recording.Finish(), FloatSamplesOf(ReadBytes(expected)));
}

TEST_F(Program, AHeldKeyWorksOnceAndEveryKeyWithItsModifiersOnly) {
    StartDesktop("1000x700", "-ardelay 250 -arinterval 3");
    StartManager();
    ASSERT_TRUE(StartProgram(WriteTone("--duration 700")));
    for (int hold = 0; hold < 4; ++hold)
        EXPECT_EQ(RunProgram("xdotool keydown Page_Up sleep 0.4 keyup Page_Up").status, 0);
    Keys({"ctrl+shift+w", "shift+space", "shift+Page_Down", "plus", "equal", "minus"});
    Keys({"Page_Up", "ctrl+z", "ctrl+z", "ctrl+shift+z"}); // takes the octave back
    WaitForKeys();
    EXPECT_FALSE(IsPlaying());
    EndProgram();
    EXPECT_NEAR(KeptTone().startLeftHz[0], 220 * 16 * std::exp2(1 / 12.0), 1);
    EXPECT_EQ(KeptTone().durationMs, 800U) << "the second row was selected as well";
}

TEST_F(Program, TheKeyboardFollowsFromPlayToStop) {
    StartDesktop();
    StartManager();
    ASSERT_TRUE(StartProgram(WriteTone()));
    Keys({"Tab", "Tab", "Tab", "Tab", "Tab"}); // over the wave, output, mute and volume
    for (const bool plays : {true, false, true}) {
        Key("space");
        EXPECT_TRUE(WaitFor([&] { return IsPlaying() == plays; }));
    }
}

TEST_F(Program, TheWindowStandsWholeOnTheScreenAndStaysThere) {
    struct {
        std::string size;
        const char* scale;
        QRect screen;
        int maximized, starts;
        std::string kept;
    } const cases[] = {{"1366x768", "1", {0, 0, 1366, 768}, 0, 2, "X=200\nY=168\nWidth=800\nHeight=600\n"},
                       {"1024x600", "1", {0, 0, 1024, 600}, 0, 1, "X=200\nY=0\nWidth=800\nHeight=600\n"},
                       {"1366x768", "2", {0, 0, 1366, 768}, 0, 2, "X=0\nY=0\nWidth=683\nHeight=384\n"},
                       {"1366x768", "2", {0, 0, 1366, 768}, 1, 2, "X=0\nY=0\nWidth=683\nHeight=384\n"},
                       {"1366x768", "1", {0, 0, 1366, 768}, 1, 13, "X=200\nY=168\nWidth=800\nHeight=600\n"}};
    const std::string settings = server.Path("Quenby Software/Sonvire.conf");
    std::filesystem::create_directories(server.Path("Quenby Software"));
    for (const auto& each : cases) {
        setenv("QT_SCALE_FACTOR", each.scale, 1);
        WriteBytes(settings, "[MainWindow]\nMaximized=" + std::to_string(each.maximized) + "\n");
        StartDisplay(each.size);
        StartManager();
        for (int start = 0; start < each.starts; ++start) {
            SCOPED_TRACE(each.size + " at scale " + each.scale + ", start " + std::to_string(start));
            ASSERT_TRUE(StartProgram(""));
            EXPECT_TRUE(WaitFor([&] { return each.screen.contains(Frame()); }));
            EndProgram();
            EXPECT_THAT(ReadBytes(settings), HasSubstr(each.kept));
        }
        EndDesktop();
    }
}

TEST_F(Program, EveryControlHasARoleANameAndItsValue) {
    StartDesktop();
    StartManager();
    StartBus();
    setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
    ASSERT_TRUE(StartProgram(WriteTone()));
    Key("Page_Up"); // whatever is shown follows
    struct {
        std::vector<std::string> keys;
        std::string title;
        std::vector<const char*> lines;
    } const windows[] = {{{},
                          "start.tdf* - Sonvire",
                          {"tree|Tone data|", "tool bar|Main tool bar|", "tool bar|Tone tool bar|",
                           "check box|Sine|checked", "label|440 Hz · A4",
                           "chart|Wave and spectrum|peak -12.0 dBFS, RMS -15.1, crest 3.0 dB, of the first "
                           "10 s. 440.0 Hz -12.0",
                           "label|Position|00:00.0", "combo box|Output device|[Default Sound Out]",
                           "label|Level|left -inf dBFS, right -inf dBFS", "slider|Volume|0", "button|Play|"}},
                         {{"Return"}, "Edit Value", {"text|Sine 1 Frequency|440.00Hz", "button|OK|"}},
                         {{"alt+s", "p"},
                          "Play Settings",
                          {"radio button|SemiTone|checked", "spin button|SemiTone|1", "text|Frequency|1.0",
                           "combo box|Quality|Standard: 44.1 kHz, 16 bits"}},
                         {{"alt+f", "n"}, "Unsaved list - Tone List", {"tree|Entries|", "button|Remove|"}},
                         {{"alt+h", "a"}, "About Sonvire", {"link|Sonvire Help|", "label|Sonvire's icon|"}}};
    for (const auto& each : windows) {
        SCOPED_TRACE(each.title);
        const auto isOpen = [&] { return each.keys.empty() || IsShown("^" + each.title); };
        Keys(each.keys);
        ASSERT_TRUE(WaitFor(isOpen));
        ProgramResult told;
        const auto tells = [&](const std::string& line) {
            return ("\n" + told.output).find("\n" + line) != std::string::npos;
        };
        EXPECT_TRUE(WaitFor([&] {
            told = RunProgram(SONVIRE_ACCESSIBLE_CONTROLS " '" + each.title + "'");
            return told.status == 0 && std::all_of(each.lines.begin(), each.lines.end(), tells);
        })) << told.output;
        Key("Escape");
        ASSERT_TRUE(WaitFor([&] { return each.keys.empty() || !isOpen(); }));
        EXPECT_TRUE(IsShown("Sonvire"));
    }
}

TEST_F(Program, ASecondStartHandsItsFileOver) {
    StartDesktop();
    StartBus();
    WriteBytes(server.Path("list.tdl"), "500ms silence.\n250ms silence.\n");
    const std::string oddName = server.Path("\xFF.tdf");
    std::filesystem::copy_file(WriteTone(), oddName);
    ASSERT_TRUE(StartProgram(server.Path("none")));
    const std::string second = "exec timeout 20 " SONVIRE " ";
    EXPECT_EQ(RunProgram(second + server.Path("list.tdl")).status, 0);
    EXPECT_TRUE(WaitFor([] { return IsShown("Tone List"); })) << "lists as well";
    for (const std::string& each : {server.Path("gone.tdf"), WriteTone("--duration 1000"), oddName})
        EXPECT_EQ(RunProgram(second + each).status, 0);
    EXPECT_NE(RunProgram("dbus-send --session --print-reply --dest=com.quenbysoftware.Sonvire "
                         "/com/quenbysoftware/Sonvire org.freedesktop.Application.ActivateAction "
                         "string:open-argument array:int32:1,2 dict:string:string:")
                  .status,
              0)
        << "other forms are refused";
    Key("Return");
    EXPECT_TRUE(WaitFor([] { return IsShown("^Error$"); })) << "in their order, once the editor is closed";
    Key("Return");
    const auto remembered = [&] {
        return ReadBytes(server.Path("Quenby Software/Sonvire.conf")).find("\xFF.tdf\n") != std::string::npos;
    };
    EXPECT_TRUE(WaitFor(remembered)) << "as the last one, by a name that is not UTF-8";
    Key("Page_Up");
    Key("Return");
    ASSERT_TRUE(WaitFor([] { return IsShown("^Edit Value"); }));
    EXPECT_EQ(RunProgram(second + server.Path("late.tdf")).status, 0);

    EndProgram();
    EXPECT_EQ(KeptTone().startLeftHz[0], 440);
    EXPECT_THAT(ReadBytes(server.Path("Quenby Software/Sonvire.conf")), HasSubstr("late.tdf\n"))
        << "what was to be opened once the dialog is closed is offered by the next run";

    ASSERT_TRUE(StartProgram(""));
    const pid_t old = program;
    kill(old, SIGTERM);
    program =
        Spawn("exec " SONVIRE " " + WriteTone("--duration 500"), server.Path("out"), server.Path("err"));
    waitpid(old, nullptr, 0);
    EXPECT_TRUE(WaitFor([this] { return IsShown("Sonvire") || waitpid(program, nullptr, WNOHANG) > 0; }));
    EndProgram();
    EXPECT_EQ(KeptTone().durationMs, 500U) << "whichever has opened it";
}

TEST_F(Program, ACrashIsReportedAndKeepsTheTone) {
    StartDesktop();
    ASSERT_TRUE(StartProgram(WriteTone()));
    Key("Page_Up");
    Key("space");
    EXPECT_TRUE(WaitFor([this] { return IsPlaying(); }));

    kill(program, SIGABRT); // which a sanitizer leaves to the program
    int state = 0;
    waitpid(program, &state, 0);
    program = -1;
    EXPECT_EQ(WTERMSIG(state), SIGABRT);
    EXPECT_EQ(KeptTone().startLeftHz[0], 440);
    const std::string report = ReadBytes(DataPath("crash-report.txt"));
    EXPECT_THAT(report, AllOf(HasSubstr("Sonvire 2.14 ended unexpectedly"), HasSubstr("Signal: SIGABRT\n"),
                              HasSubstr("Tone: Sine, Constant (Continuous), components: 1, "),
                              HasSubstr("\nPlaying\n"), HasSubstr("\nsonvire+0x"), HasSubstr("Qt 6.")));
    for (const std::string& secret :
         {server.Path(""), DataFolder(), std::filesystem::path(SONVIRE).parent_path().string(),
          std::string("start.tdf"), std::string("Output main")})
        EXPECT_THAT(report, Not(HasSubstr(secret)));
}

} // namespace
