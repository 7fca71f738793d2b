#include "support/run_program.h"
#include "tone/tone_items.h"
#include "tone/tone_list_file.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using ::testing::HasSubstr;

class ToneCommands : public InFolder {
protected:
    /// The tone's mode and rows, as `make` writes it with these options.
    std::string Made(const std::string& options) {
        const ProgramResult made = Cli("make " + options + " t.tdf");
        if (made.status != 0)
            return std::to_string(made.status) + " " + made.errors;
        SonvireData tone;
        EXPECT_FALSE(tone.ReadFromFile(Path("t.tdf").c_str()));
        std::string text = std::string(tone.GetModeName()) + (tone.repeat != 0 ? " loop" : "");
        for (const unsigned int item : GetShownItems(tone))
            text += "; " + tone.GetItemName(item) + " " + tone.GetItemValue(item);
        return text;
    }
};

TEST_F(ToneCommands, MakeDescribesAnyTone) {
    struct {
        const char *options, *tone;
    } const cases[] = {
        {"", "Constant (Continuous); Sine 1 Frequency 1000.00Hz"},
        {"--waveform SAW --frequency 440,550 --duration 250",
         "Constant (Specified Duration); Saw Tooth 1 Frequency 440.00Hz; Saw Tooth 2 Frequency 550.00Hz; "
         "Saw Tooth Duration 250ms"},
        {"--waveform 'Pink Noise' --duration 5", "Constant (Specified Duration); Pink Noise Duration 5ms"},
        {"--waveform white --loop", "Constant (Specified Duration) loop; White Noise Duration 1000ms"},
        {"--tones 2 --frequency 60 --amplitude 0,-12",
         "Constant (Continuous); Sine 1 Frequency 60.00Hz; Sine 1 Relative Amplitude 0dB; Sine 2 Frequency "
         "60.00Hz; "
         "Sine 2 Relative Amplitude -12dB"},
        {"--frequency 20 --end 20000 --sweep log --duration 10000",
         "Sweep (Log); Sine 1 Start Frequency 20.00Hz; Sine 1 End Frequency 20000.00Hz; Sine Duration "
         "10000ms"},
        {"--frequency 1 --right 2 --end 3 --end-right 4 --amplitude -7",
         "Sweep (Linear); Sine 1 Start Left Frequency 1.00Hz; Sine 1 End Left Frequency 3.00Hz; Sine 1 Start "
         "Right "
         "Frequency 2.00Hz; Sine 1 End Right Frequency 4.00Hz; Sine 1 Relative Amplitude -7dB; Sine Duration "
         "1000ms"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Made(each.options), each.tone) << each.options;
}

TEST_F(ToneCommands, MakeSaysWhatIsWrong) {
    struct {
        const char *options, *reason;
    } const cases[] = {
        {"--waveform blue", "--waveform: \"blue\" is none of sine"},
        {"--tones 3 --frequency 1,2", "--frequency: 2 values don't fit 3 components"},
        {"--frequency 1,2 --amplitude 0,-1,-2", "--frequency: 2 values don't fit 3 components"},
        {"--frequency 1,x", "--frequency: \"x\" is not a number"},
        {"--frequency nan", "\"nan\" is not a number"},
        {"--frequency 1,", "\"\" is not a number"},
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
        {"--duration 0", "--duration"},
    };
    for (const auto& each : cases) {
        const ProgramResult result = Cli(std::string("make ") + each.options + " t.tdf");
        EXPECT_EQ(result.status, 2) << each.options;
        EXPECT_THAT(result.errors, HasSubstr(each.reason));
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1) << result.errors;
    }
    EXPECT_EQ(Cli("make t.wav").status, 2);
    EXPECT_EQ(dir.CountFiles(), 0u);
}

TEST_F(ToneCommands, ShowPrintsATone) {
    Made("--frequency 440 --right 550 --loop");
    EXPECT_EQ(Cli("show t.tdf").output, "Constant (Specified Duration), Stereo, Loop Play\n"
                                        "Sine 1 Left Frequency   440.00Hz\n"
                                        "Sine 1 Right Frequency  550.00Hz\n"
                                        "Sine Duration           1000ms\n");
    const std::string json = Cli("show --json t.tdf").output;
    EXPECT_EQ(
        Shell("printf '%s' '" + json +
              "' | python3 -c 'import json, sys; t = json.load(sys.stdin); "
              "print(t[\"mode\"], t[\"stereo\"], t[\"items\"][1][\"item\"], t[\"items\"][1][\"value\"])'")
            .output,
        "Constant (Specified Duration) True 512 550.00Hz\n");
}

TEST_F(ToneCommands, ShowAndRenderTakeLists) {
    Made("--frequency 440 --duration 500");
    Cli("render --duration 250 t.tdf w.wav");
    EXPECT_FALSE(WriteToneListFile(Path("list.tdl").c_str(), {"t.tdf", "250ms silence.", "w.wav"}));
    EXPECT_EQ(Cli("show list.tdl").output, "Tone list, 44100 Hz, mono\n"
                                           "t.tdf    00:00.500\n"
                                           "silence  00:00.250\n"
                                           "w.wav    00:00.250\n"
                                           "Total    00:01.000\n");
    EXPECT_EQ(Cli("render list.tdl o.wav").status, 0);
    EXPECT_EQ(Read("o.wav").size(), 46u + 2 * 44100);
    EXPECT_THAT(Cli("show w.wav").output, HasSubstr("44100Hz"));

    const ProgramResult refused = Cli("render list.tdl w.wav");
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.errors, HasSubstr("w.wav: is read by the input"));
    EXPECT_FALSE(WriteToneListFile(Path("outer.tdl").c_str(), {"list.tdl"}));
    EXPECT_EQ(Cli("render outer.tdl w.wav").status, 2) << "however deep";
}

TEST_F(ToneCommands, AToneThatPlaysAListIsCheckedLikeTheList) {
    SonvireData tone;
    tone.waveform = ToneFromList;
    tone.SetDuration(100);
    std::snprintf(tone.listPath, sizeof tone.listPath, "%s", Path("list.txt").c_str());
    EXPECT_FALSE(tone.WriteToFile(Path("t.tdf").c_str()));
    const ProgramResult missing = Cli("render --strict t.tdf o.wav");
    EXPECT_EQ(missing.status, 2);
    EXPECT_THAT(missing.errors, HasSubstr("list.txt: No such file"));
    Write("list.txt", "100ms silence.\n");
    EXPECT_EQ(Cli("render t.tdf - 1<>t.tdf").status, 2) << "the input itself";
    for (const std::string output : {"list.txt", "- 1<>list.txt"}) {
        EXPECT_EQ(Cli("render t.tdf " + output).status, 2) << output;
        EXPECT_EQ(Read("list.txt"), "100ms silence.\n");
    }
}

TEST_F(ToneCommands, AnEntryThatCanNotBeUsedIsNamed) {
    EXPECT_FALSE(WriteToneListFile(Path("list.tdl").c_str(), {"gone.wav", "100ms silence."}));
    const ProgramResult lenient = Cli("render list.tdl o.wav");
    EXPECT_EQ(lenient.status, 0);
    EXPECT_EQ(lenient.errors, "sonvire-cli: warning: gone.wav: No such file or directory\n");
    EXPECT_EQ(Read("o.wav").size(), 46u + 2 * 800);
    Write("o.wav", "kept");
    const ProgramResult strict = Cli("render --strict list.tdl o.wav");
    EXPECT_EQ(strict.status, 2);
    EXPECT_EQ(strict.errors, "sonvire-cli: gone.wav: No such file or directory\n");
    EXPECT_EQ(Read("o.wav"), "kept");
}

TEST_F(ToneCommands, RenderNeedsNoFile) {
    EXPECT_EQ(Cli("render --frequency 11025 --duration 100 o.wav").status, 0);
    EXPECT_EQ(Read("o.wav").substr(46, 4), std::string("\0\x20\0\0", 4)) << "131070 and 0";
    const ProgramResult endless = Cli("render --frequency 440 e.wav");
    EXPECT_EQ(endless.status, 2);
    EXPECT_THAT(endless.errors, HasSubstr("has no end"));
    EXPECT_EQ(Cli("render --frequency 440 t.tdf e.wav").status, 2);
    EXPECT_EQ(Cli("render --duration 5 e.wav").status, 2);
}

TEST_F(ToneCommands, StandardOutputGetsAHeaderThatIsRightFromTheStart) {
    const std::string render = SONVIRE_CLI " render --frequency 440 --duration 2000 ";
    EXPECT_EQ(
        Shell(render + "- | sox -t wav - -n stat 2>&1 | grep -c 'Length (seconds):      2.000000'").output,
        "1\n");
    Shell(render + "file.wav; " + render + "- > redirected.wav; " + render + "/dev/stdout | cat > piped.wav");
    EXPECT_EQ(Read("redirected.wav"), Read("file.wav"));
    EXPECT_EQ(Read("piped.wav"), Read("file.wav"));
    const ProgramResult closed =
        Shell("(" SONVIRE_CLI
              " render --frequency 440 --duration 60000 -; echo status $? >&2) | head -c 100 >/dev/null");
    EXPECT_EQ(closed.errors,
              "sonvire-cli: standard output: could not be written in full: Broken pipe\nstatus 2\n");
}

} // namespace
