#include "support/command_line.h"
#include "support/sound_server.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sstream>

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class Measure : public CommandLine {
protected:
    Measure() {
        RunProgram(
            "s() { sox -r 44100 -n -b 24 $@; };"
            "s two.wav synth 2 sine 1000 remix 1v0.1 1v0.05; sox -D two.wav late.wav delay 0 12s;"
            "s thd.wav synth 2 sine 1000 sine 3000 remix 1v0.5,2v0.0005;"
            "ffmpeg -v error -i two.wav -af volume=20 -c:a pcm_f32le loud.wav;"
            "s dc.wav synth 2 sine 1000 gain -6.0206 dcshift -0.0001;"
            "ffmpeg -v error -f lavfi -i 'aevalsrc=if(lt(mod(n\\,441)\\,221)\\,1\\,-1):d=2' square.wav;"
            "ffmpeg -v error -f lavfi -i 'aevalsrc=sqrt(-1):d=2' -c:a pcm_f32le nan.wav;"
            "s -c 6 six.flac synth 1 sine 100 vol 0.5 remix 0 0 1 0 0 0;"
            "s -c 2 silence.wav trim 0 1; s none.wav trim 0 0; echo hello > text.wav; : > empty.wav");
    }
};

TEST_F(Measure, FindsWhatWasPutIntoASound) {
    struct Expected {
        const char* name;
        double value, within;
    };
    const std::pair<const char*, std::vector<Expected>> cases[] = {
        {"two.wav", // 20 lg 0.1 and 0.05; 10 lg 2 less; 10 lg of half of 0.005 + 0.00125
         {{"left.peak", -20, 0.001},
          {"right.peak", -26.0206, 0.001},
          {"left.truepeak", -20, 0.02},
          {"left.rms", -23.0103, 0.001},
          {"all.rms", -25.0515, 0.001},
          {"ch1.rmsaes17", -20, 0.001},
          {"crest", 3.0103, 0.001},
          {"right.level", -26.0206, 0.001},
          {"frequency", 1000, 0.0001},
          {"balance", -6.0206, 0.001},
          {"correlation", 1, 1e-9},
          {"delay", 0, 0.01},
          {"tones", 1, 0},
          {"clipped", 0, 0},
          {"wrapped", 0, 0},
          {"jumps", 0, 0},
          {"unusable", 0, 0},
          {"tones", 1, 0}}},
        {"late.wav", {{"delay", 12, 0.01}}},
        {"thd.wav", {{"thd", -60, 0.01}, {"thdn", -60, 0.01}, {"sfdr", 60, 0.01}, {"level", -6.0206, 0.001}}},
        {"loud.wav", {{"left.peak", 6.0206, 0.001}}},
        {"six.flac", {{"ch3.peak", -6.0206, 0.001}, {"all.rms", -16.8124, 0.001}}}, // 10 lg (1/8 / 6)
        {"dc.wav", {{"dc", 0.01, 0.0001}, {"mono.peak", -6.0189, 0.001}}},          // 20 lg 0.5001
        {"square.wav", {{"rms", 0, 0.001}, {"rmsaes17", 3.0103, 0.001}, {"clipped", 88200, 0}}},
        {"--quality high --duration 1s --level -3.5 --bits float",
         {{"peak", -3.5, 0.001}, {"level", -3.5, 1e-4}}},
        {"--duration 1s --tones 6", {{"peak", 0, 0.1}, {"limiter", 3.52, 0.1}}}, // six times a quarter
    };
    for (const auto& [input, figures] : cases) {
        std::ostringstream limits;
        limits.precision(12);
        for (const auto& [name, value, within] : figures)
            limits << " --limit '" << name << ">=" << value - within << "' --limit '" << name
                   << "<=" << value + within << "'";
        const ProgramResult result = Cli("measure " + std::string(input) + limits.str());
        EXPECT_THAT(result.errors, IsEmpty()) << result.output;
        EXPECT_EQ(result.status, 0) << input;
    }
}

TEST_F(Measure, ABrokenLimitTellsByHowMuch) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"two.wav", "peak<-22.5", "peak: left -20.00 dBFS is 2.50 dB above the limit of -22.5 dBFS"},
        {"two.wav", "Peak > -20.02 dB", "peak: right -26.02 dBFS is 6.00 dB below the limit of -20.02 dBFS"},
        {"two.wav", "right.frequency>=1.0001k",
         "frequency: right 1000.0000 Hz is 0.1000 Hz below the limit of 1000.1 Hz"},
        {"two.wav", "jumps>0", "jumps: left 0 is not above the limit of 0"},
        {"two.wav", "all.clipped<0", "clipped: all 0 is not below the limit of 0"},
        {"two.wav", "ch3.rms<0", "rms: ch3 has no such figure, which breaks the limit of 0 dBFS"},
        {"late.wav", "delay<100 us", "delay: 272.11 µs is 172.11 µs above the limit of 100 µs"},
        {"dc.wav", "dc<0.005%", "dc: 0.010000 % is 0.005000 % above the limit of 0.005 %"},
        {"dc.wav", "dc<-90dB", "dc: -80.00 dBFS is 10.00 dB above the limit of -90 dBFS"},
        {"thd.wav", "THD+N<0.05%", "thdn: 0.100000 % is 0.050000 % above the limit of 0.05 %"},
        {"silence.wav", "peak>-60", "peak: left -inf dBFS is below the limit of -60 dBFS"},
        {"silence.wav", "thdn<-90",
         "thdn: left has no such figure (noise, a sweep, clicks or silence), which breaks the limit of -90 "
         "dB"},
        {"silence.wav", "correlation>0",
         "correlation: the sound has no such figure, which breaks the limit of 0"},
        {"--frequency 50,997 --duration 1s", "tones<2", "tones: 2 is not below the limit of 2"},
        {"--frequency 440,442 --duration 3s", "thdn<-6",
         "thdn: the sound has no such figure (tones that come and go, sweep or beat), which breaks the limit "
         "of -6 dB"},
        {"nan.wav", "rms<9", "unusable: 88200 is 88200 above the limit of 0"},
        {"nan.wav", "peak<9", "peak: the sound has no such figure, which breaks the limit of 9 dBFS"},
        {"none.wav", "peak<0", "peak: the sound has no such figure, which breaks the limit of 0 dBFS"},
    };
    for (const auto& [file, limit, told] : cases) {
        const ProgramResult result =
            Cli("measure " + std::string(file) + " --limit 'peak<99999' --limit '" + limit + "'");
        EXPECT_EQ(result.status, 1) << limit;
        EXPECT_THAT(result.errors,
                    HasSubstr((file[0] == '-' ? "the tone" : std::string(file)) + ": " + told + "\n"));
    }
}

TEST_F(Measure, RefusalsNameTheFileAndTheReason) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "either INPUT or tone options are required"},
        {"two.wav --frequency 5", "either INPUT or tone options are required"},
        {"--frequency 5", "the tone: has no end (--duration gives it one)"},
        {"gone.wav", "gone.wav: No such file"},
        {"empty.wav", "empty.wav: "},
        {"text.wav", "text.wav: "},
        {"two.wav --fade 5", "two.wav: is a sound file, which keeps its level"},
        {"- --rate 8000", "standard input: is measured as it is, without options that shape samples"},
        {"two.wav --limit thdn", "\"thdn\" is no limit; NAME<VALUE is"},
        {"two.wav --limit 'freqency>1'", "there is no figure \"freqency\"; did you mean frequency?"},
        {"two.wav --limit 'xyz>1'", "there is no figure \"xyz\"; --limit '?' lists them"},
        {"two.wav --limit 'middle.peak<1'", "\"middle\" is no channel: left, right"},
        {"two.wav --limit 'left.delay<1'", "delay is one figure of all channels"},
        {"two.wav --limit 'all.thd<1'", "thd is one of each channel"},
        {"two.wav --limit 'thd<=-90Hz'", "\"-90Hz\" is no value of thd, which is in dB or %"},
        {"two.wav --limit 'peak<nan'", "\"nan\" is no value of peak, which is in dBFS"},
        {"two.wav --limit 'tones<'", "\"\" is no value of tones"},
    };
    for (const auto& [arguments, reason] : cases)
        ExpectRefused(Cli("measure --quality high " + std::string(arguments)), {reason});
}

TEST_F(Measure, TheReportFitsATerminal) {
    const std::string text = Cli("measure two.wav").output;
    for (const char* line : {"two.wav\n44100 Hz, 24 bits, stereo, 88200 frames, 00:02.000\n",
                             "\nPeak                          -20.00      -26.02      -20.00  dBFS\n",
                             "\nFrequency                  1000.0000   1000.0000              Hz\n",
                             "\nClipped samples                 none        none        none\n"})
        EXPECT_THAT(text, HasSubstr(line));
    const std::string square = Cli("measure square.wav").output;
    EXPECT_THAT(square, HasSubstr("\nClipped samples                88200\n"));
    EXPECT_THAT(Cli("measure silence.wav").output,
                HasSubstr("\nNo figures of tones: Left, Right\n  noise, a sweep, clicks or silence\n"));
    EXPECT_THAT(
        Cli("measure --frequency 997,3k --right 440,550 --duration 1s").output,
        HasSubstr("\nTones: Left\n        997.0000 Hz    -12.04 dBFS\n       3000.0000 Hz    -12.04 dBFS\n"
                  "\nTones: Right\n        440.0000 Hz"));
    EXPECT_THAT(Cli("measure thd.wav").output,
                HasSubstr("\n       3000.0000 Hz    -66.02 dBFS    -60.00 dB  harmonic 3\n"));
    std::istringstream lines(text + square + Cli("measure --limit '?'").output);
    for (std::string line; std::getline(lines, line);)
        EXPECT_LE(line.size(), 80u) << line;
}

TEST_F(Measure, JsonKeepsToItsSchema) {
    for (const char* input :
         {"two.wav", "square.wav", "silence.wav", "none.wav", "--waveform pink --duration 1s", "--duration 1",
          "--frequency 440,442 --duration 1s",
          "--frequency 1k,2k,5k --right 1k,3k,5k --duration 1s --quality high"}) {
        Write("shown.json",
              Cli("measure --json --limit 'peak<-1' --limit 'snr>9' " + std::string(input)).output);
        EXPECT_EQ(RunProgram("/usr/bin/python3 -m jsonschema -i shown.json " SONVIRE_MEASURE_SCHEMA).status,
                  0)
            << input << Read("shown.json");
    }
}

TEST_F(Measure, ReadsAndWritesPipesAndStops) {
    EXPECT_THAT(RunProgram(SONVIRE_CLI " measure - < two.wav").output, HasSubstr("standard input\n44100 Hz"));
    EXPECT_THAT(RunProgram("cat two.wav | " SONVIRE_CLI " measure -").output, HasSubstr(" -26.02 "));
    for (const char* command : {"measure two.wav", "measure --json two.wav", "measure --limit '?'", "--help"})
        for (const char* output : {" > /dev/full", " >&-"})
            ExpectRefused(RunCli(command + std::string(output)), {"standard output: could not be written"});
    const auto stop = [](pid_t process) {
        EXPECT_TRUE(WaitFor([proc = "/proc/" + std::to_string(process)] { // until it catches the signal
            std::error_code gone;
            const std::string status = ReadBytes(proc + "/status");
            const std::size_t caught = status.find("SigCgt:");
            return std::filesystem::equivalent(proc + "/exe", SONVIRE_CLI, gone) &&
                   caught != std::string::npos &&
                   (std::stoull(status.substr(caught + 7), nullptr, 16) & 2) != 0;
        }));
        kill(process, SIGINT);
    };
    ExpectRefused(RunCli("measure --duration 13h --waveform white", stop), {"was not measured to its end"});
}

} // namespace
