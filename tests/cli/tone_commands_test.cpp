#include "support/command_line.h"
#include "tone/tone_items.h"
#include "tone/tone_list_file.h"

#include <gmock/gmock.h>

namespace {

using ::testing::HasSubstr;

class ToneCommands : public CommandLine {
protected:
    /// The tone's mode and rows, as `make` writes it with these options.
    std::string Made(const std::string& options) {
        const ProgramResult made = Cli("make " + options + " t.tdf");
        if (made.status != 0)
            return std::to_string(made.status) + " " + made.errors;
        SonvireData tone;
        EXPECT_FALSE(tone.ReadFromFile(Path("t.tdf").c_str()));
        std::string text =
            tone.GetItemName(1792) + ", " + tone.GetModeName() + (tone.repeat != 0 ? " loop" : "");
        for (const unsigned int item : GetShownItems(tone))
            text += "; " + std::to_string(item) + " " + tone.GetItemValue(item);
        return text;
    }
};

TEST_F(ToneCommands, MakeDescribesAnyTone) {
    const std::string timed = ", Constant (Specified Duration)", endless = "Sine, Constant (Continuous)";
    const std::pair<const char*, std::string> cases[] = {
        {"", endless + "; 256 1000.00Hz"},
        {"--waveform SAW --frequency 440,550 --duration 250",
         "Saw Tooth" + timed + "; 256 440.00Hz; 257 550.00Hz; 1536 250ms"},
        {"--waveform 'Pink Noise' --duration 5", "Pink Noise" + timed + "; 1536 5ms"},
        {"--frequency 1.5k,A4 --amplitude '-3 dB,-6' --duration 1:30",
         "Sine" + timed + "; 256 1500.00Hz; 1280 -3dB; 257 440.00Hz; 1281 -6dB; 1536 90000ms"},
        {"--waveform white --loop", "White Noise" + timed + " loop; 1536 1000ms"},
        {"--tones 2 --frequency 60 --amplitude 0,-12",
         endless + "; 256 60.00Hz; 1280 0dB; 257 60.00Hz; 1281 -12dB"},
        {"--frequency 20 --end 20000 --sweep log --duration 10000",
         "Sine, Sweep (Log); 256 20.00Hz; 768 20000.00Hz; 1536 10000ms"},
        {"--frequency 1 --right 2 --end 3 --end-right 4 --amplitude -7",
         "Sine, Sweep (Linear); 256 1.00Hz; 768 3.00Hz; 512 2.00Hz; 1024 4.00Hz; 1280 -7dB; 1536 1000ms"},
    };
    for (const auto& [options, tone] : cases)
        EXPECT_EQ(Made(options), tone) << options;
}

TEST_F(ToneCommands, MakeSaysWhatIsWrong) {
    const std::pair<const char*, const char*> cases[] = {
        {"--waveform blue", "--waveform: \"blue\" is none of sine"},
        {"--tones 3 --frequency 1,2", "--frequency: 2 values don't fit 3 components"},
        {"--frequency 1,2 --amplitude 0,-1,-2", "--frequency: 2 values don't fit 3 components"},
        {"--frequency 1,x", "--frequency: \"x\" is not understood; 440, 1.5k"},
        {"--frequency 1,", "\"\" is not understood"},
        {"--frequency 1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17", "1 to 16 components"},
        {"--amplitude 1", "between -127 and 0"},
        {"--amplitude -128", "between -127 and 0"},
        {"--amplitude -1.5", "whole numbers"},
        {"--tones 17", "--tones"},
        {"--sweep log", "a sweep needs --end"},
        {"--sweep up --end 5", "--sweep"},
        {"--right 5 --end 5", "needs --end-right"},
        {"--end 5 --end-right 5", "needs --right"},
        {"--waveform pink --frequency 5", "Pink Noise has no components"},
        {"--duration 0", "\"0\" is not in the range 1 to 48695774 milliseconds"},
        {"--duration 1.5", "\"1.5\" is not a whole number of milliseconds"},
        {"--duration 5kHz", "\"5kHz\" is not understood; 500, 500ms, 5s and 1:30 are"},
    };
    for (const auto& [options, reason] : cases)
        ExpectRefused(Cli(std::string("make ") + options + " t.tdf"), {reason});
    EXPECT_EQ(Cli("make t.wav").status, 2);
    EXPECT_EQ(dir.CountFiles(), 0u);
}

TEST_F(ToneCommands, NoClobberLeavesWhatIsThere) {
    const std::pair<const char*, std::string> cases[] = {
        {"t.tdf", "make t.tdf"}, {"o.wav", "render --duration 9 o.wav"}, {"l.tdl", "list l.tdl 5ms"}};
    for (const auto& [file, command] : cases) {
        EXPECT_EQ(Cli(command + " --no-clobber").status, 0);
        Write(file, "kept");
        ExpectRefused(Cli(command + " --no-clobber"), {"is there already, and stays"});
        EXPECT_EQ(Read(file), "kept");
    }
}

TEST_F(ToneCommands, WhatIsNotUnderstoodIsNamedWithTheNearest) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ": a command is required: render, make, list, show"},
        {"rendr t.tdf o.wav", ": rendr: no such command; did you mean render?"},
        {"xyz", ": xyz: no such command (see"},
        {"make --freq 5 t.tdf", ": --freq: no such option; did you mean --frequency?"},
        {"make -x t.tdf", ": -x: no such option (see"},
        {"--versoin", ": --versoin: no such option; did you mean --version?"},
        {"show first second third", ": second: not expected (see"},
        {"render a.tdf b.wav c.wav", ": c.wav: not expected"},
        {"render", ": OUTPUT, the sound file to write, is required"},
    };
    for (const auto& [command, reason] : cases)
        ExpectRefused(Cli(command), {reason});
}

TEST_F(ToneCommands, ShowPrintsATone) {
    Made("--frequency 440 --right 550 --loop");
    EXPECT_EQ(Cli("show t.tdf").output, "Constant (Specified Duration), Stereo, Loop Play\n"
                                        "Sine 1 Left Frequency   440.00Hz\n"
                                        "Sine 1 Right Frequency  550.00Hz\n"
                                        "Sine Duration           1000ms\n"
                                        "Peak                    -12.04 dBFS\n");
    Made("--waveform square --frequency 440 --amplitude -6 --duration 1s");
    EXPECT_THAT(Cli("show t.tdf").output, HasSubstr("-6dB, a peak of -21.05 dBFS\n")) << "92682 / 524288";
}

TEST_F(ToneCommands, ShowAsJsonKeepsToItsSchema) {
    Made("--frequency 0.1,440 --right 550 --end 1k --end-right 2k --amplitude -3,-127 --duration 2s");
    std::filesystem::copy_file(Path("t.tdf"), Path("sweep.tdf"));
    Made("--waveform pink --loop");
    WriteBytes(Path("nan.tdf"), std::string(797, '\xFF'));
    EXPECT_EQ(Cli("render --duration 10 w.wav").status, 0);
    EXPECT_EQ(Cli("list l.tdl t.tdf w.wav 5ms nan.tdf").status, 0);
    Write("ages.tdl", "2147483647ms silence.\n2147483647ms silence.\na\tb.wav\n");
    for (const std::string file : {"sweep.tdf", "t.tdf", "nan.tdf", "w.wav", "l.tdl", "--level 9 sweep.tdf",
                                   "--fit sweep.tdf", "--quality high t.tdf", "--quality high nan.tdf",
                                   "--quality high w.wav", "--quality high l.tdl", "ages.tdl"}) {
        Write("shown.json", Cli("show --json " + file).output);
        const std::string check = "/usr/bin/python3 -m jsonschema -i shown.json " SONVIRE_SHOW_SCHEMA;
        EXPECT_EQ(RunProgram(check).status, 0) << Read("shown.json");
        if (file == "sweep.tdf") {
            EXPECT_THAT(Read("shown.json"), HasSubstr("\"frequencyHz\": 0.1,")) << "in full";
        }
    }
    EXPECT_THAT(Read("shown.json"), HasSubstr("\"durationMs\": 4294967294,"));
    EXPECT_THAT(Cli("show ages.tdl").output, HasSubstr("a?b.wav"));
}

TEST_F(ToneCommands, ShowAndRenderTakeLists) {
    Made("--frequency 440 --duration 500");
    EXPECT_EQ(Cli("render --duration 250 t.tdf w.wav").status, 0);
    EXPECT_FALSE(WriteToneListFile(Path("list.tdl").c_str(), {"t.tdf", "250ms silence.", "w.wav"}));
    EXPECT_EQ(Cli("show list.tdl").output, "Tone list, 44100 Hz, mono\n"
                                           "t.tdf    00:00.500\n"
                                           "silence  00:00.250\n"
                                           "w.wav    00:00.250\n"
                                           "Total    00:01.000\n");
    EXPECT_EQ(Cli("render list.tdl o.wav").status, 0);
    EXPECT_EQ(Read("o.wav").size(), 46u + 2 * 44100);
    EXPECT_THAT(Cli("show w.wav").output, HasSubstr("44100Hz"));

    ExpectRefused(Cli("render list.tdl w.wav"), {"w.wav: is read by the input"});
    EXPECT_FALSE(WriteToneListFile(Path("outer.tdl").c_str(), {"list.tdl"}));
    EXPECT_EQ(Cli("render outer.tdl w.wav").status, 2) << "however deep";
}

TEST_F(ToneCommands, ListWritesEntriesInPlayingOrder) {
    Made("--frequency 440 --duration 500");
    std::filesystem::create_directory(Path("sub"));
    std::filesystem::create_directory(Path("5s")); // a name, not a silence
    Write("5s/a.wav", "no sound");
    EXPECT_EQ(Cli("list sub/inner.tdl t.tdf 0:01").errors, "");
    EXPECT_EQ(Read("sub/inner.tdl"), "1000ms silence.\n../t.tdf\n");
    const ProgramResult outer = Cli("list o.tdl sub/../5s/a.wav 20 sub/inner.tdl " + Path("t.tdf"));
    EXPECT_EQ(outer.errors, "sonvire-cli: warning: 5s/a.wav: is damaged or no WAVE file (entry 1)\n");
    EXPECT_EQ(Read("o.tdl"), Path("t.tdf") + "\nsub/inner.tdl\n20ms silence.\n5s/a.wav\n");
    EXPECT_THAT(Cli("show o.tdl").output, HasSubstr("\n  sub/../t.tdf "));
    const std::pair<const char*, const char*> refused[] = {
        {"list o.tdl gone.tdf", "gone.tdf: No such file"},
        {"list o.tdl 5s", "5s: Is a directory"},
        {"list o.tdl o.tdl t.tdx", "t.tdx: No such file"},
        {"list o.wav t.tdf", "o.wav: is no name for a tone list"},
        {"list o.tdl", "ENTRY is required"}};
    for (const auto& [command, reason] : refused)
        ExpectRefused(Cli(command), {reason});
    EXPECT_THAT(Read("o.tdl"), HasSubstr("20ms")) << "as it was";
}

TEST_F(ToneCommands, AToneThatPlaysAListIsCheckedLikeTheList) {
    SonvireData tone;
    tone.waveform = ToneFromList;
    tone.SetDuration(100);
    std::snprintf(tone.listPath, sizeof tone.listPath, "%s", Path("list.txt").c_str());
    EXPECT_FALSE(tone.WriteToFile(Path("t.tdf").c_str()));
    ExpectRefused(Cli("render --strict t.tdf o.wav"), {"list.txt: can't be read: No such file"});
    Write("list.txt", "100ms silence.\n");
    EXPECT_EQ(RunCli("render t.tdf - 1<>t.tdf").status, 2) << "the input itself";
    for (const std::string output : {"list.txt", "- 1<>list.txt"}) {
        EXPECT_EQ(RunCli("render t.tdf " + output).status, 2) << output;
        EXPECT_EQ(Read("list.txt"), "100ms silence.\n");
    }
}

TEST_F(ToneCommands, AnEntryThatCanNotBeUsedIsNamed) {
    EXPECT_FALSE(WriteToneListFile(Path("list.tdl").c_str(), {"gone.wav", "100ms silence."}));
    const ProgramResult lenient = Cli("render list.tdl o.wav");
    EXPECT_EQ(lenient.status, 0);
    EXPECT_EQ(lenient.errors,
              "sonvire-cli: warning: gone.wav: can't be read: No such file or directory (entry 1)\n"
              "sonvire-cli: warning: list.tdl: is silent\n");
    EXPECT_EQ(Read("o.wav").size(), 46u + 2 * 800);
    Write("o.wav", "kept");
    ExpectRefused(Cli("render --strict list.tdl o.wav"),
                  {"sonvire-cli: gone.wav: can't be read: No such file or directory"});
    EXPECT_EQ(Read("o.wav"), "kept");
}

TEST_F(ToneCommands, RenderNeedsNoFile) {
    EXPECT_EQ(Cli("render --frequency 11025 --duration 100 o.wav").status, 0);
    EXPECT_EQ(Read("o.wav").substr(46, 4), std::string("\0\x20\0\0", 4)) << "131070 and 0";
    ExpectRefused(Cli("render --frequency 440 e.wav"), {"has no end"});
    EXPECT_EQ(Cli("render --frequency 440 t.tdf e.wav").status, 2);
    EXPECT_EQ(Cli("render --duration 1s e.wav").status, 0) << "the usual tone";
    EXPECT_EQ(Read("e.wav").size(), 46u + 2 * 44100);
}

TEST_F(ToneCommands, StandardOutputGetsAHeaderThatIsRightFromTheStart) {
    const std::string render = SONVIRE_CLI " render --frequency 440 --duration 2000 ";
    EXPECT_EQ(RunProgram(render + "- | sox -t wav - -n stat 2>&1 | grep -c 'Length (seconds):      2.000000'")
                  .output,
              "1\n");
    RunProgram(render + "file.wav; " + render + "- > redirected.wav; " + render +
               "/dev/stdout | cat > piped.wav");
    EXPECT_EQ(Read("redirected.wav"), Read("file.wav"));
    EXPECT_EQ(Read("piped.wav"), Read("file.wav"));
    const ProgramResult closed = RunProgram(
        "(" SONVIRE_CLI
        " render --frequency 440 --duration 60000 -; echo status $? >&2) | head -c 100 >/dev/null");
    EXPECT_EQ(closed.errors,
              "sonvire-cli: standard output: could not be written in full: Broken pipe\nstatus 2\n");
}

} // namespace
